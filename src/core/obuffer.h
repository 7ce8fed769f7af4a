// A typed heap block with its count, and the heap it comes from.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

#include "core/memory.h"

// The process heap as buffers use it. Nothing here throws.
class MemoryHeap {
public:
    // The runtime library's realloc: a null block is allocated, and the result may move. Null on
    // failure, with the old block unchanged.
    static void* ReAlloc(void* block, size_t size);

    // The runtime library's free. Null is ignored.
    static void Free(void* block);

    // Copies `size` bytes; nothing for null pointers.
    static void Copy(void* destination, const void* source, size_t size);
};

// A block of elements of the plain type T, for raw bytes and texts. Whether a text in a buffer has
// a terminator is agreed between its users.
template <class T>
class OBuffer {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    OBuffer() = default;
    // A buffer of `count` elements, not initialised. Empty if there is no memory.
    explicit OBuffer(uint32_t count) { static_cast<void>(SetSize(count)); }
    // A copy has a block of its own. It is empty if there is no memory.
    OBuffer(const OBuffer& other) { Assign(other.data_, other.count_); }
    OBuffer(OBuffer&& other) noexcept
        : data_(std::exchange(other.data_, nullptr))
        , count_(std::exchange(other.count_, 0)) {}
    OBuffer& operator=(const OBuffer& other) {
        if (this != &other) Assign(other.data_, other.count_);
        return *this;
    }
    OBuffer& operator=(OBuffer&& other) noexcept {
        std::swap(data_, other.data_);
        std::swap(count_, other.count_);
        return *this;
    }
    ~OBuffer() { MemoryHeap::Free(data_); }

    // Resizes the block to `count` elements. The contents that fit are kept, and new elements are
    // not initialised. False, with the buffer unchanged, if there is no memory.
    [[nodiscard]] bool SetSize(uint32_t count) {
        if (count == count_) return true;
        if (count == 0) {
            Clear();
            return true;
        }
        if (count > SIZE_MAX / sizeof(T)) {
            NoteAllocationFailure();
            return false;
        }
        void* moved = MemoryHeap::ReAlloc(data_, count * sizeof(T));
        if (!moved) return false;
        data_ = static_cast<T*>(moved);
        count_ = count;
        return true;
    }

    // Frees the block, and with it all elements.
    void Clear() {
        MemoryHeap::Free(data_);
        data_ = nullptr;
        count_ = 0;
    }

    // Replaces the contents with a copy of `count` elements, which must not be the buffer's own.
    // Empty if there is no memory.
    bool Assign(const T* elements, uint32_t count) {
        if (!SetSize(count)) {
            Clear();
            return false;
        }
        MemoryHeap::Copy(data_, elements, count * sizeof(T));
        return true;
    }

    // The number of elements.
    uint32_t GetSize() const { return count_; }

    // The elements, or null if there are none.
    T* GetData() { return data_; }
    const T* GetData() const { return data_; }

    // An element; the index is not checked.
    T& operator[](uint32_t index) { return data_[index]; } // NOLINT: the analyzer assumes null
    const T& operator[](uint32_t index) const { return data_[index]; }

private:
    T* data_ = nullptr;
    uint32_t count_ = 0;
};
