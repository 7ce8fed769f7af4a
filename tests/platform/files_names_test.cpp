#include "support/host_test.h"

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace {

class FilesNames : public HostTest {
protected:
    FilesNames() { std::filesystem::create_directories(OnDriveC("dir")); }

    std::string Contents(const std::string& name) const {
        std::ifstream file(OnDriveC(name), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }
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
    for (const auto& c : cases) {
        EXPECT_EQ(Names(c.pattern), c.names) << std::filesystem::path(c.pattern);
    }
    WIN32_FIND_DATAW data;
    const HANDLE search = FindFirstFileW(TEXT("C:\\dir\\c.dat"), &data);
    ASSERT_NE(search, INVALID_HANDLE_VALUE);
    EXPECT_EQ(data.nFileSizeLow, 4u);
    EXPECT_EQ(data.dwFileAttributes, DWORD{FILE_ATTRIBUTE_NORMAL});
    FindClose(search);
    EXPECT_EQ(FindFirstFileW(TEXT("C:\\dir\\zz*"), &data), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_FILE_NOT_FOUND});
    EXPECT_EQ(FindFirstFileW(TEXT("C:\\none\\*"), &data), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_PATH_NOT_FOUND});
}

TEST_F(FilesNames, AreMovedAndCopied) {
    WriteFile("a", "aaa");
    WriteFile("b", "bbb");
    EXPECT_FALSE(MoveFileExW(TEXT("C:\\a"), TEXT("C:\\B"), 0));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ALREADY_EXISTS});
    EXPECT_FALSE(CopyFileW(TEXT("C:\\a"), TEXT("C:\\b"), TRUE));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_FILE_EXISTS});
    ASSERT_TRUE(CopyFileW(TEXT("C:\\a"), TEXT("C:\\b"), FALSE));
    EXPECT_EQ(Contents("b"), "aaa");
    EXPECT_FALSE(CopyFileW(TEXT("C:\\a"), TEXT("C:\\none\\b"), FALSE));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_PATH_NOT_FOUND});
    EXPECT_FALSE(CopyFileW(TEXT("C:\\none"), TEXT("C:\\b"), FALSE));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_FILE_NOT_FOUND});
    WriteFile("b", "bbb");
    ASSERT_TRUE(MoveFileExW(TEXT("C:\\b"), TEXT("C:\\a"), MOVEFILE_REPLACE_EXISTING));
    EXPECT_EQ(Contents("a"), "bbb");
    ASSERT_TRUE(MoveFileExW(TEXT("C:\\a"), TEXT("C:\\A"), 0));
    EXPECT_TRUE(std::filesystem::exists(OnDriveC("A")));
    EXPECT_FALSE(std::filesystem::exists(OnDriveC("a")));
    EXPECT_FALSE(MoveFileExW(TEXT("C:\\A"), TEXT("C:\\dir"), MOVEFILE_REPLACE_EXISTING));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});

    const HANDLE open = CreateFileW(TEXT("C:\\A"), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    EXPECT_FALSE(MoveFileExW(TEXT("C:\\A"), TEXT("C:\\moved"), 0));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_SHARING_VIOLATION});
    CloseHandle(open);
}

TEST_F(FilesNames, MakeAndRemoveFolders) {
    EXPECT_TRUE(CreateDirectoryW(TEXT("C:\\new"), nullptr));
    EXPECT_EQ(GetFileAttributesW(TEXT("C:\\NEW\\")), DWORD{FILE_ATTRIBUTE_DIRECTORY});
    EXPECT_FALSE(CreateDirectoryW(TEXT("C:\\NEW"), nullptr));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ALREADY_EXISTS});
    EXPECT_FALSE(CreateDirectoryW(TEXT("C:\\x\\y"), nullptr));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_PATH_NOT_FOUND});
    WriteFile("new\\file", "");
    EXPECT_FALSE(RemoveDirectoryW(TEXT("C:\\new")));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_DIR_NOT_EMPTY});
    EXPECT_FALSE(RemoveDirectoryW(TEXT("C:\\new\\file")));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_DIRECTORY});
    EXPECT_FALSE(DeleteFileW(TEXT("C:\\new")));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
    EXPECT_TRUE(DeleteFileW(TEXT("C:\\new\\file")));
    EXPECT_TRUE(RemoveDirectoryW(TEXT("C:\\new")));
}

