// Named mutexes.
#include <thread>

#include "support/host_test.h"

namespace {

using Mutexes = HostTest;

// What another thread gets, which does not wait.
DWORD Elsewhere(const WCHAR* name) {
    DWORD answer = WAIT_FAILED;
    std::thread([&] {
        const HANDLE mutex = CreateMutexW(nullptr, FALSE, name);
        answer = WaitForSingleObject(mutex, 0);
        if (answer == WAIT_OBJECT_0) ReleaseMutex(mutex);
        CloseHandle(mutex);
    }).join();
    return answer;
}

} // namespace

TEST_F(Mutexes, HaveOneOwnerUntilItLetsGo) {
    const WCHAR* const name = TEXT("Local\\One at a time");
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, name);
    ASSERT_TRUE(mutex);
    EXPECT_EQ(Elsewhere(name), WAIT_OBJECT_0);
    ASSERT_EQ(WaitForSingleObject(mutex, INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(Elsewhere(name), DWORD{WAIT_TIMEOUT});
    EXPECT_EQ(Elsewhere(TEXT("Local\\Another")), WAIT_OBJECT_0);
    EXPECT_TRUE(ReleaseMutex(mutex));
    EXPECT_EQ(Elsewhere(name), WAIT_OBJECT_0);
    EXPECT_FALSE(ReleaseMutex(mutex));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_NOT_OWNER});
    EXPECT_TRUE(CloseHandle(mutex));
}
