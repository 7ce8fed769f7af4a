// What the fuzz targets share: a check for findings, and pieces of the input.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

// Reports a finding if the condition does not hold.
inline void Check(bool condition) {
    if (!condition) std::abort();
}

// Takes pieces off the front of the input.
class Input {
public:
    Input(const uint8_t* data, size_t size)
        : data_(data)
        , size_(size) {}

    bool IsEmpty() const { return size_ == 0; }

    // Up to `count` bytes, in a block of exactly their size, so that reads outside it are found.
    std::vector<uint8_t> Take(size_t count) {
        std::vector<uint8_t> bytes(data_, data_ + std::min(count, size_));
        Skip(bytes.size());
        return bytes;
    }
    std::string Text(size_t count) {
        const std::string text(reinterpret_cast<const char*>(data_), std::min(count, size_));
        Skip(text.size());
        return text;
    }
    std::string Rest() { return Text(size_); }

    // A number of one byte, or of two with the lower one first; 0 at the end.
    size_t Number() {
        const std::vector<uint8_t> byte = Take(1);
        return byte.empty() ? 0 : byte[0];
    }
    size_t Number16() {
        const size_t low = Number();
        return low | Number() << 8;
    }

private:
    void Skip(size_t count) {
        data_ += count;
        size_ -= count;
    }

    const uint8_t* data_;
    size_t size_;
};

// The bytes as UTF-16 units, without an odd byte at the end.
inline std::u16string Units(const std::string& bytes) {
    std::u16string units;
    for (size_t i = 0; i + 1 < bytes.size(); i += 2)
        units += static_cast<char16_t>(static_cast<uint8_t>(bytes[i]) |
                                       static_cast<uint8_t>(bytes[i + 1]) << 8);
    return units;
}
