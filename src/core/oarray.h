// Growable arrays of plain elements.
#pragma once

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "core/memory.h"

// The capacity of an array that has `size` elements and the capacity `capacity`, and must hold
// `wanted`. It grows by `step` or, if that is 0, by an eighth of the size, within 4..1024.
inline int GrownCapacity(int size, int capacity, int step, int wanted) {
    if (step == 0) step = std::clamp(size / 8, 4, 1024);
    return std::max(wanted, capacity > INT_MAX - step ? INT_MAX : capacity + step);
}

// The room in elements of a block that had `room` and must hold `capacity`. A large one gets more,
// so that it need not be moved for every 1024 elements of a million.
inline int GrownRoom(int room, int capacity) {
    return std::max(capacity, room > INT_MAX - room / 8 ? INT_MAX : room + room / 8);
}

// An array of elements of N bytes each, held as raw bytes: they are moved like memory and new ones
// are zero. The block never shrinks while the array is in use. Without memory an operation that
// grows returns false and changes nothing. Indices are not checked unless stated otherwise. Arrays
// are not copied.
template <size_t N>
class OBaseArray {
    static_assert(N == 1 || N == 2 || N == 4 || N == 8);

public:
    OBaseArray() = default;
    OBaseArray(const OBaseArray&) = delete;
    OBaseArray& operator=(const OBaseArray&) = delete;
    virtual ~OBaseArray() { ___free(data_); }

    // The number of elements in use, and how many there can be before it must grow.
    int GetSize() const { return size_; }
    int GetCapacity() const { return capacity_; }

    // Resizes to `size` elements. 0 frees the block. `grow` other than -1 becomes the step for
    // GrownCapacity, which is 0 at first.
    bool SetSize(int size, int grow = -1) {
        if (grow != -1) grow_by_ = std::max(grow, 0);
        if (size <= 0) {
            ___free(data_);
            data_ = nullptr;
            size_ = capacity_ = room_ = 0;
            return true;
        }
        if (size > capacity_) {
            const int capacity = data_ ? GrownCapacity(size_, capacity_, grow_by_, size) : size;
            if (capacity > room_) {
                const int room = GrownRoom(room_, capacity);
                void* moved = ___realloc(data_, static_cast<size_t>(room) * N);
                if (!moved) return false;
                data_ = moved;
                room_ = room;
            }
            capacity_ = capacity;
        }
        if (size > size_) std::memset(At(size_), 0, static_cast<size_t>(size - size_) * N);
        size_ = size;
        return true;
    }

    // Inserts `count` zero elements at `index`. Beyond the end, the gap is also filled with zero
    // elements.
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

    // Removes `count` existing elements at `index`.
    void RemoveAt(int index, int count) {
        if (count <= 0) return;
        std::memmove(At(index), At(index + count), static_cast<size_t>(size_ - index - count) * N);
        size_ -= count;
    }

protected:
    void* At(int index) const { return static_cast<char*>(data_) + static_cast<size_t>(index) * N; }

private:
    void* data_ = nullptr;
    int32_t size_ = 0;
    int32_t capacity_ = 0;
    int32_t room_ = 0;
    int32_t grow_by_ = 0;
};

// An array of plain values of type T.
template <class T>
class OTypedArray : public OBaseArray<sizeof(T)> {
    static_assert(std::is_trivially_copyable_v<T>);
    using Base = OBaseArray<sizeof(T)>;

public:
    // Appends a value. Returns its index, or -1 without memory.
    int Add(T value) {
        const int index = this->GetSize();
        return SetAtGrow(index, value) ? index : -1;
    }

    // Stores a value, after growing to that index if necessary.
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

    // The elements one after the other, or null if there is no block.
    T* GetData() { return static_cast<T*>(this->At(0)); }
    const T* GetData() const { return static_cast<const T*>(this->At(0)); }
};

// An array of pointers. It never deletes what they point to.
template <class P>
class OPointerArray : public OTypedArray<P> {
    static_assert(std::is_pointer_v<P>);
};
