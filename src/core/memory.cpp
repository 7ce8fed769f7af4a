#include "core/memory.h"

#include <windows.h>

#include <processthreadsapi.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <functional>
#include <new>

namespace {

// Room before a block. Its size is in the last four bytes; the rest keeps the alignment.
constexpr size_t kHeader = alignof(std::max_align_t);
constexpr size_t kLargestBlock = UINT32_MAX - kHeader;
static_assert(kHeader >= sizeof(uint32_t));

// How many allocations have failed on this thread. The number itself is the value of the thread, so
// nothing has to be allocated for it, which thread_local does on some systems.
class FailureCount {
public:
    FailureCount()
        : slot_(TlsAlloc()) {}
    ~FailureCount() {
        if (slot_ != TLS_OUT_OF_INDEXES) TlsFree(slot_);
        slot_ = TLS_OUT_OF_INDEXES;
    }

    uint32_t Get() const {
        if (slot_ == TLS_OUT_OF_INDEXES) return of_all_threads_;
        const DWORD error = GetLastError(); // which TlsGetValue clears
        const void* value = TlsGetValue(slot_);
        SetLastError(error);
        return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(value));
    }
    void Increase() {
        if (slot_ == TLS_OUT_OF_INDEXES)
            ++of_all_threads_;
        else
            TlsSetValue(slot_, reinterpret_cast<void*>(uintptr_t{Get() + 1}));
    }

private:
    DWORD slot_;
    std::atomic<uint32_t> of_all_threads_{0}; // in a process that has no slot left
};

FailureCount g_failures;

char* SizeWord(const void* block) {
    return static_cast<char*>(const_cast<void*>(block)) - sizeof(uint32_t);
}

} // namespace

AllocationWatch::AllocationWatch()
    : failures_(g_failures.Get()) {}

bool AllocationWatch::Failed() const {
    return g_failures.Get() != failures_;
}

void NoteAllocationFailure() {
    g_failures.Increase();
}

void* operator new(size_t size, CountedAllocation) noexcept {
    void* block = ::operator new(size, std::nothrow);
    if (!block) NoteAllocationFailure();
    return block;
}

void* operator new[](size_t size, CountedAllocation) noexcept {
    void* block = ::operator new[](size, std::nothrow);
    if (!block) NoteAllocationFailure();
    return block;
}

void operator delete(void* block, CountedAllocation) noexcept {
    ::operator delete(block);
}

void operator delete[](void* block, CountedAllocation) noexcept {
    ::operator delete[](block);
}

void* ___malloc(size_t size) {
    char* whole = size <= kLargestBlock
                      ? static_cast<char*>(::operator new(kHeader + size, std::nothrow))
                      : nullptr;
    if (!whole) {
        NoteAllocationFailure();
        return nullptr;
    }
    void* block = whole + kHeader;
    const uint32_t word = static_cast<uint32_t>(size);
    std::memcpy(SizeWord(block), &word, sizeof(word));
    return block;
}

void* ___calloc(size_t count, size_t size) {
    if (size != 0 && count > kLargestBlock / size) {
        NoteAllocationFailure();
        return nullptr;
    }
    return __memset(___malloc(count * size), 0, count * size);
}

void* ___realloc(void* block, size_t size) {
    if (!block) return ___malloc(size);
    const size_t old_size = ___msize(block);
    if (size == old_size) return block;
    void* moved = ___malloc(size);
    if (!moved) return nullptr;
    std::memcpy(moved, block, std::min(old_size, size));
    ___free(block);
    return moved;
}

void ___free(void* block) {
    if (block) ::operator delete(static_cast<char*>(block) - kHeader);
}

size_t ___msize(const void* block) {
    if (!block) return 0;
    uint32_t word;
    std::memcpy(&word, SizeWord(block), sizeof(word));
    return word;
}

void* memdup(const void* data, size_t size) {
    if (!data) return nullptr;
    if (size == 0) size = ___msize(data);
    void* copy = ___malloc(size);
    if (copy) std::memcpy(copy, data, size);
    return copy;
}

void* __memcpy(void* destination, const void* source, size_t size) {
    if (!destination || !source) return destination;
    char* to = static_cast<char*>(destination);
    const char* from = static_cast<const char*>(source);
    const std::less<const char*> before;
    if (before(from, to) && before(to, from + size))
        for (size_t i = 0; i < size; ++i) to[i] = from[i];
    else
        std::memmove(to, from, size);
    return destination;
}

void* __memmove(void* destination, const void* source, size_t size) {
    if (destination && source) std::memmove(destination, source, size);
    return destination;
}

int __memcmp(const void* a, const void* b, size_t size) {
    if (!a || !b) return 0;
    const int order = std::memcmp(a, b, size);
    return (order > 0) - (order < 0);
}

void* __memset(void* destination, int value, size_t size) {
    if (destination) std::memset(destination, value, size);
    return destination;
}
