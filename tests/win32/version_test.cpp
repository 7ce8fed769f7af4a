#include "platform/error_of.h"
#include "support/build_folders.h"
#include "support/host_test.h"
#include "support/wide.h"

#include <windows.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

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

TEST_F(VersionResources, OfTheModuleNameItInAnyCase) {
    ASSERT_FALSE(block.empty());
    EXPECT_EQ(Text(TEXT("\\StringFileInfo\\000004B0\\InternalName")), TEXT("zplui"));
    EXPECT_EQ(Text(TEXT("\\stringfileinfo\\000004b0\\ORIGINALFILENAME")), TEXT("zplui.dll"));
    for (const WCHAR* name :
         {TEXT("ProductVersion"), TEXT("Product Tag"), TEXT("Build Date"), TEXT("SCM Branch"),
          TEXT("SCM Revision"), TEXT("LegalCopyright"), TEXT("FileVersion"), TEXT("ProductName")})
        EXPECT_NE(Text((Wide(TEXT("\\StringFileInfo\\000004B0\\")) + name).c_str()),
                  TEXT("(none)"));
    EXPECT_EQ(Text(TEXT("\\StringFileInfo\\000004B0\\Nothing")), TEXT("(none)"));
    EXPECT_EQ(Text(TEXT("\\StringFileInfo\\040904B0\\InternalName")), TEXT("(none)"));
}

TEST_F(VersionResources, OfFilesWithoutOneAreMissing) {
    WriteFile("plain.txt", "text");
    EXPECT_EQ(ErrorOf(GetFileVersionInfoSizeW(TEXT("C:\\plain.txt"), nullptr)),
              ERROR_RESOURCE_DATA_NOT_FOUND);
    EXPECT_EQ(ErrorOf(GetFileVersionInfoSizeW(TEXT("C:\\none.dll"), nullptr)),
              ERROR_FILE_NOT_FOUND);
}

} // namespace
