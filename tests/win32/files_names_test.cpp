// Names of files: full paths, patterns, folders, moving and copying.
#include "platform/error_of.h"
#include "support/host_test.h"
#include "support/wide.h"
#include "support/wine.h"

#include <windows.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace {

class FilesNames : public HostTest {
protected:
    FilesNames() { std::filesystem::create_directories(OnDriveC("dir")); }
};

std::vector<Wide> Names(const WCHAR* pattern) {
    std::vector<Wide> names;
    WIN32_FIND_DATAW data;
    const HANDLE search = FindFirstFileW(pattern, &data);
    if (search == INVALID_HANDLE_VALUE) return names;
    do names.push_back(data.cFileName);
    while (FindNextFileW(search, &data));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_NO_MORE_FILES});
    FindClose(search);
    return names;
}

TEST_F(FilesNames, BecomeFullAndNeverLeaveTheirDrive) {
    const struct {
        const WCHAR *given, *full;
    } cases[] = {
        {TEXT("C:\\a\\b.txt"), TEXT("C:\\a\\b.txt")},
        {TEXT("c:/a/./b/../c"), TEXT("c:\\a\\c")},
        {TEXT("C:\\a\\..\\..\\..\\b"), TEXT("C:\\b")},
        {TEXT("C:\\dir\\.."), TEXT("C:\\")},
        {TEXT("C:\\a. \\b.\\c. ."), TEXT("C:\\a. \\b\\c")},
        {TEXT("C:\\a\\..."), TEXT("C:\\a\\")},
        {TEXT("\\\\?\\C:\\a\\..\\b"), TEXT("\\\\?\\C:\\b")},
        {TEXT("/../x"), TEXT("Z:\\x")},
        {TEXT("q:x"), TEXT("q:\\x")},
        {TEXT("\\\\server\\share\\..\\..\\x"), TEXT("\\\\server\\share\\x")},
        {TEXT("  "), TEXT("")},
    };
    WCHAR path[MAX_PATH] = {};
    for (const auto& c : cases) {
        const DWORD length = GetFullPathNameW(c.given, MAX_PATH, path, nullptr);
        EXPECT_EQ(Wide(path, length), c.full);
    }
    LPWSTR file = nullptr;
    EXPECT_EQ(GetFullPathNameW(TEXT("C:\\a\\b"), MAX_PATH, path, &file), 6u);
    EXPECT_EQ(file, path + 5);
    // A buffer that is too small is told the size it needs.
    const UINT length = GetSystemDirectoryW(path, MAX_PATH);
    EXPECT_EQ(lstrcmpiW(path, TEXT("C:\\WINDOWS\\system32")), 0);
    EXPECT_EQ(GetSystemDirectoryW(path, length), length + 1);
}

