// Heap blocks that know their size, and memory functions that tolerate null pointers.
//
// A block from ___malloc, ___calloc, ___realloc or memdup has its size in the 32-bit word directly
// before it and is aligned for any type. It must be released by ___free, never by `free` or
// `delete`. A block holds at most 4 GiB. Allocation fails with null and never throws.
#pragma once

#include <cstddef>
#include <cstdint>

// A new block of `size` bytes, not initialised, or null on failure. A size of 0 gives a block too.
void* ___malloc(size_t size);

// A new block of `count` times `size` zero bytes. Null on failure and if the product is too large.
void* ___calloc(size_t count, size_t size);

// Resizes a block, which may move. The contents that fit are kept, and new bytes are not
// initialised. A null block is allocated. On failure, returns null and leaves the block unchanged.
void* ___realloc(void* block, size_t size);

// Releases a block; null is ignored.
void ___free(void* block);

// The size of a block in bytes, or 0 for null.
size_t ___msize(const void* block);

// A new block with a copy of `size` bytes. A size of 0 copies all of a block of this family. Null
// for null and on failure.
void* memdup(const void* data, size_t size);

// Notices allocations for texts, buffers, arrays and blocks that fail on this thread after it was
// made. Nothing else shows them: a text is shorter, a list lacks an element. Code whose result must
// not be stored by half keeps a watch. A watch may only be asked on the thread that made it.
class AllocationWatch {
public:
    AllocationWatch();
    // Whether an allocation has failed since then.
    [[nodiscard]] bool Failed() const;

private:
    uint32_t failures_; // of this thread, when the watch was made
};

// Tells the watches of this thread about a failed allocation that was made in another way.
void NoteAllocationFailure();

// "new (kCounted) T" is null if memory is short, and the watches notice that.
struct CountedAllocation {};
inline constexpr CountedAllocation kCounted;
void* operator new(size_t size, CountedAllocation) noexcept;
void* operator new[](size_t size, CountedAllocation) noexcept;
void operator delete(void* block, CountedAllocation) noexcept;
void operator delete[](void* block, CountedAllocation) noexcept;

// The functions below do nothing if a pointer is null or the size is 0.

// Copies byte by byte from the first to the last, so a destination that begins inside the source
// repeats the bytes before it. Returns the destination.
void* __memcpy(void* destination, const void* source, size_t size);

// Copies between ranges that may overlap. Returns the destination.
void* __memmove(void* destination, const void* source, size_t size);

// Compares as unsigned bytes: -1, 0 or 1. Null pointers compare equal to everything.
int __memcmp(const void* a, const void* b, size_t size);

// Fills with the low byte of `value`. Returns the destination.
void* __memset(void* destination, int value, size_t size);
