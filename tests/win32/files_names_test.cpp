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
        {TEXT("C:\\none\\*"), {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Names(c.pattern), c.names) << std::filesystem::path(c.pattern);
    WIN32_FIND_DATAW data;
    const HANDLE search = FindFirstFileW(TEXT("C:\\dir\\c.dat"), &data);
    ASSERT_NE(search, INVALID_HANDLE_VALUE);
    EXPECT_EQ(data.nFileSizeLow, 4u);
    EXPECT_EQ(data.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY), 0u);
    FindClose(search);
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
    EXPECT_EQ(move(TEXT("C:\\a"), TEXT("C:\\A")), 0);
    // Wine leaves the old spelling.
    if (!RunsUnderWine()) {
        EXPECT_EQ(Names(TEXT("C:\\a")), std::vector<Wide>{TEXT("A")});
    }
    EXPECT_EQ(move(TEXT("C:\\A"), TEXT("C:\\dir"), MOVEFILE_REPLACE_EXISTING), ERROR_ACCESS_DENIED);
    const HANDLE open = CreateFileW(TEXT("C:\\A"), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(move(TEXT("C:\\A"), TEXT("C:\\moved")), ERROR_SHARING_VIOLATION);
    CloseHandle(open);
}

TEST_F(FilesNames, MakeAndRemoveFolders) {
    EXPECT_TRUE(CreateDirectoryW(TEXT("C:\\new"), nullptr));
    EXPECT_EQ(GetFileAttributesW(TEXT("C:\\NEW\\")), DWORD{FILE_ATTRIBUTE_DIRECTORY});
    EXPECT_EQ(ErrorOf(CreateDirectoryW(TEXT("C:\\NEW"), nullptr)), ERROR_ALREADY_EXISTS);
    EXPECT_EQ(ErrorOf(CreateDirectoryW(TEXT("C:\\x\\y"), nullptr)), ERROR_PATH_NOT_FOUND);
    WriteFile("new\\file", "");
    EXPECT_EQ(ErrorOf(RemoveDirectoryW(TEXT("C:\\new"))), ERROR_DIR_NOT_EMPTY);
    EXPECT_EQ(ErrorOf(RemoveDirectoryW(TEXT("C:\\new\\file"))), ERROR_DIRECTORY);
    EXPECT_EQ(ErrorOf(DeleteFileW(TEXT("C:\\new"))), ERROR_ACCESS_DENIED);
    EXPECT_TRUE(DeleteFileW(TEXT("C:\\new\\file")));
    EXPECT_TRUE(RemoveDirectoryW(TEXT("C:\\new")));
}

TEST_F(FilesNames, ForTemporaryFilesAreFree) {
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
    if (RunsUnderWine()) return; // it looks at the folder of a name that it need not make
    WCHAR name[MAX_PATH];
    EXPECT_EQ(GetTempFileNameW(TEXT("C:\\none"), TEXT("x"), 0x1AB, name), 0x1ABu);
    EXPECT_EQ(Wide(name), TEXT("C:\\none\\x1AB.TMP"));
    EXPECT_EQ(ErrorOf(GetTempFileNameW(TEXT("C:\\none"), TEXT("x"), 0, name)), ERROR_DIRECTORY);
}

class FilesProfile : public HostTest {
protected:
    static Wide Get(const WCHAR* section, const WCHAR* key, DWORD size = 100) {
        WCHAR text[100];
        const DWORD length =
            GetPrivateProfileStringW(section, key, TEXT("none  "), text, size, TEXT("C:\\x.ini"));
        return Wide(text, length);
    }
};

TEST_F(FilesProfile, ReadsValuesAndLists) {
    WriteFile("x.ini", "; comment\r\n[One]\r\n a = b c \r\nq=\"  x \"\r\nempty=\r\n"
                       ";no=1\r\n\r\n[ two ]\nA=second");
    const struct {
        const WCHAR *section, *key;
        DWORD size;
        Wide text;
    } cases[] = {
        {TEXT("ONE"), TEXT("A"), 100, TEXT("b c")},
        {TEXT("one"), TEXT("q"), 100, TEXT("  x ")},
        {TEXT("one"), TEXT("empty"), 100, TEXT("")},
        {TEXT("one"), TEXT("missing"), 100, TEXT("none")},
        {TEXT("two"), TEXT("a"), 100, TEXT("second")},
        {TEXT("two"), TEXT("a"), 4, TEXT("sec")},
        {TEXT("three"), TEXT("a"), 100, TEXT("none")},
        {nullptr, nullptr, 100, {TEXT("One\0two\0"), 8}},
        {TEXT("one"), nullptr, 100, {TEXT("a\0q\0empty\0"), 10}},
        {TEXT("one"), nullptr, 5, {TEXT("a\0q"), 3}},
    };
    for (const auto& c : cases) EXPECT_EQ(Get(c.section, c.key, c.size), c.text) << &c - cases;
}

TEST_F(FilesProfile, ChangesOnlyWhatItIsToldTo) {
    SkipUnderWine("it drops empty lines");
    WriteFile("x.ini", "; kept\r\n[One]\r\na=1\r\n\r\n[Two]\r\nb=2\r\n");
    const auto write = [](const WCHAR* section, const WCHAR* key, const WCHAR* text) {
        return WritePrivateProfileStringW(section, key, text, TEXT("C:\\x.ini"));
    };
    EXPECT_TRUE(write(TEXT("one"), TEXT("A"), TEXT("10")));
    EXPECT_TRUE(write(TEXT("One"), TEXT("new"), TEXT("n")));
    EXPECT_TRUE(write(TEXT("Three"), TEXT("c"), TEXT("3")));
    EXPECT_TRUE(write(TEXT("two"), TEXT("b"), nullptr));
    EXPECT_EQ(BytesOf(OnDriveC("x.ini")),
              "; kept\r\n[One]\r\nA=10\r\nnew=n\r\n\r\n[Two]\r\n[Three]\r\nc=3\r\n");
    EXPECT_TRUE(write(TEXT("ONE"), nullptr, nullptr));
    EXPECT_EQ(Get(nullptr, nullptr), Wide(TEXT("Two\0Three\0"), 10));
}

TEST_F(FilesProfile, KeepsTheFormOfTheFile) {
    WriteFile("x.ini", std::string("\xFF\xFE[\0S\0]\0\n\0", 10));
    ASSERT_TRUE(
        WritePrivateProfileStringW(TEXT("S"), TEXT("k"), TEXT("\u0416"), TEXT("C:\\x.ini")));
    EXPECT_EQ(Get(TEXT("s"), TEXT("k")), TEXT("\u0416"));
    EXPECT_EQ(std::filesystem::file_size(OnDriveC("x.ini")) % 2, 0u);
}

} // namespace
