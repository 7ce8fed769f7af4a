#include "core/machine_lock.h"

#include <string>

#include "core/open_to_all.h"

namespace {

HANDLE OpenLock(const WCHAR* name) {
    OpenToAll security;
    const std::basic_string<WCHAR> of_machine = std::basic_string<WCHAR>(TEXT("Global\\")) + name;
    const HANDLE mutex = CreateMutexW(security.Get(), FALSE, of_machine.c_str());
    if (mutex || GetLastError() != ERROR_PATH_NOT_FOUND) return mutex;
    // Systems without sessions do not know such a name.
    return CreateMutexW(security.Get(), FALSE, name);
}

} // namespace

MachineLock::MachineLock(const WCHAR* name, DWORD longest_wait)
    : mutex_(OpenLock(name)) {
    if (!mutex_) return;
    const DWORD answer = WaitForSingleObject(mutex_, longest_wait);
    held_ = answer == WAIT_OBJECT_0 || answer == WAIT_ABANDONED;
}

MachineLock::~MachineLock() {
    if (held_) ReleaseMutex(mutex_);
    if (mutex_) CloseHandle(mutex_);
}
