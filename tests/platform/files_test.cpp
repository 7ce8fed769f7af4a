#include "platform/error_of.h"
#include "support/host_test.h"

#include <windows.h>

#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr char16_t kName[] = u"C:\\file.bin";
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

HANDLE Open(const char16_t* name, DWORD access, DWORD share) {
    return CreateFileW(name, access, share, nullptr, OPEN_EXISTING, 0, nullptr);
}

std::u16string FullPathOf(const char16_t* name) {
    WCHAR path[MAX_PATH] = {};
    const DWORD length = GetFullPathNameW(name, MAX_PATH, path, nullptr);
    return std::u16string(path, length);
}

bool Exists(const std::u16string& name) {
    return GetFileAttributesW(name.c_str()) != INVALID_FILE_ATTRIBUTES;
}

class Files : public HostTest {};

TEST_F(Files, KeepShareModesBetweenProcesses) {
    WriteFile("file.bin", "abc");
    int ends[2];
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
    const pid_t child = fork();
    if (child == 0) {
        const HANDLE file = Open(kName, GENERIC_READ, FILE_SHARE_READ);
        char byte = file != INVALID_HANDLE_VALUE ? 'y' : 'n';
        if (write(ends[1], &byte, 1) != 1) _exit(1);
        _exit(read(ends[1], &byte, 1) == 1 ? 0 : 1);
    }
    char byte = 0;
    ASSERT_EQ(read(ends[0], &byte, 1), 1);
    ASSERT_EQ(byte, 'y');
    EXPECT_EQ(ErrorOf(Open(kName, GENERIC_WRITE, kShareAll)), ERROR_SHARING_VIOLATION);
    EXPECT_FALSE(DeleteFileW(kName));
    const HANDLE reader = Open(kName, GENERIC_READ, FILE_SHARE_READ);
    EXPECT_NE(reader, INVALID_HANDLE_VALUE);
    CloseHandle(reader);
    ASSERT_EQ(write(ends[0], &byte, 1), 1);
    waitpid(child, nullptr, 0);
    EXPECT_TRUE(DeleteFileW(kName)) << "a process that ended holds nothing back";
    for (int fd : ends) close(fd);
}

TEST_F(Files, CountFromTheWorkingFolderWhenTheirPathsAreRelative) {
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

TEST_F(Files, AreFoundInAnyCaseAndTheExactNameFirst) {
    WriteFile("Dir\\File.TXT", "upper");
    WriteFile("dir2\\größe.txt", "");
    EXPECT_TRUE(Exists(u"C:\\dIR\\fILE.txt"));
    EXPECT_TRUE(Exists(u"c:/DIR2/GRÖßE.TXT"));
    EXPECT_FALSE(Exists(u"C:\\dir\\file.tx"));
    const std::string posix = OnDriveC("dir/FILE.txt");
    const std::u16string wide(posix.begin(), posix.end());
    EXPECT_TRUE(Exists(wide) && Exists(u"Z:" + wide));
    WriteFile("Dir\\file.txt", "x");
    ASSERT_TRUE(DeleteFileW(u"C:\\Dir\\file.txt"));
    EXPECT_TRUE(std::filesystem::exists(OnDriveC("Dir\\File.TXT")));
}

using FilesThreads = Files;

TEST_F(FilesThreads, LetEachLastErrorAndEachWriteBeTheirOwn) {
    WriteFile("file.bin", "");
    const HANDLE file = Open(kName, GENERIC_WRITE, 0);
    CRITICAL_SECTION section;
    InitializeCriticalSection(&section);
    int held = 0;
    std::vector<std::thread> threads;
    for (DWORD i = 0; i < 4; ++i)
        threads.emplace_back([&, i] {
            SetLastError(i);
            for (int round = 0; round < 200; ++round) {
                DWORD count = 0;
                ::WriteFile(file, "line", 4, &count, nullptr);
                EnterCriticalSection(&section);
                EnterCriticalSection(&section);
                ++held;
                LeaveCriticalSection(&section);
                LeaveCriticalSection(&section);
            }
            EXPECT_EQ(GetLastError(), i);
        });
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(held, 800);
    EXPECT_EQ(GetFileSize(file, nullptr), 3200u);
    DeleteCriticalSection(&section);
    CloseHandle(file);
}

} // namespace
