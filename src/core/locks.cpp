#include "core/locks.h"

#include "core/memory.h"

void OSynchronizer::Lock() {}

void OSynchronizer::Unlock() {}

OCriticalSection::OCriticalSection()
    : section_(static_cast<CRITICAL_SECTION*>(___malloc(sizeof(CRITICAL_SECTION)))) {
    if (section_) InitializeCriticalSection(section_);
}

OCriticalSection::~OCriticalSection() {
    if (!section_) return;
    DeleteCriticalSection(section_);
    ___free(section_);
}

void OCriticalSection::Lock() {
    if (section_) EnterCriticalSection(section_);
}

void OCriticalSection::Unlock() {
    if (section_) LeaveCriticalSection(section_);
}

OSingleLock::OSingleLock(OSynchronizer* synchronizer, bool lock_now)
    : synchronizer_(synchronizer) {
    if (lock_now) Lock();
}

OSingleLock::~OSingleLock() {
    Unlock();
}

bool OSingleLock::Lock() {
    locked_ = true;
    synchronizer_->Lock();
    return true;
}

bool OSingleLock::Unlock() {
    if (!locked_) return false;
    synchronizer_->Unlock();
    locked_ = false;
    return true;
}
