#include "platform/error_of.h"
#include "support/build_folders.h"
#include "support/host_test.h"
#include "support/sample_library_test.h"

#include <windows.h>

#include <cstring>
#include <filesystem>
#include <string>

namespace {

namespace fs = std::filesystem;

const std::string kData = Built("/bin/test_data/");

std::u16string Text(HMODULE module, UINT id, int size = 100) {
    WCHAR text[100] = {};
    const int length = LoadStringW(module, id, text, size);
    EXPECT_EQ(std::char_traits<WCHAR>::length(text), static_cast<size_t>(length)) << id;
    return text;
}

TEST_F(ModulesResources, RefuseHandlesThatAreNotTheirs) {
    int local = 0;
    const HRSRC foreign = reinterpret_cast<HRSRC>(&local);
    EXPECT_EQ(SizeofResource(module, foreign), 0u);
    EXPECT_EQ(ErrorOf(LoadResource(module, foreign)), ERROR_INVALID_HANDLE);
}

TEST_F(ModulesResources, OfALibraryThatRunsLieBesideIt) {
    fs::copy_file(kData + "module.dll", OnDriveC("module.dll"));
    fs::copy_file(kData + "sample.dll", OnDriveC("module.dll.mui"));
    const HMODULE running = LoadLibraryW(u"C:\\module.dll");
    ASSERT_NE(running, nullptr);
    EXPECT_EQ(Text(running, 16), u"First text");
    FreeLibrary(running);
}

TEST_F(ModulesResources, OfADamagedFileAreMissingAndNothingWorse) {
    const std::string whole = BytesOf(kData + "sample.dll");
    const auto use = [&](const std::string& bytes) {
        WriteFile("bad.dll", bytes);
        const HMODULE bad = LoadLibraryW(u"C:\\bad.dll");
        if (!bad) {
            EXPECT_EQ(GetLastError(), DWORD{ERROR_BAD_EXE_FORMAT});
            return;
        }
        WCHAR text[64];
        for (UINT id : {16u, 31u, 100u}) LoadStringW(bad, id, text, 64);
        const HRSRC resource = FindResourceW(bad, u"named_data", RT_RCDATA);
        const void* place = resource ? LockResource(LoadResource(bad, resource)) : nullptr;
        if (place) {
            const std::string copy(static_cast<const char*>(place), SizeofResource(bad, resource));
            EXPECT_LE(copy.size(), bytes.size());
        }
        FreeLibrary(bad);
    };
    for (size_t size = 0; size < whole.size(); size += 37) use(whole.substr(0, size));
    // Headers and tree with every byte set to the values that break lengths, counts and offsets.
    for (size_t at = 0; at < whole.size(); at += at < 0x400 ? 3 : 7) {
        for (char value : {'\x00', '\x7F', '\xFF'}) {
            std::string bytes = whole;
            bytes[at] = value;
            use(bytes);
        }
    }
}

} // namespace
