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

} // namespace
