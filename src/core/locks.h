// The locks that guard what several threads of one process reach at once.
#pragma once

#include <windows.h>

// A lock. The base locks nothing.
class OSynchronizer {
public:
    virtual ~OSynchronizer() = default;
    virtual void Lock();
    virtual void Unlock();
};

// A critical section of the platform: the thread that holds it may enter again and leaves as often
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
    CRITICAL_SECTION* section_; // null when memory was short: the lock then guards nothing
};

// Holds a synchronizer for the length of a scope.
class OSingleLock {
public:
    // Remembers `synchronizer` (borrowed, not null) and locks it at once when `lock_now` is set.
    OSingleLock(OSynchronizer* synchronizer, bool lock_now);
    // Unlocks when this holder has it locked.
    ~OSingleLock();
    OSingleLock(const OSingleLock&) = delete;
    OSingleLock& operator=(const OSingleLock&) = delete;

    // Always true.
    bool Lock();
    // False, and nothing is done, when this holder does not have it locked.
    bool Unlock();

private:
    OSynchronizer* synchronizer_;
    bool locked_ = false;
};
