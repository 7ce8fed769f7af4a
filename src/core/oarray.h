// Growable arrays of plain elements.
#pragma once

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "core/memory.h"

// An array of elements of N bytes each, kept as raw bytes: they are moved like memory and new ones
// are zero. The block never shrinks while the array is in use. Without memory an operation that
// grows answers false and changes nothing. Indices are the caller's responsibility where nothing
// else is said. Arrays are not copied.
template <size_t N>
class OBaseArray {
    static_assert(N == 1 || N == 2 || N == 4 || N == 8);

public:
    OBaseArray() = default;
    OBaseArray(const OBaseArray&) = delete;
    OBaseArray& operator=(const OBaseArray&) = delete;
    virtual ~OBaseArray() { ___free(data_); }

    // The number of elements in use, and of those that fit into the block.
    int GetSize() const { return size_; }
    int GetCapacity() const { return capacity_; }

    // Resizes to `size` elements; 0 frees the block. `grow` other than -1 becomes the step by which
    // a full block grows; a step of 0 (as at first) means an eighth of the size, within 4..1024.
    bool SetSize(int size, int grow = -1) {
        if (grow != -1) grow_by_ = std::max(grow, 0);
        if (size <= 0) {
            ___free(data_);
            data_ = nullptr;
            size_ = capacity_ = 0;
            return true;
        }
        if (size > capacity_) {
            const int capacity = data_ ? GrownCapacity(size) : size;
            void* moved = ___realloc(data_, static_cast<size_t>(capacity) * N);
            if (!moved) return false;
            data_ = moved;
            capacity_ = capacity;
        }
        if (size > size_) std::memset(At(size_), 0, static_cast<size_t>(size - size_) * N);
        size_ = size;
        return true;
    }

    // Puts `count` zero elements at `index`; behind the end, the gap is filled with zero elements
    // as well.
    bool InsertAt(int index, int count) {
        if (count <= 0) return true;
        const int old_size = size_;
        const int base = std::max(index, old_size);
        if (base > INT_MAX - count || !SetSize(base + count)) return false;
        if (index < old_size) {
            std::memmove(At(index + count), At(index), static_cast<size_t>(old_size - index) * N);
            std::memset(At(index), 0, static_cast<size_t>(count) * N);
        }
        return true;
    }

    // Removes `count` elements at `index`, all of which exist.
    void RemoveAt(int index, int count) {
        if (count <= 0) return;
        std::memmove(At(index), At(index + count), static_cast<size_t>(size_ - index - count) * N);
        size_ -= count;
    }

protected:
    void* At(int index) const { return static_cast<char*>(data_) + static_cast<size_t>(index) * N; }

private:
    int GrownCapacity(int size) const {
        const int step = grow_by_ != 0 ? grow_by_ : std::clamp(size_ / 8, 4, 1024);
        return std::max(size, capacity_ > INT_MAX - step ? INT_MAX : capacity_ + step);
    }

    void* data_ = nullptr;
    int32_t size_ = 0;
    int32_t capacity_ = 0;
    int32_t grow_by_ = 0;
};

// An array of plain values of type T.
template <class T>
class OTypedArray : public OBaseArray<sizeof(T)> {
    static_assert(std::is_trivially_copyable_v<T>);
    using Base = OBaseArray<sizeof(T)>;

public:
    // Appends a value; returns its index, -1 without memory.
    int Add(T value) {
        const int index = this->GetSize();
        return SetAtGrow(index, value) ? index : -1;
    }

    // Stores a value, after growing to that index if need be.
    bool SetAtGrow(int index, T value) {
        if (index >= this->GetSize() && (index == INT_MAX || !this->SetSize(index + 1)))
            return false;
        (*this)[index] = value;
        return true;
    }

    // Inserts `count` times the value.
    using Base::InsertAt;
    bool InsertAt(int index, T value, int count) {
        if (!Base::InsertAt(index, count)) return false;
        for (int i = 0; i < count; ++i) (*this)[index + i] = value;
        return true;
    }

    T& operator[](int index) { return *static_cast<T*>(this->At(index)); }
    const T& operator[](int index) const { return *static_cast<const T*>(this->At(index)); }

    // The elements one after the other; null while there is no block.
    T* GetData() { return static_cast<T*>(this->At(0)); }
    const T* GetData() const { return static_cast<const T*>(this->At(0)); }
};

// An array of pointers. It never deletes what they point to.
template <class P>
class OPointerArray : public OTypedArray<P> {
    static_assert(std::is_pointer_v<P>);
};
