// The locks that guard data shared by several threads of one process.
#pragma once

#include <windows.h>

// A lock. The base class locks nothing.
class OSynchronizer {
public:
    virtual ~OSynchronizer() = default;
    virtual void Lock();
    virtual void Unlock();
};

// A critical section of the platform. The thread that holds it may enter again, and leaves as often
// as it entered.
class OCriticalSection : public OSynchronizer {
public:
    OCriticalSection();
    ~OCriticalSection() override;
    OCriticalSection(const OCriticalSection&) = delete;
    OCriticalSection& operator=(const OCriticalSection&) = delete;

    void Lock() override;
    void Unlock() override;

private:
    CRITICAL_SECTION* section_; // null if memory was short; the lock then guards nothing
};

// Holds a synchronizer while it is in scope.
class OSingleLock {
public:
    // Takes `synchronizer` (borrowed, not null) and locks it at once if `lock_now` is set.
    OSingleLock(OSynchronizer* synchronizer, bool lock_now);
    // Unlocks if this holder has it locked.
    ~OSingleLock();
    OSingleLock(const OSingleLock&) = delete;
    OSingleLock& operator=(const OSingleLock&) = delete;

    // Always true.
    bool Lock();
    // False, with nothing done, if this holder does not have it locked.
    bool Unlock();

private:
    OSynchronizer* synchronizer_;
    bool locked_ = false;
};