TEST_F(FilesNames, TellWhyTheyReachNothing) {
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

TEST_F(FilesNames, MayHoldEveryUtf16Unit) {
    SkipUnderWine("its file names cannot hold half a surrogate pair");
    const WCHAR odd[] = {TEXT('C'), TEXT(':'), TEXT('\\'), 0xD83D, 0xDE00, 0xD800, TEXT('x'), 0};
    ASSERT_TRUE(CreateDirectoryW(odd, nullptr));
    EXPECT_EQ(Names(TEXT("C:\\*x")), std::vector<Wide>{odd + 3});
}

TEST_F(FilesNames, AreFoundByPattern) {
    for (const char* name : {"dir\\b.TXT", "dir\\A.txt", "dir\\c.dat", "dir\\noext", "dir\\sub\\x"})
        WriteFile(name, "1234");
    using List = std::vector<Wide>;
    const struct {
        const WCHAR* pattern;
        List names;
    } cases[] = {
        {TEXT("C:\\dir\\*.txt"), {TEXT("A.txt"), TEXT("b.TXT")}},
        {TEXT("C:\\DIR\\?.DAT"), {TEXT("c.dat")}},
        {TEXT("C:\\dir\\*.*"),
         {TEXT("."), TEXT(".."), TEXT("A.txt"), TEXT("b.TXT"), TEXT("c.dat"), TEXT("noext"),
          TEXT("sub")}},
        {TEXT("C:\\dir\\a*t*t"), {TEXT("A.txt")}},
        {TEXT("C:\\dir\\SUB"), {TEXT("sub")}},
        {TEXT("C:\\dir\\"), {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Names(c.pattern), c.names) << std::filesystem::path(c.pattern);
    WIN32_FIND_DATAW data;
    EXPECT_EQ(ErrorOf(FindFirstFileW(TEXT("C:\\dir\\zz*"), &data)), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(ErrorOf(FindFirstFileW(TEXT("C:\\none\\*"), &data)), ERROR_PATH_NOT_FOUND);
}

TEST_F(FilesNames, AreMovedAndCopied) {
    WriteFile("a", "aaa");
    WriteFile("b", "bbb");
    const auto move = [](const WCHAR* from, const WCHAR* to, DWORD flags = 0) {
        return ErrorOf(MoveFileExW(from, to, flags));
    };
    const auto copy = [](const WCHAR* from, const WCHAR* to, BOOL keep = FALSE) {
        return ErrorOf(CopyFileW(from, to, keep));
    };
    EXPECT_EQ(move(TEXT("C:\\a"), TEXT("C:\\B")), ERROR_ALREADY_EXISTS);
    EXPECT_EQ(copy(TEXT("C:\\a"), TEXT("C:\\b"), TRUE), ERROR_FILE_EXISTS);
    EXPECT_EQ(copy(TEXT("C:\\a"), TEXT("C:\\none\\b")), ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(copy(TEXT("C:\\none"), TEXT("C:\\b")), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(copy(TEXT("C:\\a"), TEXT("C:\\b")), 0);
    EXPECT_EQ(BytesOf(OnDriveC("b")), "aaa");
    WriteFile("b", "bbb");
    EXPECT_EQ(move(TEXT("C:\\b"), TEXT("C:\\a"), MOVEFILE_REPLACE_EXISTING), 0);
    EXPECT_EQ(BytesOf(OnDriveC("a")), "bbb");
    EXPECT_EQ(move(TEXT("C:\\a"), TEXT("C:\\dir"), MOVEFILE_REPLACE_EXISTING), ERROR_ACCESS_DENIED);
    const HANDLE open = CreateFileW(TEXT("C:\\a"), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(move(TEXT("C:\\a"), TEXT("C:\\moved")), ERROR_SHARING_VIOLATION);
    CloseHandle(open);
}

TEST_F(FilesNames, OfFoldersAreMadeAndRemoved) {
    EXPECT_EQ(GetFileAttributesW(TEXT("C:\\DIR\\")), DWORD{FILE_ATTRIBUTE_DIRECTORY});
    EXPECT_EQ(ErrorOf(CreateDirectoryW(TEXT("C:\\DIR"), nullptr)), ERROR_ALREADY_EXISTS);
    EXPECT_EQ(ErrorOf(CreateDirectoryW(TEXT("C:\\x\\y"), nullptr)), ERROR_PATH_NOT_FOUND);
    WriteFile("dir\\file", "");
    EXPECT_EQ(ErrorOf(RemoveDirectoryW(TEXT("C:\\dir"))), ERROR_DIR_NOT_EMPTY);
    EXPECT_EQ(ErrorOf(DeleteFileW(TEXT("C:\\dir"))), ERROR_ACCESS_DENIED);
    EXPECT_TRUE(DeleteFileW(TEXT("C:\\dir\\file")));
    EXPECT_TRUE(RemoveDirectoryW(TEXT("C:\\dir")));
}

TEST_F(FilesNames, OfTemporaryFilesAreFree) {
    WCHAR folder[MAX_PATH];
    ASSERT_GT(GetTempPathW(MAX_PATH, folder), 0u);
    std::set<Wide> names;
    for (int i = 0; i < 3; ++i) {
        WCHAR name[MAX_PATH];
        ASSERT_NE(GetTempFileNameW(folder, TEXT("label"), 0, name), 0u);
        EXPECT_NE(GetFileAttributesW(name), INVALID_FILE_ATTRIBUTES);
        EXPECT_TRUE(Wide(name).starts_with(Wide(folder) + TEXT("lab")));
        names.insert(name);
    }
    EXPECT_EQ(names.size(), 3u);
}

} // namespace
