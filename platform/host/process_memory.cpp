// Global, local and heap memory: blocks of the C library with a header in front.
#include <windows.h>

#include <objbase.h>

#include <cstdlib>
#include <cstring>
#include <mutex>

namespace {

struct alignas(std::max_align_t) Header {
    SIZE_T size;
    bool moveable;
    UINT locks;
};

Header* HeaderOf(void* memory) {
    return static_cast<Header*>(memory) - 1;
}

std::mutex g_locks; // guards every block's lock count

void* Allocate(SIZE_T size, bool zero, bool moveable) {
    if (size > SIZE_MAX - sizeof(Header)) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    void* block = zero ? std::calloc(1, sizeof(Header) + size) : std::malloc(sizeof(Header) + size);
    if (!block) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    Header* header = static_cast<Header*>(block);
    *header = Header{size, moveable, 0};
    return header + 1;
}

void Release(void* memory) {
    if (memory) std::free(HeaderOf(memory));
}

} // namespace

extern "C" {

HGLOBAL WINAPI GlobalAlloc(UINT flags, SIZE_T size) {
    return Allocate(size, (flags & GMEM_ZEROINIT) != 0, (flags & GMEM_MOVEABLE) != 0);
}

LPVOID WINAPI GlobalLock(HGLOBAL memory) {
    if (!memory) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    std::lock_guard guard(g_locks);
    if (HeaderOf(memory)->moveable) ++HeaderOf(memory)->locks;
    return memory;
}

BOOL WINAPI GlobalUnlock(HGLOBAL memory) {
    if (!memory) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    Header* header = HeaderOf(memory);
    if (!header->moveable) return TRUE;
    std::lock_guard guard(g_locks);
    if (header->locks == 0) {
        SetLastError(ERROR_NOT_LOCKED);
        return FALSE;
    }
    if (--header->locks > 0) return TRUE;
    SetLastError(NO_ERROR);
    return FALSE;
}

SIZE_T WINAPI GlobalSize(HGLOBAL memory) {
    if (!memory) {
        SetLastError(ERROR_INVALID_HANDLE);
        return 0;
    }
    return HeaderOf(memory)->size;
}

HGLOBAL WINAPI GlobalFree(HGLOBAL memory) {
    Release(memory);
    return nullptr;
}

HLOCAL WINAPI LocalAlloc(UINT flags, SIZE_T size) {
    return Allocate(size, (flags & LMEM_ZEROINIT) != 0, (flags & LMEM_MOVEABLE) != 0);
}

HLOCAL WINAPI LocalFree(HLOCAL memory) {
    Release(memory);
    return nullptr;
}

HANDLE WINAPI GetProcessHeap() {
    static int heap;
    return &heap;
}

LPVOID WINAPI HeapAlloc(HANDLE, DWORD flags, SIZE_T size) {
    return Allocate(size, (flags & HEAP_ZERO_MEMORY) != 0, false);
}

BOOL WINAPI HeapFree(HANDLE, DWORD, LPVOID memory) {
    Release(memory);
    return TRUE;
}

LPVOID WINAPI CoTaskMemAlloc(SIZE_T size) {
    return Allocate(size, false, false);
}

void WINAPI CoTaskMemFree(LPVOID memory) {
    Release(memory);
}

} // extern "C"
