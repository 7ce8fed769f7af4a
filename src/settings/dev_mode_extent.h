// How far a DEVMODE from outside reaches.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

// The size of a DEVMODE in one of the layouts (DEVMODE16 or DEVMODE32), by its own fields. 0 if
// `size` bytes do not hold all of it.
template <class Layout>
uint32_t DevModeExtent(const void* dev_mode, size_t size) {
    if (size < offsetof(Layout, dmFields)) return 0;
    uint16_t sizes[2]; // dmSize and dmDriverExtra
    static_assert(offsetof(Layout, dmDriverExtra) == offsetof(Layout, dmSize) + sizeof sizes[0]);
    std::memcpy(sizes, static_cast<const char*>(dev_mode) + offsetof(Layout, dmSize), sizeof sizes);
    const uint32_t whole = uint32_t{sizes[0]} + sizes[1];
    return whole >= offsetof(Layout, dmFields) && whole <= size ? whole : 0;
}
