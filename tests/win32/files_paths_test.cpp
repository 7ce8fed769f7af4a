#include "support/host_test.h"
#include "support/wide.h"
#include "support/wine.h"

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

Wide FullPathOf(const Wide& name) {
    WCHAR path[MAX_PATH] = {};
    const DWORD length = GetFullPathNameW(name.c_str(), MAX_PATH, path, nullptr);
    return Wide(path, length);
}

class FilesPaths : public HostTest {};

TEST_F(FilesPaths, BecomeFullAndNeverLeaveTheirDrive) {
    const struct {
        const WCHAR *given, *full;
    } cases[] = {
        {TEXT("C:\\a\\b.txt"), TEXT("C:\\a\\b.txt")},
        {TEXT("c:/a/./b/../c"), TEXT("c:\\a\\c")},
        {TEXT("C:\\a\\..\\..\\..\\b"), TEXT("C:\\b")},
        {TEXT("C:\\dir\\"), TEXT("C:\\dir\\")},
        {TEXT("C:\\dir\\.."), TEXT("C:\\")},
        {TEXT("C:\\a. \\b.\\c. ."), TEXT("C:\\a. \\b\\c")},
        {TEXT("C:\\a\\..."), TEXT("C:\\a\\")},
        {TEXT("C:\\a\\.. \\b"), TEXT("C:\\a\\.. \\b")},
        {TEXT("\\\\?\\C:\\a\\..\\b"), TEXT("\\\\?\\C:\\b")},
        {TEXT("\\\\?\\UNC\\server\\share\\x"), TEXT("\\\\?\\UNC\\server\\share\\x")},
        {TEXT("\\\\.\\COM1"), TEXT("\\\\.\\COM1")},
        {TEXT("/tmp/x"), TEXT("Z:\\tmp\\x")},
        {TEXT("/../x"), TEXT("Z:\\x")},
        {TEXT("q:x"), TEXT("q:\\x")},
        {TEXT("\\\\server\\share\\..\\..\\x"), TEXT("\\\\server\\share\\x")},
        {TEXT("\\\\server\\share"), TEXT("\\\\server\\share")},
        {TEXT("  "), TEXT("")},
    };
    for (const auto& c : cases) EXPECT_EQ(FullPathOf(c.given), c.full);
}

TEST_F(FilesPaths, TellWhyANameReachesNothing) {
    SkipUnderWine("it has other errors for drives and servers that are not there");
    WriteFile("file", "x");
    const struct {
        const WCHAR* name;
        DWORD error;
    } cases[] = {
        {TEXT("C:\\missing"), ERROR_FILE_NOT_FOUND},
        {TEXT("C:\\missing\\file"), ERROR_PATH_NOT_FOUND},
        {TEXT("C:\\file\\below"), ERROR_PATH_NOT_FOUND},
        {TEXT("Q:\\x"), ERROR_PATH_NOT_FOUND},
        {TEXT(""), ERROR_PATH_NOT_FOUND},
        {TEXT("C:\\a?b"), ERROR_INVALID_NAME},
        {TEXT("\\\\server\\share\\x"), ERROR_BAD_NETPATH},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(GetFileAttributesW(c.name), INVALID_FILE_ATTRIBUTES);
        EXPECT_EQ(GetLastError(), c.error) << std::filesystem::path(c.name);
    }
}

TEST_F(FilesPaths, AnswerTheSizeToProvideWhenTheBufferIsTooSmall) {
    WCHAR path[MAX_PATH] = {TEXT('#')};
    const UINT length = GetSystemDirectoryW(path, MAX_PATH);
    ASSERT_EQ(lstrcmpiW(path, TEXT("C:\\WINDOWS\\system32")), 0);
    EXPECT_EQ(length, 19u);
    path[0] = TEXT('#');
    EXPECT_EQ(GetSystemDirectoryW(path, length), length + 1);
    EXPECT_EQ(path[0], TEXT('#'));
    EXPECT_EQ(GetSystemDirectoryW(path, length + 1), length);
    LPWSTR file = nullptr;
    EXPECT_EQ(GetFullPathNameW(TEXT("C:\\a\\b"), MAX_PATH, path, &file), 6u);
    EXPECT_EQ(file, path + 5);
}

TEST_F(FilesPaths, KeepEveryUtf16Name) {
    SkipUnderWine("its file names cannot hold half a surrogate pair");
    const WCHAR odd[] = {TEXT('C'), TEXT(':'), TEXT('\\'), 0xD83D, 0xDE00, 0xD800, TEXT('x'), 0};
    ASSERT_TRUE(CreateDirectoryW(odd, nullptr));
    WIN32_FIND_DATAW data;
    const HANDLE search = FindFirstFileW(TEXT("C:\\*x"), &data);
    ASSERT_NE(search, INVALID_HANDLE_VALUE);
    EXPECT_EQ(Wide(data.cFileName), odd + 3);
    FindClose(search);
}

} // namespace
