#include "core/obuffer.h"

#include <cstdlib>

#include "core/memory.h"

void* MemoryHeap::ReAlloc(void* block, size_t size) {
    void* moved = std::realloc(block, size);
    if (!moved) NoteAllocationFailure();
    return moved;
}

void MemoryHeap::Free(void* block) {
    std::free(block);
}

void MemoryHeap::Copy(void* destination, const void* source, size_t size) {
    __memcpy(destination, source, size);
}
