// Reads the bytes of dialog and menu templates.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace win32host {

// Little-endian values one after the other. Once the bytes are too short, everything read is 0 or
// empty, and Good answers false.
class TemplateReader {
public:
    explicit TemplateReader(std::span<const uint8_t> bytes)
        : bytes_(bytes) {}

    bool Good() const { return good_; }
    void Fail() { good_ = false; }

    uint8_t Byte() {
        if (!Has(1)) return 0;
        return bytes_[at_++];
    }

    uint16_t Word() {
        if (!Has(2)) return 0;
        at_ += 2;
        return static_cast<uint16_t>(bytes_[at_ - 2] | bytes_[at_ - 1] << 8);
    }

    uint32_t Dword() {
        const uint32_t low = Word();
        return low | static_cast<uint32_t>(Word()) << 16;
    }

    // Up to a unit that is 0.
    std::u16string Text() {
        std::u16string text;
        for (uint16_t unit = Word(); unit != 0 && good_; unit = Word())
            text += static_cast<char16_t>(unit);
        return text;
    }

    std::span<const uint8_t> Bytes(size_t count) {
        if (!Has(count)) return {};
        at_ += count;
        return bytes_.subspan(at_ - count, count);
    }

    void Skip(size_t count) { (void)Bytes(count); }

    // Moves on to the next multiple of four from the template's start.
    void Align() { Skip((4 - at_ % 4) % 4); }

private:
    bool Has(size_t count) { return good_ = good_ && bytes_.size() - at_ >= count; }

    std::span<const uint8_t> bytes_;
    size_t at_ = 0;
    bool good_ = true;
};

} // namespace win32host
