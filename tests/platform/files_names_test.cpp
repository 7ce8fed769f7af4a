#include "platform/error_of.h"
#include "support/host_test.h"

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

std::vector<std::u16string> Names(const char16_t* pattern) {
    std::vector<std::u16string> names;
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
    using List = std::vector<std::u16string>;
    const struct {
        const char16_t* pattern;
        List names;
    } cases[] = {
        {u"C:\\dir\\*.txt", {u"A.txt", u"b.TXT"}},
        {u"C:\\DIR\\?.DAT", {u"c.dat"}},
        {u"C:\\dir\\*.*", {u".", u"..", u"A.txt", u"b.TXT", u"c.dat", u"noext", u"sub"}},
        {u"C:\\dir\\a*t*t", {u"A.txt"}},
        {u"C:\\dir\\SUB", {u"sub"}},
        {u"C:\\dir\\", {}},
        {u"C:\\none\\*", {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Names(c.pattern), c.names) << std::filesystem::path(c.pattern);
    WIN32_FIND_DATAW data;
    const HANDLE search = FindFirstFileW(u"C:\\dir\\c.dat", &data);
    ASSERT_NE(search, INVALID_HANDLE_VALUE);
    EXPECT_EQ(data.nFileSizeLow, 4u);
    EXPECT_EQ(data.dwFileAttributes, DWORD{FILE_ATTRIBUTE_NORMAL});
    FindClose(search);
    EXPECT_EQ(ErrorOf(FindFirstFileW(u"C:\\dir\\zz*", &data)), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(ErrorOf(FindFirstFileW(u"C:\\none\\*", &data)), ERROR_PATH_NOT_FOUND);
}

TEST_F(FilesNames, AreMovedAndCopied) {
    WriteFile("a", "aaa");
    WriteFile("b", "bbb");
    const auto move = [](const char16_t* from, const char16_t* to, DWORD flags = 0) {
        return ErrorOf(MoveFileExW(from, to, flags));
    };
    const auto copy = [](const char16_t* from, const char16_t* to, BOOL keep = FALSE) {
        return ErrorOf(CopyFileW(from, to, keep));
    };
    EXPECT_EQ(move(u"C:\\a", u"C:\\B"), ERROR_ALREADY_EXISTS);
    EXPECT_EQ(copy(u"C:\\a", u"C:\\b", TRUE), ERROR_FILE_EXISTS);
    EXPECT_EQ(copy(u"C:\\a", u"C:\\none\\b"), ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(copy(u"C:\\none", u"C:\\b"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(copy(u"C:\\a", u"C:\\b"), 0);
    EXPECT_EQ(BytesOf(OnDriveC("b")), "aaa");
    WriteFile("b", "bbb");
    EXPECT_EQ(move(u"C:\\b", u"C:\\a", MOVEFILE_REPLACE_EXISTING), 0);
    EXPECT_EQ(BytesOf(OnDriveC("a")), "bbb");
    EXPECT_EQ(move(u"C:\\a", u"C:\\A"), 0);
    EXPECT_EQ(Names(u"C:\\a"), std::vector<std::u16string>{u"A"});
    EXPECT_EQ(move(u"C:\\A", u"C:\\dir", MOVEFILE_REPLACE_EXISTING), ERROR_ACCESS_DENIED);
    const HANDLE open =
        CreateFileW(u"C:\\A", GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(move(u"C:\\A", u"C:\\moved"), ERROR_SHARING_VIOLATION);
    CloseHandle(open);
}

TEST_F(FilesNames, MakeAndRemoveFolders) {
    EXPECT_TRUE(CreateDirectoryW(u"C:\\new", nullptr));
    EXPECT_EQ(GetFileAttributesW(u"C:\\NEW\\"), DWORD{FILE_ATTRIBUTE_DIRECTORY});
    EXPECT_EQ(ErrorOf(CreateDirectoryW(u"C:\\NEW", nullptr)), ERROR_ALREADY_EXISTS);
    EXPECT_EQ(ErrorOf(CreateDirectoryW(u"C:\\x\\y", nullptr)), ERROR_PATH_NOT_FOUND);
    WriteFile("new\\file", "");
    EXPECT_EQ(ErrorOf(RemoveDirectoryW(u"C:\\new")), ERROR_DIR_NOT_EMPTY);
    EXPECT_EQ(ErrorOf(RemoveDirectoryW(u"C:\\new\\file")), ERROR_DIRECTORY);
    EXPECT_EQ(ErrorOf(DeleteFileW(u"C:\\new")), ERROR_ACCESS_DENIED);
    EXPECT_TRUE(DeleteFileW(u"C:\\new\\file"));
    EXPECT_TRUE(RemoveDirectoryW(u"C:\\new"));
}

TEST_F(FilesNames, ForTemporaryFilesAreFree) {
    WCHAR folder[MAX_PATH];
    ASSERT_GT(GetTempPathW(MAX_PATH, folder), 0u);
    std::set<std::u16string> names;
    for (int i = 0; i < 3; ++i) {
        WCHAR name[MAX_PATH];
        ASSERT_NE(GetTempFileNameW(folder, u"label", 0, name), 0u);
        EXPECT_NE(GetFileAttributesW(name), INVALID_FILE_ATTRIBUTES);
        EXPECT_TRUE(std::u16string(name).starts_with(std::u16string(folder) + u"lab"));
        names.insert(name);
    }
    EXPECT_EQ(names.size(), 3u);
    WCHAR name[MAX_PATH];
    EXPECT_EQ(GetTempFileNameW(u"C:\\none", u"x", 0x1AB, name), 0x1ABu);
    EXPECT_EQ(std::u16string(name), u"C:\\none\\x1AB.TMP");
    EXPECT_EQ(ErrorOf(GetTempFileNameW(u"C:\\none", u"x", 0, name)), ERROR_DIRECTORY);
}

class FilesProfile : public HostTest {
protected:
    static std::u16string Get(const char16_t* section, const char16_t* key, DWORD size = 100) {
        WCHAR text[100];
        const DWORD length =
            GetPrivateProfileStringW(section, key, u"none  ", text, size, u"C:\\x.ini");
        return std::u16string(text, length);
    }
};

TEST_F(FilesProfile, ReadsValuesAndLists) {
    WriteFile("x.ini", "; comment\r\n[One]\r\n a = b c \r\nq=\"  x \"\r\nempty=\r\n"
                       ";no=1\r\n\r\n[ two ]\nA=second");
    const struct {
        const char16_t *section, *key;
        DWORD size;
        std::u16string text;
    } cases[] = {
        {u"ONE", u"A", 100, u"b c"},
        {u"one", u"q", 100, u"  x "},
        {u"one", u"empty", 100, u""},
        {u"one", u"missing", 100, u"none"},
        {u"two", u"a", 100, u"second"},
        {u"two", u"a", 4, u"sec"},
        {u"three", u"a", 100, u"none"},
        {nullptr, nullptr, 100, {u"One\0two\0", 8}},
        {u"one", nullptr, 100, {u"a\0q\0empty\0", 10}},
        {u"one", nullptr, 5, {u"a\0q", 3}},
    };
    for (const auto& c : cases) EXPECT_EQ(Get(c.section, c.key, c.size), c.text) << &c - cases;
}

TEST_F(FilesProfile, ChangesOnlyWhatItIsToldTo) {
    WriteFile("x.ini", "; kept\r\n[One]\r\na=1\r\n\r\n[Two]\r\nb=2\r\n");
    const auto write = [](const char16_t* section, const char16_t* key, const char16_t* text) {
        return WritePrivateProfileStringW(section, key, text, u"C:\\x.ini");
    };
    EXPECT_TRUE(write(u"one", u"A", u"10"));
    EXPECT_TRUE(write(u"One", u"new", u"n"));
    EXPECT_TRUE(write(u"Three", u"c", u"3"));
    EXPECT_TRUE(write(u"two", u"b", nullptr));
    EXPECT_EQ(BytesOf(OnDriveC("x.ini")),
              "; kept\r\n[One]\r\nA=10\r\nnew=n\r\n\r\n[Two]\r\n[Three]\r\nc=3\r\n");
    EXPECT_TRUE(write(u"ONE", nullptr, nullptr));
    EXPECT_EQ(Get(nullptr, nullptr), std::u16string(u"Two\0Three\0", 10));
}

TEST_F(FilesProfile, KeepsTheFormOfTheFile) {
    WriteFile("x.ini", std::string("\xFF\xFE[\0S\0]\0\n\0", 10));
    ASSERT_TRUE(WritePrivateProfileStringW(u"S", u"k", u"\u0416", u"C:\\x.ini"));
    EXPECT_EQ(Get(u"s", u"k"), u"\u0416");
    EXPECT_EQ(std::filesystem::file_size(OnDriveC("x.ini")) % 2, 0u);
}

} // namespace
