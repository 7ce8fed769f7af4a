#include "core/ostring_array.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <memory>
#include <new>

#include "core/memory.h"
#include "core/oarray.h"

namespace {

// The units of a 16-bit header in a buffer of characters of type C.
template <class C>
constexpr uint32_t kHeaderUnits = sizeof(uint16_t) / sizeof(C);

const char* TextOf(const OString& text, char) {
    return text.nstring();
}

const WCHAR* TextOf(const OString& text, WCHAR) {
    return text.wstring();
}

uint32_t LengthOf(const OString& text, char) {
    text.nstring();
    return static_cast<uint32_t>(text.nlen());
}

uint32_t LengthOf(const OString& text, WCHAR) {
    text.wstring();
    return static_cast<uint32_t>(text.wlen());
}

bool HasHeader(int mode) {
    return mode == OPACK_COUNT || mode == OPACK_SIZE;
}

template <class C>
uint32_t PackStrings(const OStringArray& strings, OBuffer<C>& buffer, int mode) {
    uint64_t size = HasHeader(mode) ? kHeaderUnits<C> : mode == OPACK_LIST ? 1 : 0;
    for (int i = 0; i < strings.GetSize(); ++i) {
        const uint32_t length = LengthOf(strings[i], C{});
        if (length != 0 || mode != OPACK_LIST) size += uint64_t{length} + 1;
    }
    if (size > UINT32_MAX) return 0;
    const uint32_t packed_size = static_cast<uint32_t>(size);
    if (buffer.GetSize() < packed_size && !buffer.SetSize(packed_size)) return 0;

    C* next = buffer.GetData();
    C* const end = next + packed_size;
    if (HasHeader(mode)) {
        const uint16_t header = static_cast<uint16_t>(
            mode == OPACK_COUNT ? static_cast<uint32_t>(strings.GetSize()) : packed_size);
        std::memcpy(next, &header, sizeof(header));
        next += kHeaderUnits<C>;
    }
    for (int i = 0; i < strings.GetSize(); ++i) {
        const uint32_t length = LengthOf(strings[i], C{});
        if (length == 0 && mode == OPACK_LIST) continue;
        // Converted only now, as memory was short the first time.
        if (length >= static_cast<size_t>(end - next)) return 0;
        std::memcpy(next, TextOf(strings[i], C{}), length * sizeof(C));
        next[length] = 0;
        next += length + 1;
    }
    if (mode == OPACK_LIST && next < end) *next++ = 0;
    return next == end ? packed_size : 0;
}

template <class C>
void UnpackStrings(const OBuffer<C>& buffer, int mode, OStringArray& strings) {
    const C* text = buffer.GetData();
    const uint32_t end = buffer.GetSize();
    for (uint32_t at = HasHeader(mode) ? kHeaderUnits<C> : 0; at < end;) {
        uint32_t length = 0;
        while (at + length < end && text[at + length] != 0) ++length;
        if (length == 0 && mode == OPACK_LIST) return;
        OString string;
        string.Insert(0, text + at, static_cast<int>(std::min<uint32_t>(length, INT_MAX)));
        if (strings.Add(string) < 0) return;
        at += length + 1;
    }
}

} // namespace

OStringArray::~OStringArray() {
    SetSize(0);
}

OStringArray& OStringArray::operator=(const OStringArray& other) {
    Copy(other);
    return *this;
}

bool OStringArray::SetSize(int size, int grow) {
    if (grow != -1) grow_by_ = std::max(grow, 0);
    size = std::max(size, 0);
    if (size > capacity_) {
        const int capacity = data_ ? GrownCapacity(size_, capacity_, grow_by_, size) : size;
        if (capacity > room_ && !SetRoom(GrownRoom(room_, capacity))) return false;
        capacity_ = capacity;
    }
    if (size > size_)
        std::uninitialized_default_construct(data_ + size_, data_ + size);
    else
        std::destroy(data_ + size, data_ + size_);
    size_ = size;
    if (size == 0) {
        ::operator delete(data_);
        data_ = nullptr;
        capacity_ = room_ = 0;
    }
    return true;
}

