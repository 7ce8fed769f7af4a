// A page as a DEVMODE wants it.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

struct PageGeometry {
    // Dots per inch and dots.
    int32_t x_resolution, y_resolution;
    int32_t width, height;
    // Tenths of a millimetre, as the page is read.
    int32_t paper_width, paper_height;
};

// What `dev_mode` (which may be null) leaves open is the driver's: the size of a paper that is
// given by number or name alone, and the first resolution. Never empty.
PageGeometry GeometryOf(const DEVMODEW* dev_mode, const std::basic_string<WCHAR>& printer);
