// TlsAlloc and its relatives.
#include <processthreadsapi.h>

#include <atomic>
#include <cstdint>

namespace {

constexpr DWORD kIndexes = 64;

struct Value {
    void* value;
    uint32_t use; // of the index when it was set
};

// Counts the uses of each index: odd while it is in use. A value of an earlier use is none.
std::atomic<uint32_t> g_uses[kIndexes];
thread_local Value t_values[kIndexes];

bool InUse(uint32_t use) {
    return use % 2 == 1;
}

// The use of an index; 0, with the last error set, if it is not in use.
uint32_t UseOf(DWORD index) {
    const uint32_t use = index < kIndexes ? g_uses[index].load() : 0;
    if (InUse(use)) return use;
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
}

} // namespace

extern "C" {

DWORD WINAPI TlsAlloc(void) {
    for (DWORD index = 0; index < kIndexes; ++index) {
        uint32_t use = g_uses[index].load();
        if (!InUse(use) && g_uses[index].compare_exchange_strong(use, use + 1)) return index;
    }
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return TLS_OUT_OF_INDEXES;
}

BOOL WINAPI TlsFree(DWORD index) {
    uint32_t use = UseOf(index);
    return use != 0 && g_uses[index].compare_exchange_strong(use, use + 1) ? TRUE : FALSE;
}

LPVOID WINAPI TlsGetValue(DWORD index) {
    const uint32_t use = UseOf(index);
    if (use == 0) return nullptr;
    SetLastError(NO_ERROR); // tells a null value from a failure
    return t_values[index].use == use ? t_values[index].value : nullptr;
}

BOOL WINAPI TlsSetValue(DWORD index, LPVOID value) {
    const uint32_t use = UseOf(index);
    if (use == 0) return FALSE;
    t_values[index] = {value, use};
    return TRUE;
}

} // extern "C"
