// The page that a DEVMODE describes.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

struct PageGeometry {
    // Dots per inch, and dots.
    int32_t x_resolution, y_resolution;
    int32_t width, height;
    // Tenths of a millimetre, exchanged for a landscape page.
    int32_t paper_width, paper_height;
};

// The driver supplies what `dev_mode` (which may be null) leaves open: the size of a paper that is
// given only by number or name, and the first resolution. Never empty.
PageGeometry GeometryOf(const DEVMODEW* dev_mode, const std::basic_string<WCHAR>& printer);
