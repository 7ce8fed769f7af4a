// The binary records that describe a printer model.
//
// All integers are little-endian. Texts are 8-bit, zero-terminated and padded with zeros. The
// layouts are fixed: records are stored as blocks of bytes, and the rendering module reads the same
// ones.
#pragma once

#include <cstddef>
#include <cstdint>

#include "model/measurement.h"

// What the model is and can do. prtmodel answers most questions from it.
struct KVModelData {
    char company_name[32];
    char product_name[32];
    char font_prefix[12];                   // before the name of every font of the printer
    Measurement unprintable_width;          // as set for this printer
    Measurement unprintable_width_of_model; // as the model has it
    Measurement printable_width;
    Measurement printable_length;
    Measurement default_width;
    Measurement default_length;
    Measurement minimum_length;
    Measurement maximum_length;
    Measurement minimum_width;
    Measurement maximum_width;

    uint16_t color;              // bits below; the high byte is 0
    uint8_t default_color_state; // 1 monochrome, 2 colour, as in DEVMODE
    uint8_t tracking;            // 0 right, 1 left, 2 centre: the position of labels on the web
    uint8_t natural_orientation; // 0 to 3: 0, 90, 180, 270 degrees
    uint8_t can_flip180;
    uint8_t can_mirror;
    uint8_t can_print_inverse;

    int16_t line_thickness_maximum; // in dots
    uint8_t line_thickness_anchor;  // 0 centre, 1 edge, 2 inner
    uint8_t line_anchor;            // 0 top left, 1 top right, 2 and 3 bottom, 4 and 5 base line
    int16_t box_thickness_maximum;
    uint8_t box_thickness_anchor;
    uint8_t box_anchor;
    uint8_t can_fill_box;
    uint8_t barcode_anchor;
    uint8_t barcode_anchor_relative;
    uint8_t white_text_needs_background;
    uint8_t text_anchor;
    uint8_t text_anchor_relative;

    uint16_t text_bits;
    uint16_t map_resolution;
    int16_t copies_limit; // never 0
    uint16_t download_bits;
    uint16_t port_bits;

    struct Resolution {
        uint16_t x; // dots per inch
        uint16_t y;
    };
    Resolution resolutions[8]; // the current one first; zeros after the last

    enum : uint16_t {
        COLOR_SPOT_2 = 0x01, // inks
        COLOR_SPOT_3 = 0x02,
        COLOR_SPOT_4 = 0x04,
        COLOR_CMY = 0x08,
        COLOR_CMYK = 0x10,
        COLOR_16 = 0x20, // bits per dot
        COLOR_24 = 0x40,
        COLOR_32 = 0x80
    };
    enum : uint16_t { TEXT_ROTATION = 1, TEXT_ANY_ANGLE = 2, TEXT_ANISOTROPIC = 4 };
    enum : uint16_t {
        DOWNLOAD_TRUETYPE = 1,
        DOWNLOAD_BITMAP = 2,
        DOWNLOAD_BITMAP_0 = 4,  // at 0 degrees
        DOWNLOAD_BITMAP_90 = 8, // at 90 degrees
    };
    enum : uint16_t { PORT_BIDI_PARALLEL = 2, PORT_BIDI_USB = 4 };
};
static_assert(sizeof(KVModelData) == 180);
static_assert(offsetof(KVModelData, font_prefix) == 64);
static_assert(offsetof(KVModelData, unprintable_width) == 76);
static_assert(offsetof(KVModelData, maximum_width) == 112);
static_assert(offsetof(KVModelData, color) == 116);
static_assert(offsetof(KVModelData, default_color_state) == 118);
static_assert(offsetof(KVModelData, line_thickness_maximum) == 124);
static_assert(offsetof(KVModelData, box_thickness_maximum) == 128);
static_assert(offsetof(KVModelData, can_fill_box) == 132);
static_assert(offsetof(KVModelData, text_anchor_relative) == 137);
static_assert(offsetof(KVModelData, text_bits) == 138);
static_assert(offsetof(KVModelData, port_bits) == 146);
static_assert(offsetof(KVModelData, resolutions) == 148);

