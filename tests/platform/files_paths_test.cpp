#include "support/host_test.h"

#include <windows.h>

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

std::u16string FullPathOf(const std::u16string& name) {
    WCHAR path[MAX_PATH] = {};
    const DWORD length = GetFullPathNameW(name.c_str(), MAX_PATH, path, nullptr);
    return std::u16string(path, length);
}

bool Exists(const std::u16string& name) {
    return GetFileAttributesW(name.c_str()) != INVALID_FILE_ATTRIBUTES;
}

class FilesPaths : public HostTest {};

TEST_F(FilesPaths, CountFromTheWorkingFolderWhenTheyAreRelative) {
    const auto before = std::filesystem::current_path();
    std::filesystem::create_directories(OnDriveC("work"));
    std::filesystem::current_path(OnDriveC("work"));
    EXPECT_EQ(FullPathOf(u"x\\..\\y"), u"C:\\work\\y");
    EXPECT_EQ(FullPathOf(u"\\x"), u"C:\\x");
    EXPECT_EQ(FullPathOf(u"C:x"), u"C:\\work\\x");
    std::filesystem::current_path("/");
    EXPECT_EQ(FullPathOf(u"x"), u"Z:\\x");
    std::filesystem::current_path(before);
}

TEST_F(FilesPaths, FindNamesInAnyCaseAndTheExactNameFirst) {
    WriteFile("Dir\\File.TXT", "upper");
    WriteFile("dir2\\gr\xC3\xB6\xC3\x9F"
              "e.txt",
              "");
    EXPECT_TRUE(Exists(u"C:\\dIR\\fILE.txt"));
    EXPECT_TRUE(Exists(u"c:/DIR2/GR\u00D6\u00DFE.TXT"));
    EXPECT_FALSE(Exists(u"C:\\dir\\file.tx"));
    const std::string posix = OnDriveC("dir/FILE.txt");
    const std::u16string wide(posix.begin(), posix.end());
    EXPECT_TRUE(Exists(wide) && Exists(u"Z:" + wide));
    WriteFile("Dir\\file.txt", "x");
    ASSERT_TRUE(DeleteFileW(u"C:\\Dir\\file.txt"));
    EXPECT_TRUE(std::filesystem::exists(OnDriveC("Dir\\File.TXT")));
}

} // namespace
