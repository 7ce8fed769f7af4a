// Any bytes as a file with a version resource, and as the resource itself: every answer is within
// it.
#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

#include "fuzz_host.h"
#include "input.h"
#include "target.h"
#include "ui/version_info.h"

namespace {

constexpr const WCHAR* kLibrary = TEXT("C:\\in.dll");
constexpr const WCHAR* kPaths[] = {TEXT(""),
                                   TEXT("\\"),
                                   TEXT("\\VarFileInfo\\Translation"),
                                   TEXT("\\StringFileInfo\\000004B0"),
                                   TEXT("\\StringFileInfo\\000004B0\\ProductVersion"),
                                   TEXT("\\stringfileinfo\\000004b0\\LegalCopyright"),
                                   TEXT("StringFileInfo\\\\000004B0\\a")};

// `block` holds as many bytes as its first word says.
void CheckBlock(const std::vector<uint8_t>& block) {
    for (const WCHAR* path : kPaths) {
        void* value = nullptr;
        UINT length = 0;
        if (!VerQueryValueW(block.data(), path, &value, &length)) continue;
        const auto* at = static_cast<const uint8_t*>(value);
        Check(at >= block.data() && at + length <= block.data() + block.size());
    }
}

} // namespace

FUZZ_TARGET(version_resource)(const uint8_t* data, size_t size) {
    static const FuzzHost host(UsualModelData());
    std::vector<uint8_t> block(data, data + std::min<size_t>(size, 0xFFFF));
    if (block.size() >= 2) {
        const size_t told = block[0] | static_cast<size_t>(block[1]) << 8;
        if (told > block.size()) {
            block[0] = static_cast<uint8_t>(block.size());
            block[1] = static_cast<uint8_t>(block.size() >> 8);
        }
        CheckBlock(block);
    }

    std::ofstream(host.OnDriveC("in.dll"), std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    const DWORD needed = GetFileVersionInfoSizeW(kLibrary, nullptr);
    if (needed >= 2) {
        block.assign(needed, 0xAA);
        Check(GetFileVersionInfoW(kLibrary, 0, needed, block.data()));
        CheckBlock(block);
        block.resize(needed / 2 + 1);
        block.shrink_to_fit();
        Check(GetFileVersionInfoW(kLibrary, 0, static_cast<DWORD>(block.size()), block.data()));
        CheckBlock(block);
    }
    ReadCopyrightYears(std::string(reinterpret_cast<const char*>(data), size).c_str());
    return 0;
}
