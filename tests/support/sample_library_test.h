#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

#include "support/build_folders.h"
#include "support/host_test.h"

// With the PE file of the tests loaded from drive C.
class ModulesResources : public HostTest {
protected:
    ModulesResources() {
        std::filesystem::copy_file(Built("/bin/test_data/sample.dll"), OnDriveC("sample.dll"));
        module = LoadLibraryW(TEXT("C:\\sample.dll"));
    }
    ~ModulesResources() override { FreeLibrary(module); }

    std::string Bytes(LPCWSTR name, LPCWSTR type) const {
        const HRSRC resource = FindResourceW(module, name, type);
        if (!resource) return "error " + std::to_string(GetLastError());
        const void* bytes = LockResource(LoadResource(module, resource));
        return std::string(static_cast<const char*>(bytes), SizeofResource(module, resource));
    }

    HMODULE module = nullptr;
};
