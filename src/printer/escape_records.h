// Messages of the module to the driver's rendering module: private escapes on a printer device
// context, and their records. All integers are little-endian.
#pragma once

#include <cstddef>
#include <cstdint>

enum PrivateEscape : int {
    ESCAPE_BAR = 11010,                // a KVBar
    ESCAPE_CACHE_ACTION = 11020,       // a KVCacheAction
    ESCAPE_RAW_PACKET = 15001,         // a 16-bit count and so many bytes, into the job as they are
    ESCAPE_DOWNLOAD_FONT = 15011,      // a KVFontInfo
    ESCAPE_DOWNLOAD_FONT_DATA = 15012, // a 16-bit count and so many bytes of a font file
    ESCAPE_DOWNLOAD_BITMAP = 15013,    // a KVDownloadBitmapChar with its rows
    ESCAPE_READ_CACHE_SETTINGS = 15031, // answers a KVCacheSettings
    ESCAPE_WRITE_CACHE_SETTINGS = 15032,
    ESCAPE_CACHE_INFORMATION = 15033, // answers a KVCacheInformation, or its size without output
    ESCAPE_CACHE_ITEM_ACTION = 15034, // a KVCacheItemAction
    ESCAPE_PERFORMANCE_TEST = 16001,  // a KVPerformanceTest; answers how many milliseconds it took
};

// A font in the printer's memory. Texts are 8-bit and zero-terminated. Fields without a name here
// are passed on unchanged.
struct KVFontInfo {
    enum Operation : uint16_t {
        BEGIN_TRUETYPE = 1,
        BEGIN_BITMAP = 2, // one pass: all glyphs in one rotation
        ERASE = 3,
        FINISH = 4,
        END_TRUETYPE = 5,
        END_BITMAP = 6,
    };

    char display_name[64];
    char file_name[32];  // in the printer, with ".FNT"
    char identifier[64]; // one character
    char location[16];   // the letter of a memory
    uint16_t max_char_width;
    uint16_t ave_char_width;
    uint16_t height;
    uint16_t ascent;
    uint16_t descent;
    uint16_t internal_leading;
    uint32_t data_size; // bytes of the font file, or of all glyphs
    uint16_t operation;
    uint16_t rotation; // of the pass: 0 upright, 1 a quarter turn clockwise
    uint32_t characters;
};
static_assert(sizeof(KVFontInfo) == 200);
static_assert(offsetof(KVFontInfo, identifier) == 96);
static_assert(offsetof(KVFontInfo, location) == 160);
static_assert(offsetof(KVFontInfo, max_char_width) == 176);
static_assert(offsetof(KVFontInfo, data_size) == 188);
static_assert(offsetof(KVFontInfo, operation) == 192);

// One glyph. Its rows follow: one bit per pixel, the leftmost highest, set where there is ink.
struct KVDownloadBitmapChar {
    uint16_t character;
    uint16_t advance; // pixels
    uint16_t height;
    uint16_t ascent;
    uint16_t rotation;
    uint16_t data_size; // row_bytes times rows
    uint16_t rows;
    uint16_t row_bytes;
};
static_assert(sizeof(KVDownloadBitmapChar) == 16);
static_assert(offsetof(KVDownloadBitmapChar, data_size) == 10);

struct KVCacheAction {
    enum Action : uint32_t {
        CLEAR = 0,
        RESET_SETTINGS = 2,
        FORGET_LOCATION = 4, // the objects in the memory with the letter in the argument
    };
    uint32_t action;
    uint32_t argument;
};
static_assert(sizeof(KVCacheAction) == 8);

struct KVCacheItemAction {
    enum Action : uint32_t { PRINT = 0, REMOVE = 1, LOCK = 2, UNLOCK = 3 };
    uint32_t id;
    uint32_t action;
};
static_assert(sizeof(KVCacheItemAction) == 8);

// A filled bar of the test page, in dots. It starts on its middle line.
struct KVBar {
    uint16_t size; // of this record
    uint16_t x;
    uint16_t y;
    uint16_t length;
    uint16_t thickness;
    uint16_t reserved1;
    uint16_t vertical; // 1 down from the start, 0 to the right
    uint16_t reserved2[5];
};
static_assert(sizeof(KVBar) == 24);
static_assert(offsetof(KVBar, vertical) == 12);

// How the rendering module keeps formats and graphics in the printer.
struct KVCacheSettings {
    uint32_t memory; // bytes
    uint32_t first_format;
    uint32_t last_format;
    uint32_t first_graphic;
    uint32_t last_graphic;
    uint32_t graphics_location; // the letter of a memory
    uint32_t format_location;
};
static_assert(sizeof(KVCacheSettings) == 28);

// The objects that it keeps there: this header, then `count` KVCacheItemInfo.
struct KVCacheInformation {
    uint16_t reserved1;
    uint16_t size; // of all of it
    uint16_t count;
    uint16_t reserved2[5];
};
static_assert(sizeof(KVCacheInformation) == 16);

// One object in the printer.
struct KVCacheItemInfo {
    enum Kind : uint16_t { GRAPHIC = 0, FORMAT = 1 };

    uint32_t id;
    uint16_t kind;
    uint16_t locked; // not 0: stays if memory runs short
    uint32_t number;
    uint32_t reserved;
    uint32_t size; // bytes
    uint16_t counters[2];
    char name[32]; // 8-bit, zero-terminated
};
static_assert(sizeof(KVCacheItemInfo) == 56);
static_assert(offsetof(KVCacheItemInfo, size) == 16);
static_assert(offsetof(KVCacheItemInfo, name) == 24);

// A test of the rendering module's speed.
struct KVPerformanceTest {
    uint32_t test;   // 0 to 5
    uint32_t repeat; // how many times it runs
};
static_assert(sizeof(KVPerformanceTest) == 8);
