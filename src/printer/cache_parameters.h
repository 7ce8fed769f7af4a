// The settings for objects that the rendering module keeps in the printer.
#pragma once

#include <cstdint>

#include "core/oarray.h"
#include "core/ostring_array.h"

// All zero, without memories, if nothing is kept.
struct CacheParameters {
    int32_t largest_memory = 0; // KB
    int32_t graphics_min = 0;   // limits of the numbers that objects get
    int32_t graphics_max = 0;
    int32_t format_min = 0;
    int32_t format_max = 0;
    // The letters of the memories to choose from and, under the same index, their names.
    OTypedArray<int32_t> graphics_locations;
    OStringArray graphics_location_names;
    OTypedArray<int32_t> format_locations;
    OStringArray format_location_names;
};
