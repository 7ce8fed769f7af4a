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

TEST_F(FilesPaths, BecomeFullAndNeverLeaveTheirDrive) {
    const struct {
        const char16_t *given, *full;
    } cases[] = {
        {u"C:\\a\\b.txt", u"C:\\a\\b.txt"},
        {u"c:/a/./b/../c", u"C:\\a\\c"},
        {u"C:\\a\\..\\..\\..\\b", u"C:\\b"},
        {u"C:\\dir\\", u"C:\\dir\\"},
        {u"C:\\a. \\b...", u"C:\\a\\b"},
        {u"\\\\?\\C:\\a\\b", u"C:\\a\\b"},
        {u"/tmp/x", u"Z:\\tmp\\x"},
        {u"/../x", u"Z:\\x"},
        {u"C:", u"C:\\"},
        {u"\\\\server\\share\\x", u"\\\\server\\share\\x"},
    };
    for (const auto& c : cases) EXPECT_EQ(FullPathOf(c.given), c.full);
}

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

TEST_F(FilesPaths, TellWhyANameReachesNothing) {
    WriteFile("file", "x");
    const struct {
        const char16_t* name;
        DWORD error;
    } cases[] = {
        {u"C:\\missing", ERROR_FILE_NOT_FOUND},
        {u"C:\\missing\\file", ERROR_PATH_NOT_FOUND},
        {u"C:\\file\\below", ERROR_PATH_NOT_FOUND},
        {u"Q:\\x", ERROR_PATH_NOT_FOUND},
        {u"", ERROR_PATH_NOT_FOUND},
        {u"C:\\a?b", ERROR_INVALID_NAME},
        {u"\\\\server\\share\\x", ERROR_BAD_NETPATH},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(GetFileAttributesW(c.name), INVALID_FILE_ATTRIBUTES);
        EXPECT_EQ(GetLastError(), c.error) << std::filesystem::path(c.name);
    }
}

TEST_F(FilesPaths, AnswerTheSizeToProvideWhenTheBufferIsTooSmall) {
    WCHAR path[MAX_PATH] = {u'#'};
    const UINT length = GetSystemDirectoryW(path, MAX_PATH);
    ASSERT_EQ(std::u16string(path), u"C:\\WINDOWS\\system32");
    EXPECT_EQ(length, 19u);
    path[0] = u'#';
    EXPECT_EQ(GetSystemDirectoryW(path, length), length + 1);
    EXPECT_EQ(path[0], u'#');
    EXPECT_EQ(GetSystemDirectoryW(path, length + 1), length);
    LPWSTR file = nullptr;
    EXPECT_EQ(GetFullPathNameW(u"C:\\a\\b", MAX_PATH, path, &file), 6u);
    EXPECT_EQ(file, path + 5);
}

TEST_F(FilesPaths, KeepEveryUtf16Name) {
    const char16_t odd[] = {u'C', u':', u'\\', 0xD83D, 0xDE00, 0xD800, u'x', 0};
    ASSERT_TRUE(CreateDirectoryW(odd, nullptr));
    WIN32_FIND_DATAW data;
    const HANDLE search = FindFirstFileW(u"C:\\*x", &data);
    ASSERT_NE(search, INVALID_HANDLE_VALUE);
    EXPECT_EQ(std::u16string(data.cFileName), odd + 3);
    FindClose(search);
}

} // namespace
