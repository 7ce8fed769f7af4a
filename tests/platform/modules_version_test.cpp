#include "platform/error_of.h"
#include "support/host_test.h"

#include <windows.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

class VersionResources : public HostTest {
protected:
    VersionResources() {
        for (const char* file : {"zplui.dll", "zplui.dll.mui"})
            fs::copy_file(std::string(TEST_BINARY_DIR "/bin/") + file, OnDriveC(file));
        block.resize(GetFileVersionInfoSizeW(kModule, nullptr));
        GetFileVersionInfoW(kModule, 0, static_cast<DWORD>(block.size()), block.data());
    }

    std::u16string Text(const WCHAR* path) const {
        void* value = nullptr;
        UINT length = 0;
        if (!VerQueryValueW(block.data(), path, &value, &length) || length == 0) return u"(none)";
        return std::u16string(static_cast<const WCHAR*>(value), length - 1);
    }

    static constexpr const WCHAR* kModule = TEXT("C:\\zplui.dll");
    std::vector<uint8_t> block;
};

TEST_F(VersionResources, OfTheModuleNameItInAnyCase) {
    ASSERT_FALSE(block.empty());
    EXPECT_EQ(Text(u"\\StringFileInfo\\000004B0\\InternalName"), u"zplui");
    EXPECT_EQ(Text(u"\\stringfileinfo\\000004b0\\ORIGINALFILENAME"), u"zplui.dll");
    for (const WCHAR* name : {u"ProductVersion", u"Product Tag", u"Build Date", u"SCM Branch",
                              u"SCM Revision", u"LegalCopyright", u"FileVersion", u"ProductName"})
        EXPECT_NE(Text((std::u16string(u"\\StringFileInfo\\000004B0\\") + name).c_str()),
                  u"(none)");
    EXPECT_EQ(Text(u"\\StringFileInfo\\000004B0\\Nothing"), u"(none)");
    EXPECT_EQ(Text(u"\\StringFileInfo\\040904B0\\InternalName"), u"(none)");
}

TEST_F(VersionResources, HaveNumbersAndALanguage) {
    void* value = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(block.data(), u"\\", &value, &length));
    ASSERT_EQ(length, sizeof(VS_FIXEDFILEINFO));
    EXPECT_EQ(static_cast<const VS_FIXEDFILEINFO*>(value)->dwSignature, VS_FFI_SIGNATURE);
    ASSERT_TRUE(VerQueryValueW(block.data(), u"\\VarFileInfo\\Translation", &value, &length));
    ASSERT_EQ(length, 4u);
    EXPECT_EQ(*static_cast<const uint32_t*>(value), 0x04B00000u);
}

TEST_F(VersionResources, CutAnywhereAnswerWhatIsLeft) {
    for (DWORD size = 0; size < block.size(); size += 7) {
        // The block behind is memory of its own, so that a look behind the cut is noticed.
        std::vector<uint8_t> cut(size < 2 ? 2 : size);
        ASSERT_TRUE(GetFileVersionInfoW(kModule, 0, size, cut.data()));
        void* value = nullptr;
        UINT length = 0;
        EXPECT_FALSE(
            VerQueryValueW(cut.data(), u"\\StringFileInfo\\000004B0\\Nothing", &value, &length));
        VerQueryValueW(cut.data(), u"\\VarFileInfo\\Translation", &value, &length);
    }
}

TEST_F(VersionResources, OfFilesWithoutOneAreMissing) {
    WriteFile("plain.txt", "text");
    EXPECT_EQ(ErrorOf(GetFileVersionInfoSizeW(u"C:\\plain.txt", nullptr)),
              ERROR_RESOURCE_DATA_NOT_FOUND);
    EXPECT_EQ(ErrorOf(GetFileVersionInfoSizeW(u"C:\\none.dll", nullptr)), ERROR_FILE_NOT_FOUND);
}

} // namespace
