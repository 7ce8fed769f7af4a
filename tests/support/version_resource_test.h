#pragma once

#include <windows.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "support/build_folders.h"
#include "support/host_test.h"
#include "support/wide.h"

// With the module's version resource in `block`.
class VersionResources : public HostTest {
protected:
    VersionResources() {
        for (const char* file : {"zplui.dll", "zplui.dll.mui"})
            if (const std::string from = Built("/bin/") + file; std::filesystem::exists(from))
                std::filesystem::copy_file(from, OnDriveC(file));
        block.resize(GetFileVersionInfoSizeW(kModule, nullptr));
        GetFileVersionInfoW(kModule, 0, static_cast<DWORD>(block.size()), block.data());
    }

    Wide Text(const WCHAR* path) const {
        void* value = nullptr;
        UINT length = 0;
        if (!VerQueryValueW(block.data(), path, &value, &length) || length == 0)
            return TEXT("(none)");
        return Wide(static_cast<const WCHAR*>(value), length - 1);
    }

    static constexpr const WCHAR* kModule = TEXT("C:\\zplui.dll");
    std::vector<uint8_t> block;
};