// Versions of the driver.
struct KVDriverInfo {
    uint16_t size;  // 24
    uint16_t major; // with `minor` the driver version of DEVMODE
    uint16_t minor;
    uint16_t release_major; // shown in version reports
    uint16_t release_minor;
    uint16_t release_number;
    char prefix[4];
    uint16_t flags; // 0x8000
    uint16_t reserved1;
    uint32_t reserved2;
};
static_assert(sizeof(KVDriverInfo) == 24);
static_assert(offsetof(KVDriverInfo, prefix) == 12);
static_assert(offsetof(KVDriverInfo, flags) == 16);

// Who made the printer and the driver.
struct KVManufacturerInfo {
    uint16_t size; // 78
    char company_name[38];
    char manufacturer[32];
    char oem[6]; // two letters
};
static_assert(sizeof(KVManufacturerInfo) == 78);
static_assert(offsetof(KVManufacturerInfo, manufacturer) == 40);
static_assert(offsetof(KVManufacturerInfo, oem) == 72);

// One bar code symbology of the printer (see SymbologyInfo for the numbers).
struct KVSymbologyData {
    uint16_t flags;
    uint16_t hr_mode;     // of the human-readable text
    uint32_t options;     // the symbology's own bits, ratio bits and restricted methods
    uint32_t hr_bits;     // possible places of the human-readable text
    uint16_t font_weight; // of the human-readable text
    uint16_t font_size;
    char font_name[32];

    enum : uint16_t { SUPPORTED = 1, COLOR = 2 };
    enum : uint16_t { HR_OPTIONAL = 0, HR_NONE = 1, HR_ALWAYS = 2 };
};
static_assert(sizeof(KVSymbologyData) == 48);
static_assert(offsetof(KVSymbologyData, options) == 4);
static_assert(offsetof(KVSymbologyData, hr_bits) == 8);
static_assert(offsetof(KVSymbologyData, font_name) == 16);

// The font for new text.
struct KVDefaultFont {
    uint16_t weight;
    uint16_t size;
    char name[32];
};
static_assert(sizeof(KVDefaultFont) == 36);

// Objects that the printer draws itself. Sub-tables are found by the sizes, offsets and counts.
struct KVCapabilitiesData {
    static constexpr int SYMBOLOGIES = 37;
    static constexpr int DEFAULT_FONTS = 2; // for text, for bar codes

    uint16_t size; // 1900
    uint16_t symbology_size;
    uint16_t symbology_offset;
    uint16_t symbology_count;
    uint16_t reserved1;
    uint16_t line_bits;
    uint16_t box_bits;
    uint16_t unsupported_1d_lines; // draws bar codes that the printer lacks as lines
    uint16_t unsupported_2d_lines;
    uint16_t line;
    uint16_t box;
    uint16_t unsupported_1d_lines_first; // lines are the first choice for them
    uint16_t unsupported_2d_lines_first;
    uint16_t method_bits;
    uint32_t serialization_count_limit;
    uint32_t serialization_step_limit;
    uint16_t serialization_rollover_expands;
    uint16_t serialization_no_copies;
    uint16_t font_count;
    uint16_t font_size;
    uint16_t font_offset;
    uint16_t reserved2[3];
    KVSymbologyData symbologies[SYMBOLOGIES];
    KVDefaultFont fonts[DEFAULT_FONTS];

    enum : uint16_t { LINE = 1, LINE_COLOR = 2, LINE_DIAGONAL = 4 };
    enum : uint16_t { BOX = 1, BOX_COLOR = 2, BOX_FILL_COLOR = 4, BOX_ROUNDED = 16, CIRCLE = 32 };
    enum : uint16_t {
        SERIALIZATION = 1,
        STATIC_FIELDS = 2,
        VARIABLE_DATA = 4,
        STATIC_GRAPHICS = 8,
        STATIC_GRAPHICS_ONLY = 16, // instead of 8: graphics cannot be variable
        CACHE_GRAPHIC = 32,
        CACHE_FORMAT = 64,
        CACHE = 128, // either of the two
        TEMPLATE_EXPORT = 256
    };
};
static_assert(sizeof(KVCapabilitiesData) == 1900);
static_assert(offsetof(KVCapabilitiesData, line_bits) == 10);
static_assert(offsetof(KVCapabilitiesData, line) == 18);
static_assert(offsetof(KVCapabilitiesData, method_bits) == 26);
static_assert(offsetof(KVCapabilitiesData, serialization_count_limit) == 28);
static_assert(offsetof(KVCapabilitiesData, serialization_rollover_expands) == 36);
static_assert(offsetof(KVCapabilitiesData, font_count) == 40);
static_assert(offsetof(KVCapabilitiesData, symbologies) == 52);
static_assert(offsetof(KVCapabilitiesData, fonts) == 1828);

