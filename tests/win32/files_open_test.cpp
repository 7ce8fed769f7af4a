#include "platform/error_of.h"
#include "support/host_test.h"
#include "support/wide.h"
#include "support/wine.h"

#include <windows.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

constexpr WCHAR kName[] = TEXT("C:\\file.bin");
constexpr DWORD kReadWrite = GENERIC_READ | GENERIC_WRITE;
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

HANDLE Open(DWORD access, DWORD share, DWORD disposition) {
    return CreateFileW(kName, access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

class FilesOpen : public HostTest {
protected:
    std::string Contents() const { return BytesOf(OnDriveC("file.bin")); }
};

TEST_F(FilesOpen, FollowsTheDisposition) {
    const struct {
        DWORD disposition;
        bool present, opens;
        DWORD error;
        const char* contents;
    } cases[] = {
        {CREATE_NEW, true, false, ERROR_FILE_EXISTS, "old"},
        {CREATE_ALWAYS, false, true, NO_ERROR, ""},
        {CREATE_ALWAYS, true, true, ERROR_ALREADY_EXISTS, ""},
        {OPEN_EXISTING, false, false, ERROR_FILE_NOT_FOUND, ""},
        {OPEN_EXISTING, true, true, NO_ERROR, "old"},
        {OPEN_ALWAYS, false, true, NO_ERROR, ""},
        {OPEN_ALWAYS, true, true, ERROR_ALREADY_EXISTS, "old"},
        {TRUNCATE_EXISTING, false, false, ERROR_FILE_NOT_FOUND, ""},
        {TRUNCATE_EXISTING, true, true, NO_ERROR, ""},
        {6, true, false, ERROR_INVALID_PARAMETER, "old"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        std::filesystem::remove(OnDriveC("file.bin"));
        if (c.present) WriteFile("file.bin", "old");
        const HANDLE file = Open(kReadWrite, 0, c.disposition);
        EXPECT_EQ(GetLastError(), c.error);
        EXPECT_EQ(file != INVALID_HANDLE_VALUE, c.opens);
        if (c.opens) CloseHandle(file);
        EXPECT_EQ(Contents(), c.contents);
    }
}

TEST_F(FilesOpen, ReadsAndWritesAtTheFilePointer) {
    const HANDLE file = Open(kReadWrite, 0, CREATE_NEW);
    DWORD count = 0;
    ASSERT_TRUE(::WriteFile(file, "0123456789", 10, &count, nullptr));
    EXPECT_EQ(count, 10u);
    EXPECT_EQ(SetFilePointer(file, -4, nullptr, FILE_END), 6u);
    char text[8] = {};
    ASSERT_TRUE(ReadFile(file, text, 8, &count, nullptr));
    EXPECT_EQ(std::string(text, count), "6789");
    EXPECT_TRUE(ReadFile(file, text, 8, &count, nullptr));
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(SetFilePointer(file, -7, nullptr, FILE_CURRENT), 3u);
    EXPECT_TRUE(SetEndOfFile(file));
    EXPECT_EQ(GetFileSize(file, nullptr), 3u);
    EXPECT_EQ(ErrorOf(SetFilePointer(file, -1, nullptr, FILE_BEGIN) != INVALID_SET_FILE_POINTER),
              ERROR_NEGATIVE_SEEK);
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_EQ(Contents(), "012");
}

TEST_F(FilesOpen, GrantsOnlyTheAccessAskedFor) {
    WriteFile("file.bin", "abc");
    char text[4];
    DWORD count = 7;
    HANDLE file = Open(GENERIC_READ, kShareAll, OPEN_EXISTING);
    EXPECT_EQ(ErrorOf(::WriteFile(file, "x", 1, &count, nullptr)), ERROR_ACCESS_DENIED);
    EXPECT_EQ(count, 0u);
    EXPECT_FALSE(SetEndOfFile(file));
    CloseHandle(file);
    file = Open(GENERIC_WRITE, kShareAll, OPEN_EXISTING);
    EXPECT_EQ(ErrorOf(ReadFile(file, text, 3, &count, nullptr)), ERROR_ACCESS_DENIED);
    CloseHandle(file);

    if (RunsUnderWine()) return; // gives more rights to a superuser
    ASSERT_TRUE(SetFileAttributesW(kName, FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(ErrorOf(Open(GENERIC_WRITE, kShareAll, OPEN_EXISTING)), ERROR_ACCESS_DENIED);
    EXPECT_FALSE(DeleteFileW(kName));
    EXPECT_EQ(
        ErrorOf(CreateFileW(TEXT("C:\\"), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr)),
        ERROR_ACCESS_DENIED);
}

TEST_F(FilesOpen, KeepsShareModesBetweenTwoHandles) {
    WriteFile("file.bin", "abc");
    const struct {
        DWORD access, share, other_access, other_share;
        bool goes;
    } cases[] = {
        {GENERIC_READ, FILE_SHARE_READ, GENERIC_READ, FILE_SHARE_READ, true},
        {GENERIC_READ, FILE_SHARE_READ, GENERIC_WRITE, kShareAll, false},
        {GENERIC_READ, 0, GENERIC_READ, kShareAll, false},
        {GENERIC_WRITE, FILE_SHARE_READ, GENERIC_READ, FILE_SHARE_READ, false},
        {GENERIC_WRITE, FILE_SHARE_READ, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, true},
        {GENERIC_READ, FILE_SHARE_READ, DELETE, kShareAll, false},
        {GENERIC_READ, 0, 0, 0, true}, // attributes only
    };
    for (const auto& c : cases) {
        const HANDLE first = Open(c.access, c.share, OPEN_EXISTING);
        ASSERT_NE(first, INVALID_HANDLE_VALUE);
        const HANDLE second = Open(c.other_access, c.other_share, OPEN_EXISTING);
        EXPECT_EQ(ErrorOf(second), c.goes ? 0 : ERROR_SHARING_VIOLATION) << &c - cases;
        if (second != INVALID_HANDLE_VALUE) CloseHandle(second);
        CloseHandle(first);
    }
}

} // namespace
