// An array of strings, and the flat lists that it is packed into.
#pragma once

#include <cstdint>

#include "core/obuffer.h"
#include "core/ostring.h"

// The layout of strings in a packed list, each with its terminator.
enum OPackMode : int {
    OPACK_LIST = 0,  // without the empty ones, and with one more NUL at the end
    OPACK_COUNT = 1, // after a 16-bit count of the strings
    OPACK_SIZE = 2,  // after the 16-bit size of the list, in elements of the buffer
    OPACK_PLAIN = 3  // the strings alone; every other mode is the same
};

// Grows like the other arrays (see OBaseArray). The strings are shared, not copied. Without memory
// an operation that grows returns false (or -1) and changes nothing.
class OStringArray {
public:
    OStringArray() = default;
    OStringArray(const OStringArray& other) { Copy(other); }
    OStringArray& operator=(const OStringArray& other);
    virtual ~OStringArray();

    int GetSize() const { return size_; }
    int GetCapacity() const { return capacity_; }

    // Resizes. New strings are empty. 0 frees the block. `grow` is as for OBaseArray.
    bool SetSize(int size, int grow = -1);

    // Appends a string. Returns its index.
    int Add(const OString& text);

    // Stores a string, after growing to that index if necessary.
    bool SetAtGrow(int index, OString text);

    // Appends the other's strings. Returns the previous size.
    int Append(const OStringArray& other);

    // Becomes a copy of the other.
    void Copy(const OStringArray& other);

    // Inserts `count` times the string, or `count` empty strings. If the index is beyond the end,
    // the gap is filled with empty strings.
    bool InsertAt(int index, const OString& text, int count);
    bool InsertEmpty(int index, int count);

    // Removes `count` existing strings at `index`.
    void RemoveAt(int index, int count);

    // A string. The index is not checked.
    OString& operator[](int index) { return data_[index]; }
    const OString& operator[](int index) const { return data_[index]; }

    // Whether both have the same texts (see OString's operator==) in the same order.
    bool operator==(const OStringArray& other) const;

    // Becomes the pieces of a text between separators, including empty pieces. An empty text has no
    // pieces, and an empty separator leaves it in one piece. The pieces have the text's code page.
    void Split(const OString& text, const char* separator);

    // The texts as one, with the separator between each two.
    OString Join(const char* separator) const;

    // Packs the strings, in 8-bit form each in its own code page or in UTF-16, into the beginning
    // of `buffer`, which grows if it is too small and never shrinks. Returns the elements used, 0
    // without memory. A header has the low 16 bits of its value.
    uint32_t Pack(OBuffer<char>& buffer, int mode) const;
    uint32_t Pack(OBuffer<WCHAR>& buffer, int mode) const;

    // Appends the strings of a packed list. A list with an end mark is read up to it, any other up
    // to the end of the buffer; headers are skipped. A last string without terminator counts. 8-bit
    // strings get code page 0.
    void Unpack(const OBuffer<char>& buffer, int mode);
    void Unpack(const OBuffer<WCHAR>& buffer, int mode);

private:
    // Moves the strings to a block for that many.
    bool SetRoom(int room);

    OString* data_ = nullptr;
    int32_t size_ = 0;
    int32_t capacity_ = 0;
    int32_t room_ = 0;
    int32_t grow_by_ = 0;
};
