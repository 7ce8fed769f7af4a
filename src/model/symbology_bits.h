// The option bits of the symbology records (KVSymbologyData).
#pragma once

#include <cstdint>

// Restrictions on printing any symbology, in `options`: its bar codes cannot be serialized, cannot
// hold variable data, are static only, or cannot be in a template file.
enum SymbologyMethodBits : uint32_t {
    METHOD_SERIALIZATION = 0x80000000,
    METHOD_VARIABLE_DATA = 0x40000000,
    METHOD_STATIC = 0x20000000,
    METHOD_TEMPLATE_FILE = 0x10000000
};

// The ratios of wide to narrow bars, in `options`.
enum SymbologyRatioBits : uint32_t {
    RATIO_VARIABLE = 0x1000,
    RATIO_2_1 = 0x2000,
    RATIO_11_5 = 0x4000,
    RATIO_9_4 = 0x8000,
    RATIO_7_3 = 0x10000,
    RATIO_12_5 = 0x20000,
    RATIO_5_2 = 0x40000,
    RATIO_13_5 = 0x80000,
    RATIO_8_3 = 0x100000,
    RATIO_11_4 = 0x200000,
    RATIO_14_5 = 0x400000,
    RATIO_3_1 = 0x800000
};

// The possible human-readable texts, in `hr_bits`.
enum SymbologyTextBits : uint32_t {
    HR_OFFSET_VERTICAL = 0x1,
    HR_OFFSET_HORIZONTAL = 0x2,
    HR_ABOVE = 0x4,
    HR_BELOW = 0x8,
    HR_LEFT = 0x10,
    HR_RIGHT = 0x20,
    HR_CENTER = 0x40,
    HR_BAR = 0x80,
    HR_CHECK_DIGIT_SHOW = 0x100,
    HR_CHECK_DIGIT_HIDE = 0x200,
    HR_START_STOP_SHOW = 0x400,
    HR_START_STOP_HIDE = 0x800,
    HR_FONT_SELECT = 0x8000,
    // Code 39
    HR_TRANSLATION_ON = 0x10000,
    HR_TRANSLATION_OFF = 0x20000,
    // UPC and EAN: the digits beside the bars
    HR_SPLIT_SMALL = 0x50000,
    HR_SPLIT_FULL = 0x90000,
    HR_SPLIT_NONE = 0x20000
};

// The bits of one symbology family each, in `options`.
enum Code39Bits : uint32_t {
    CODE39_NO_FULL_ASCII = 0x1, // Code 93 has this one as well
    CODE39_START_STOP_REQUIRED = 0x2,
    CODE39_CHECK_DIGIT_REQUIRED = 0x4,
    CODE39_START_STOP_VARIABLE = 0x8
};

enum Code128Bits : uint32_t { CODE128_AUTO = 0x1, CODE128_NO_MANUAL = 0x2 };

enum CodabarBits : uint32_t { CODABAR_START_STOP_REQUIRED = 0x1, CODABAR_UPPERCASE = 0x2 };

enum MSIBits : uint32_t { MSI_CHECK_DIGIT_REQUIRED = 0x1 }; // interleaved 2 of 5 as well

enum UPCBits : uint32_t {
    UPC_CHECK_DIGIT_REQUIRED = 0x1,
    UPC_NUMBER_SYSTEM_1 = 0x2,
    UPC_GUARD_BAR_VARIABLE = 0x4,
    UPC_GUARD_BAR_WITHOUT_TEXT = 0x8
};

// The ways of attaching a supplemental code.
enum SupplementalBits : uint32_t {
    SUPPLEMENTAL_1 = 0x1,
    SUPPLEMENTAL_2 = 0x2,
    SUPPLEMENTAL_3 = 0x4,
    SUPPLEMENTAL_4 = 0x8,
    SUPPLEMENTAL_5 = 0x10,
    SUPPLEMENTAL_ANY = 0x1F
};

enum PDF417Bits : uint32_t {
    PDF417_NOT_TRUNCATED = 0x1,
    PDF417_AUTO_LEVEL = 0x2,
    PDF417_AUTO_COLUMNS = 0x4
};

