#include "torture/memory_faults.h"

#include <cstdlib>
#include <new>

namespace {

uint32_t g_point = 0; // 0: none fails
uint32_t g_count = 0;
bool g_from_then = false;
bool g_paused = false;

bool FailsNow() {
    if (g_point == 0 || g_paused) return false;
    ++g_count;
    return g_from_then ? g_count >= g_point : g_count == g_point;
}

} // namespace

void FailAllocation(uint32_t point, bool from_then) {
    g_point = point;
    if (point != 0) g_count = 0;
    g_from_then = from_then;
}

uint32_t AllocationCount() {
    return g_count;
}

NoAllocationFaults::NoAllocationFaults() {
    g_paused = true;
}

NoAllocationFaults::~NoAllocationFaults() {
    g_paused = false;
}

// The linker redirects calls of NAME to __wrap_NAME, and __real_NAME is the original. Shared
// libraries of the program may use the names, so they must not be hidden.
#pragma GCC visibility push(default)
extern "C" {

void* __real_realloc(void* block, size_t size);
void* __wrap_realloc(void* block, size_t size) {
    return FailsNow() ? nullptr : __real_realloc(block, size);
}

void* __real__ZnwmRKSt9nothrow_t(size_t size, const std::nothrow_t& tag);
void* __wrap__ZnwmRKSt9nothrow_t(size_t size, const std::nothrow_t& tag) {
    return FailsNow() ? nullptr : __real__ZnwmRKSt9nothrow_t(size, tag);
}

void* __real__ZnamRKSt9nothrow_t(size_t size, const std::nothrow_t& tag);
void* __wrap__ZnamRKSt9nothrow_t(size_t size, const std::nothrow_t& tag) {
    return FailsNow() ? nullptr : __real__ZnamRKSt9nothrow_t(size, tag);
}

} // extern "C"
#pragma GCC visibility pop
