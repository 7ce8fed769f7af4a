// Locks that all processes of the machine share.
#pragma once

#include <windows.h>

// Holds a lock of the whole machine while it is in scope. All threads and processes, of whatever
// account, take turns. A lock whose holder has died is free.
class MachineLock {
public:
    // Waits for the lock with this name (without "\"), for so many milliseconds at most.
    MachineLock(const WCHAR* name, DWORD longest_wait);
    ~MachineLock();
    MachineLock(const MachineLock&) = delete;
    MachineLock& operator=(const MachineLock&) = delete;

    // False if the lock never came. Then nothing that it guards may be touched.
    [[nodiscard]] bool IsHeld() const { return held_; }

private:
    HANDLE mutex_;
    bool held_ = false;
};