enum MicroPDF417Bits : uint32_t { MICRO_PDF417_AUTO_SIZE = 0x1 };

enum DataMatrixBits : uint32_t {
    DATA_MATRIX_ECC_000 = 0x1,
    DATA_MATRIX_ECC_010 = 0x2,
    DATA_MATRIX_ECC_040 = 0x4,
    DATA_MATRIX_ECC_050 = 0x8,
    DATA_MATRIX_ECC_060 = 0x10,
    DATA_MATRIX_ECC_070 = 0x20,
    DATA_MATRIX_ECC_080 = 0x40,
    DATA_MATRIX_ECC_090 = 0x80,
    DATA_MATRIX_ECC_100 = 0x100,
    DATA_MATRIX_ECC_110 = 0x200,
    DATA_MATRIX_ECC_120 = 0x400,
    DATA_MATRIX_ECC_130 = 0x800,
    DATA_MATRIX_ECC_140 = 0x1000,
    DATA_MATRIX_ECC_200 = 0x2000,
    DATA_MATRIX_WHITE_ON_BLACK = 0x4000,
    DATA_MATRIX_RECTANGLE = 0x8000,
    DATA_MATRIX_NO_FUNCTION_CODES = 0x10000,
    DATA_MATRIX_AUTO_FORMAT = 0x20000,
    DATA_MATRIX_MANUAL_RECTANGLE = 0x40000,
    DATA_MATRIX_STRUCTURED_APPEND = 0x80000
};

enum MaxiCodeBits : uint32_t {
    MAXICODE_MODE_2 = 0x1,
    MAXICODE_MODE_3 = 0x2,
    MAXICODE_MODE_4 = 0x4,
    MAXICODE_MODE_5 = 0x8,
    MAXICODE_MODE_6 = 0x10,
    MAXICODE_ZIPPER_BLOCK = 0x20,
    MAXICODE_CONTRAST_BLOCK = 0x40,
    MAXICODE_STRUCTURED_APPEND = 0x80
};

enum QRCodeBits : uint32_t {
    QR_MODEL_1 = 0x1,
    QR_MODEL_2 = 0x2,
    QR_MODE_MANUAL = 0x4,
    QR_MODE_AUTO = 0x8,
    QR_MASK_MANUAL = 0x10,
    QR_MASK_AUTO = 0x20,
    QR_STRUCTURED_APPEND = 0x40
};

enum JapanPostBits : uint32_t { JAPAN_POST_HIGH_PRIORITY = 0x1 };

enum CodablockBits : uint32_t { CODABLOCK_A = 0x1, CODABLOCK_E = 0x2, CODABLOCK_F = 0x4 };

enum AztecBits : uint32_t {
    AZTEC_FINDER_AUTO = 0x1,
    AZTEC_FINDER_COMPACT = 0x2,
    AZTEC_FINDER_FULL = 0x4,
    AZTEC_WHITE_ON_BLACK = 0x8,
    AZTEC_AUTO_CORRECTION = 0x10,
    AZTEC_AUTO_LAYERS = 0x20,
    AZTEC_STRUCTURED_APPEND = 0x40
};

// RSS, and the linear part of a composite code.
enum RSSBits : uint32_t {
    RSS_14 = 0x1,
    RSS_TRUNCATED = 0x2,
    RSS_STACKED = 0x4,
    RSS_OMNIDIRECTIONAL = 0x8,
    RSS_LIMITED = 0x10,
    RSS_EXPANDED = 0x20,
    RSS_EXPANDED_STACKED = 0x40,
    RSS_MANUAL_SEGMENTS = 0x10000
};

// Further linear parts of a composite code.
enum CompositeBits : uint32_t {
    COMPOSITE_EAN_8 = 0x100,
    COMPOSITE_EAN_13 = 0x200,
    COMPOSITE_UPC_A = 0x400,
    COMPOSITE_UPC_E = 0x800,
    COMPOSITE_128_CC_AB = 0x1000,
    COMPOSITE_128_CC_C = 0x2000
};

enum TelepenBits : uint32_t { TELEPEN_CHECK_DIGIT_REQUIRED = 0x1, TELEPEN_NUMERIC = 0x2 };