TEST_F(FilesNames, ForTemporaryFilesAreFree) {
    WCHAR folder[MAX_PATH];
    ASSERT_GT(GetTempPathW(MAX_PATH, folder), 0u);
    std::set<std::u16string> names;
    for (int i = 0; i < 3; ++i) {
        WCHAR name[MAX_PATH];
        ASSERT_NE(GetTempFileNameW(folder, TEXT("label"), 0, name), 0u);
        EXPECT_NE(GetFileAttributesW(name), INVALID_FILE_ATTRIBUTES);
        EXPECT_TRUE(std::u16string(name).starts_with(std::u16string(folder) + u"lab"));
        names.insert(name);
    }
    EXPECT_EQ(names.size(), 3u);
    WCHAR name[MAX_PATH];
    EXPECT_EQ(GetTempFileNameW(TEXT("C:\\none"), TEXT("x"), 0x1AB, name), 0x1ABu);
    EXPECT_EQ(std::u16string(name), u"C:\\none\\x1AB.TMP");
    EXPECT_EQ(GetTempFileNameW(TEXT("C:\\none"), TEXT("x"), 0, name), 0u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_DIRECTORY});
}

class FilesProfile : public HostTest {
protected:
    static std::u16string Get(const char16_t* section, const char16_t* key, DWORD size = 100,
                              const char16_t* fallback = u"none") {
        WCHAR text[100];
        const DWORD length =
            GetPrivateProfileStringW(section, key, fallback, text, size, TEXT("C:\\x.ini"));
        return std::u16string(text, length);
    }
};

TEST_F(FilesProfile, ReadsValuesAndLists) {
    WriteFile("x.ini", "; comment\r\n[One]\r\n a = b c \r\nq=\"  x \"\r\nempty=\r\n"
                       ";no=1\r\n\r\n[ two ]\nA=second");
    EXPECT_EQ(Get(u"ONE", u"A"), u"b c");
    EXPECT_EQ(Get(u"one", u"q"), u"  x ");
    EXPECT_EQ(Get(u"one", u"empty"), u"");
    EXPECT_EQ(Get(u"two", u"a"), u"second");
    EXPECT_EQ(Get(u"one", u"missing", 100, u"given  "), u"given");
    EXPECT_EQ(Get(u"three", u"a"), u"none");
    EXPECT_EQ(Get(u"two", u"a", 4), u"sec");
    EXPECT_EQ(Get(nullptr, nullptr), std::u16string(u"One\0two\0", 8));
    EXPECT_EQ(Get(u"one", nullptr), std::u16string(u"a\0q\0empty\0", 10));
    EXPECT_EQ(Get(u"one", nullptr, 5), std::u16string(u"a\0q", 3));
}

TEST_F(FilesProfile, ChangesOnlyWhatItIsToldTo) {
    WriteFile("x.ini", "; kept\r\n[One]\r\na=1\r\n\r\n[Two]\r\nb=2\r\n");
    const auto write = [](const char16_t* section, const char16_t* key, const char16_t* text) {
        return WritePrivateProfileStringW(section, key, text, TEXT("C:\\x.ini"));
    };
    EXPECT_TRUE(write(u"one", u"A", u"10"));
    EXPECT_TRUE(write(u"One", u"new", u"n"));
    EXPECT_TRUE(write(u"Three", u"c", u"3"));
    EXPECT_TRUE(write(u"two", u"b", nullptr));
    std::ifstream file(OnDriveC("x.ini"), std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}),
              "; kept\r\n[One]\r\nA=10\r\nnew=n\r\n\r\n[Two]\r\n[Three]\r\nc=3\r\n");
    EXPECT_TRUE(write(u"ONE", nullptr, nullptr));
    EXPECT_EQ(Get(nullptr, nullptr), std::u16string(u"Two\0Three\0", 10));
}

TEST_F(FilesProfile, KeepsTheFormOfTheFile) {
    WriteFile("x.ini", std::string("\xFF\xFE[\0S\0]\0\n\0", 10));
    ASSERT_TRUE(WritePrivateProfileStringW(TEXT("S"), TEXT("k"), u"\u0416", TEXT("C:\\x.ini")));
    EXPECT_EQ(Get(u"s", u"k"), u"\u0416");
    EXPECT_EQ(std::filesystem::file_size(OnDriveC("x.ini")) % 2, 0u);
}

} // namespace