bool OStringArray::SetRoom(int room) {
    const auto count = static_cast<size_t>(room);
    // No such block exists, and the allocation notes that.
    const size_t bytes = count > SIZE_MAX / sizeof(OString) ? SIZE_MAX : count * sizeof(OString);
    auto* moved = static_cast<OString*>(::operator new(bytes, kCounted));
    if (!moved) return false;
    std::uninitialized_move_n(data_, size_, moved);
    std::destroy_n(data_, size_);
    ::operator delete(data_);
    data_ = moved;
    room_ = room;
    return true;
}

int OStringArray::Add(const OString& text) {
    const int index = size_;
    return SetAtGrow(index, text) ? index : -1;
}

bool OStringArray::SetAtGrow(int index, OString text) {
    if (index >= size_ && (index == INT_MAX || !SetSize(index + 1))) return false;
    data_[index] = std::move(text);
    return true;
}

int OStringArray::Append(const OStringArray& other) {
    const int old_size = size_;
    const int count = other.size_;
    if (count > INT_MAX - old_size || !SetSize(old_size + count)) return -1;
    std::copy_n(other.data_, count, data_ + old_size);
    return old_size;
}

void OStringArray::Copy(const OStringArray& other) {
    if (this == &other || !SetSize(other.size_)) return;
    std::copy_n(other.data_, size_, data_);
}

bool OStringArray::operator==(const OStringArray& other) const {
    return std::equal(data_, data_ + size_, other.data_, other.data_ + other.size_);
}

bool OStringArray::InsertAt(int index, const OString& text, int count) {
    // It may be one of the array's own.
    const OString held(text); // NOLINT(performance-unnecessary-copy-initialization)
    if (!InsertEmpty(index, count)) return false;
    if (count > 0) std::fill_n(data_ + index, count, held);
    return true;
}

bool OStringArray::InsertEmpty(int index, int count) {
    if (count <= 0) return true;
    const int old_size = size_;
    const int base = std::max(index, old_size);
    if (base > INT_MAX - count || !SetSize(base + count)) return false;
    if (index < old_size) std::rotate(data_ + index, data_ + old_size, data_ + size_);
    return true;
}

void OStringArray::RemoveAt(int index, int count) {
    std::move(data_ + index + count, data_ + size_, data_ + index);
    std::destroy(data_ + size_ - count, data_ + size_);
    size_ -= count;
}

void OStringArray::Split(const OString& text, const char* separator) {
    // It may be one of the array's own.
    const OString whole(text); // NOLINT(performance-unnecessary-copy-initialization)
    SetSize(0);
    if (whole.IsEmpty()) return;
    // In the UTF-16 form, in which both Find and Mid count. An empty mark, perhaps for lack of
    // memory, would be found forever.
    const OString mark(separator);
    const WCHAR* wanted = mark.wstring();
    if (mark.wlen() == 0) {
        Add(whole);
        return;
    }
    int start = 0;
    for (;;) {
        const int found = whole.Find(wanted, start);
        if (found < 0) break;
        Add(whole.Mid(start, found - start));
        start = found + mark.wlen();
    }
    Add(whole.Mid(start));
}

OString OStringArray::Join(const char* separator) const {
    OString whole;
    for (int i = 0; i < size_; ++i) {
        if (i > 0) whole << separator;
        whole << data_[i];
    }
    return whole;
}

uint32_t OStringArray::Pack(OBuffer<char>& buffer, int mode) const {
    return PackStrings(*this, buffer, mode);
}

uint32_t OStringArray::Pack(OBuffer<WCHAR>& buffer, int mode) const {
    return PackStrings(*this, buffer, mode);
}

void OStringArray::Unpack(const OBuffer<char>& buffer, int mode) {
    UnpackStrings(buffer, mode, *this);
}

void OStringArray::Unpack(const OBuffer<WCHAR>& buffer, int mode) {
    UnpackStrings(buffer, mode, *this);
}
