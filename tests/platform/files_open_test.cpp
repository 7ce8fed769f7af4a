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
constexpr DWORD kReadWrite = GENERIC_READ | GENERIC_WRITE;
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

HANDLE Open(DWORD access, DWORD share, DWORD disposition) {
    return CreateFileW(kName, access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

class FilesOpen : public HostTest {
protected:
    std::string Contents() const { return BytesOf(OnDriveC("file.bin")); }
};

TEST_F(FilesOpen, KeepsShareModesBetweenProcesses) {
    WriteFile("file.bin", "abc");
    int ends[2];
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
    const pid_t child = fork();
    if (child == 0) {
        const HANDLE file = Open(GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
        char byte = file != INVALID_HANDLE_VALUE ? 'y' : 'n';
        if (write(ends[1], &byte, 1) != 1) _exit(1);
        _exit(read(ends[1], &byte, 1) == 1 ? 0 : 1);
    }
    char byte = 0;
    ASSERT_EQ(read(ends[0], &byte, 1), 1);
    ASSERT_EQ(byte, 'y');
    EXPECT_EQ(ErrorOf(Open(GENERIC_WRITE, kShareAll, OPEN_EXISTING)), ERROR_SHARING_VIOLATION);
    EXPECT_EQ(Open(GENERIC_READ, 0, TRUNCATE_EXISTING), INVALID_HANDLE_VALUE);
    EXPECT_FALSE(DeleteFileW(kName));
    const HANDLE reader = Open(GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    EXPECT_NE(reader, INVALID_HANDLE_VALUE);
    CloseHandle(reader);
    ASSERT_EQ(write(ends[0], &byte, 1), 1);
    waitpid(child, nullptr, 0);
    EXPECT_TRUE(DeleteFileW(kName)) << "a process that ended holds nothing back";
    for (int fd : ends) close(fd);
}

TEST(FilesOpenThreads, LetEachLastErrorAndEachWriteBeTheirOwn) {
    std::string name = "/tmp/files-open-XXXXXX";
    close(mkstemp(name.data()));
    const HANDLE file = CreateFileW(std::u16string(name.begin(), name.end()).c_str(), kReadWrite, 0,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
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
    unlink(name.c_str());
}

} // namespace
