// Named mutexes: locked files of the root folder, so that they bind all processes that use it.
#include <windows.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <string>
#include <string_view>
#include <thread>

#include "host/guarded.h"
#include "host/handles.h"
#include "host/root.h"
#include "host/text.h"

namespace win32host {
namespace {

constexpr std::chrono::milliseconds kBetweenLooks{5};

// The lock belongs to the open file: it ends with the handle, and with the process.
class Mutex : public KernelObject {
public:
    explicit Mutex(int fd)
        : fd_(fd) {}
    ~Mutex() override { close(fd_); }

    bool TryLock() {
        if (flock(fd_, LOCK_EX | LOCK_NB) != 0) return false;
        held_ = true;
        return true;
    }
    bool Unlock() { return held_.exchange(false) && flock(fd_, LOCK_UN) == 0; }

private:
    const int fd_;
    std::atomic<bool> held_ = false;
};

// The file of a mutex. A session of its own is nothing that a host has.
std::string FileOf(std::u16string_view name) {
    for (const std::u16string_view space : {u"Global\\", u"Local\\"})
        if (name.substr(0, space.size()) == space) name.remove_prefix(space.size());
    std::string file = Root() + "/mutexes";
    mkdir(file.c_str(), 0777);
    file += '/';
    for (const char c : Utf8(name)) file += c == '/' || c == '.' ? '_' : c;
    return file;
}

} // namespace
} // namespace win32host

extern "C" HANDLE WINAPI CreateMutexW(LPSECURITY_ATTRIBUTES, BOOL owned, LPCWSTR name) {
    using namespace win32host;
    return Guarded(HANDLE{}, [&]() -> HANDLE {
        if (!name || !*name || owned) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return nullptr;
        }
        const int fd = open(FileOf(name).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
        if (fd < 0) {
            SetLastError(ERROR_ACCESS_DENIED);
            return nullptr;
        }
        return NewHandle(std::make_shared<Mutex>(fd));
    });
}

extern "C" DWORD WINAPI WaitForSingleObject(HANDLE object, DWORD milliseconds) {
    using namespace win32host;
    const auto mutex = Find<Mutex>(object);
    if (!mutex) return WAIT_FAILED;
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (!mutex->TryLock()) {
        if (milliseconds != INFINITE && std::chrono::steady_clock::now() >= end)
            return WAIT_TIMEOUT;
        std::this_thread::sleep_for(kBetweenLooks);
    }
    return WAIT_OBJECT_0;
}

extern "C" BOOL WINAPI ReleaseMutex(HANDLE object) {
    using namespace win32host;
    const auto mutex = Find<Mutex>(object);
    return mutex && (mutex->Unlock() || Fail(ERROR_NOT_OWNER));
}
