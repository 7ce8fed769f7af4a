#include <windows.h>

#include <pthread.h>

#include <new>

namespace {

static_assert(sizeof(pthread_mutex_t) <= sizeof(CRITICAL_SECTION));
static_assert(alignof(pthread_mutex_t) <= alignof(CRITICAL_SECTION));

pthread_mutex_t* MutexOf(LPCRITICAL_SECTION section) {
    return std::launder(reinterpret_cast<pthread_mutex_t*>(section->state));
}

} // namespace

extern "C" {

void WINAPI InitializeCriticalSection(LPCRITICAL_SECTION section) {
    pthread_mutex_t* mutex = new (section->state) pthread_mutex_t;
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
    pthread_mutex_init(mutex, &attributes);
    pthread_mutexattr_destroy(&attributes);
}

void WINAPI EnterCriticalSection(LPCRITICAL_SECTION section) {
    pthread_mutex_lock(MutexOf(section));
}

BOOL WINAPI TryEnterCriticalSection(LPCRITICAL_SECTION section) {
    return pthread_mutex_trylock(MutexOf(section)) == 0;
}

void WINAPI LeaveCriticalSection(LPCRITICAL_SECTION section) {
    pthread_mutex_unlock(MutexOf(section));
}

void WINAPI DeleteCriticalSection(LPCRITICAL_SECTION section) {
    pthread_mutex_destroy(MutexOf(section));
}

} // extern "C"
