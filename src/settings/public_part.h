// The public part of a DEVMODE of any size.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

// A length or width of paper, in tenths of a millimetre, limited to what a field can hold.
inline SHORT PaperExtent(int32_t tenths) {
    return static_cast<SHORT>(std::clamp<int32_t>(tenths, INT16_MIN, INT16_MAX));
}

// A copy of the public fields in the current layout. Fields that the DEVMODE does not hold are 0;
// extra bytes are left out. So all fields can be read and changed whatever its size.
struct PublicPart {
    DEVMODEW fields = {};

    explicit PublicPart(const DEVMODEW* dev_mode) {
        std::memcpy(&fields, dev_mode, std::max(Held(dev_mode), HEADER));
    }

    // Writes back the fields from dmFields on, as far as the DEVMODE holds them.
    void WriteTo(DEVMODEW* dev_mode) const {
        const size_t size = Held(dev_mode);
        if (size <= HEADER) return;
        std::memcpy(reinterpret_cast<char*>(dev_mode) + HEADER,
                    reinterpret_cast<const char*>(&fields) + HEADER, size - HEADER);
    }

private:
    // Names, versions and sizes, which every DEVMODE has.
    static constexpr size_t HEADER = offsetof(DEVMODEW, dmFields);

    static size_t Held(const DEVMODEW* dev_mode) {
        return std::min<size_t>(dev_mode->dmSize, sizeof(DEVMODEW));
    }
};
