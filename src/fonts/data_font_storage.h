// The stored form of data fonts: one blob each, the same in the registry, in settings files and in
// the files of old drivers. Integers are little-endian.
#pragma once

#include <cstddef>
#include <cstdint>

// The common start of every data font. Reserved bytes are 0.
struct DataFontStorage {
    uint16_t weight;
    int16_t adjustment;
    uint8_t attributes[8]; // as in LOGFONT, from lfItalic to lfPitchAndFamily
    char face_name[32];    // terminated, zeros after it
    int32_t type;          // DataFont::Type
    int32_t resolution;    // dots per inch
    uint32_t flags;
    uint8_t reserved[16];
};
static_assert(sizeof(DataFontStorage) == 72);
static_assert(offsetof(DataFontStorage, face_name) == 12);
static_assert(offsetof(DataFontStorage, type) == 44);

// The record of a bar code font that the rendering module reads: 16-bit fields, named by their byte
// offset. Its size and the places of the fields depend on the type of the font, and the meaning of
// many on the symbology.
struct BarCodeRecord {
    uint16_t fields[48];

    uint16_t Get(int offset) const { return fields[offset / 2]; }
    void Set(int offset, int value) { fields[offset / 2] = static_cast<uint16_t>(value); }
};
static_assert(sizeof(BarCodeRecord) == 96);

// The record of an RFID font.
struct RFIDRecord {
    uint16_t size; // 156
    uint8_t reserved[10];
    uint32_t tag_type; // one of DataFont_RFID::TagType
    uint16_t encoding;
    uint16_t write_protect; // 0 or 1
    int32_t starting_block;
    uint32_t format; // DataFont_RFID::Format
    char mask[128];  // of the format; terminated, zeros after it
};
static_assert(sizeof(RFIDRecord) == 156);
static_assert(offsetof(RFIDRecord, tag_type) == 12);
static_assert(offsetof(RFIDRecord, mask) == 28);

// The blob of a bar code font. A two-dimensional one leaves the end of the record 0.
struct DataFontStorage_BarCode {
    DataFontStorage font;
    BarCodeRecord record;
};
static_assert(sizeof(DataFontStorage_BarCode) == 168);

// The blob of an RFID font.
struct DataFontStorage_RFID {
    DataFontStorage font;
    RFIDRecord record;
};
static_assert(sizeof(DataFontStorage_RFID) == 228);