// RFID. `total_size` includes what a printer family may have appended.
struct KVRFIDCapabilities {
    uint16_t size; // of this structure
    uint16_t total_size;
    uint32_t flags; // 1 if the printer has RFID
    uint32_t tag_types;
    uint32_t options; // the possible settings of its tags
    uint32_t value16;
    uint32_t value20;
    uint16_t most_retries; // for each label
    uint16_t most_invalid_labels;

    enum : uint32_t {
        OPTION_OFFSET = 1,
        OPTION_RETRIES = 2,
        OPTION_INVALID_LABELS = 4,
        OPTION_FAILURE_ACTION = 8
    };
};
static_assert(sizeof(KVRFIDCapabilities) == 28);
static_assert(offsetof(KVRFIDCapabilities, options) == 12);
static_assert(offsetof(KVRFIDCapabilities, most_retries) == 24);

// Templates: formats that the printer stores. Texts follow the structure.
struct KVTemplateCapabilities {
    uint16_t size; // of this structure
    uint16_t total_size;
    uint32_t value4;
    uint32_t value8;
    uint16_t value12;
    uint16_t value14;
    uint16_t name_pattern_offset; // of the regular expression of file names, in the record
    uint16_t reserved;
};
static_assert(sizeof(KVTemplateCapabilities) == 20);
static_assert(offsetof(KVTemplateCapabilities, name_pattern_offset) == 16);

// The printer's real-time clock.
struct KVClockCapabilities {
    uint16_t size; // of this structure
    uint16_t total_size;
    uint32_t value4;
    uint32_t value8;
    uint32_t value12;
    uint32_t value16;
    uint16_t value20;
    uint16_t reserved;
};
static_assert(sizeof(KVClockCapabilities) == 24);
static_assert(offsetof(KVClockCapabilities, value20) == 20);

// The data of a model that only the ZPL layer needs.
struct CustomData {
    static constexpr int SPEEDS = 20;

    struct Speed {
        int32_t value;
        char letter[3]; // as the speed command carries it
        uint8_t is_default;
    };

    uint32_t flags;
    uint32_t reserved[4];
    int32_t label_top_min; // all four in dots
    int32_t label_top_max;
    int32_t tear_off_min;
    int32_t tear_off_max;
    Speed speeds[SPEEDS];

    enum : uint32_t {
        CUTTER = 0x2,
        BACKFEED_PERCENTAGE = 0x4,
        BACKFEED_OFF = 0x8,    // the backfeed value 3
        TRACKING_MARKS = 0x20, // the media tracking values 2 and 3 instead of 1
        BACKFEED_SPEED = 0x40, // besides the print speed
        SLEW_SPEED = 0x80,
        ABSOLUTE_DARKNESS = 0x200,
        TEAR_OFF = 0x400,
        TRANSFER_ONLY = 0x1000,
        DIRECT_ONLY = 0x2000,
        EXTENDED_OPTIONS = 0x20000
    };
};
static_assert(sizeof(CustomData) == 196);
static_assert(sizeof(CustomData::Speed) == 8);
static_assert(offsetof(CustomData::Speed, is_default) == 7);
static_assert(offsetof(CustomData, label_top_min) == 20);
static_assert(offsetof(CustomData, tear_off_min) == 28);
static_assert(offsetof(CustomData, speeds) == 36);

// How the printer and its driver screen images.
struct DitherCapabilities {
    uint32_t own_dithering; // non-zero: the printer can do it itself
    uint32_t algorithm;     // the best method for it: 2 is clustered-dot ordered dithering
};
