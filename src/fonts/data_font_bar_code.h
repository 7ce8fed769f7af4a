// A data font whose text becomes a bar code.
#pragma once

#include "core/oarray.h"
#include "fonts/data_font.h"

class prtmodel;

// Adds the record that the rendering module reads, in that module's form. So the meaning of a field
// depends on the symbology (SymbologyInfo has their numbers). For each type of font, one- or
// two-dimensional, all symbologies agree on the fields that have operations below. Most of them are
// for the pages that edit fonts.
class DataFont_BarCode : public DataFont {
public:
    // The state after init.
    DataFont_BarCode();

    // A new font for a resolution: no name, normal weight, Code 39 (number 0) with modules of 15
    // thousandths of an inch, human-readable text below.
    void init(int32_t dpi = 300);

    // Clears the record for a symbology. Apart from that it sets only the fields of every
    // one-dimensional symbology, including guard bars longer by 65 thousandths of an inch.
    void InitBarCodeData(int symbology);

    int get_symbology() const { return record_.Get(places().symbology); }
    // Changes the number, and with it the type and the size of the record, but no other field.
    void set_symbology(int symbology);
    // Changes to another symbology as the user does. Rotation, module width and human-readable text
    // stay; the symbology's own fields are reset.
    void change_symbology(int symbology);

    // The rendering module's number of the rotation.
    int get_rotation() const { return record_.Get(places().rotation); }
    void set_rotation(int rotation) { record_.Set(places().rotation, rotation); }

    // The width of a module in dots, 0 to 65535, and in thousandths of an inch. Widths out of range
    // are clamped. Without a resolution every width is 0.
    int get_x() const { return record_.Get(places().module_width); }
    void set_x(int dots);
    int get_mils() const;
    void set_mils(int mils);

    // The ratio of wide to narrow in hundredths, or 0 to leave it to the printer. Two-dimensional
    // symbologies have fields of their own in its place.
    int get_ratio() const;
    void set_ratio(int ratio);

    // Human-readable text.
    enum HumanReadable { HR_NONE = 0, HR_ABOVE = 1, HR_BELOW = 2 };
    int get_hr() const;
    void set_hr(int hr);

    // Fields of the record, by byte offset. Those of one symbology have its name.
    enum Field : int {
        RECORD_SIZE = 0,

        // One-dimensional symbologies.
        GUARD_BARS = 28, // 32 bits
        RATIO_WHOLE = 42,
        RATIO_HUNDREDTHS = 44,
        CHECK_DIGIT = 48,
        CHECK_DIGIT_SHOWN = 50,
        CODE128_MODE = 56,
        CODE128_OPTION = 58,
        CODABAR_START = 56, // a character
        CODABAR_STOP = 58,  // a character
        ADD_ON = 68,        // the digits after a UPC or EAN code
        JAPAN_POST_PRIORITY = 88,

        // Two-dimensional ones.
        OWN_SIZE = 44, // bytes of the symbology's own fields, from this one on
        CODE_ONE_VERSION = 46,
        PDF417_SECURITY = 46,
        PDF417_TRUNCATED = 48,
        PDF417_COLUMNS = 50,
        PDF417_ROWS = 52, // MicroPDF417's
        PDF417_ROW_HEIGHT = 54,
        MATRIX_QUALITY = 46,
        MATRIX_SIZE = 48,
        MATRIX_FUNCTION = 50,
        MATRIX_WHITE_ON_BLACK = 52,
        MATRIX_RECTANGLE = 58,
        MAXICODE_MODE = 46,
        MAXICODE_ZIPPER = 48,
        MAXICODE_CONTRAST = 50,
        QR_MODEL = 46,
        QR_MASK = 48,
        QR_CORRECTION = 50,  // a character
        QR_INPUT = 52,       // a character, 0 for any
        STACKED_HEIGHT = 46, // of Code 16K and Code 49
        RSS_TYPE = 46,       // RSS and Composite
        RSS_SEGMENTS = 50,
        AZTEC_CORRECTION = 46,
        AZTEC_LAYERS = 48,
        AZTEC_TYPE = 50,
        AZTEC_WHITE_ON_BLACK = 52,
    };

    // Values of fields. The printer chooses the add-on or the level of PDF417; 0 is a choice there.
    static constexpr int CHOSEN_BY_PRINTER = 65535;
    // Those of MATRIX_QUALITY, in the order of the option bits (DATA_MATRIX_ECC_000 and so on).
    static constexpr int MATRIX_QUALITIES[] = {0,  10,  40,  50,  60,  70,  80,
                                               90, 100, 110, 120, 130, 140, 200};
    static constexpr int BEST_MATRIX_QUALITY = 200;
    // Those of QR_MASK are the eight masks from 0 on, and these.
    enum QRMask { QR_WITHOUT_MASK = 8, QR_MASK_BY_PRINTER = 9 };
    enum AztecType { AZTEC_ANY = 0, AZTEC_COMPACT = 1, AZTEC_FULL = 2 };

    // A 16-bit field by its byte offset, an even number below 96. Pages edit the symbologies' own.
    int GetField(int offset) const { return record_.Get(offset); }
    void SetField(int offset, int value) { record_.Set(offset, value); }

    // How much longer the guard bars of a one-dimensional bar code are than the others, in dots.
    int32_t GetGuardBars() const;
    void SetGuardBars(int32_t dots);

    // Whether the printer itself can draw the bar code with the options in the record.
    bool IsSupported(const prtmodel* model) const;

    // Fills the font from a blob. False, with the font unchanged, if the blob is another font's or
    // incomplete, or if its record is too long.
    bool Load(const void* blob, size_t size);
    void Save(DataFontStorage_BarCode& blob) const;

    static bool is_2D(int symbology);

    // Whether bars of these widths in dots have one of the ratios that a symbology's option bits
    // (KVSymbologyData::options) allow. Without any ratio bit all are allowed.
    static bool SupportedRatio(int narrow, int wide, uint32_t ratios);

    // The symbologies that fonts are offered for, in the order of display. Replaces the array.
    // Returns their number.
    static int EnumBarCodeSymbologies(OTypedArray<int>& symbologies);

private:
    // The places of fields in the record of each type.
    struct Places {
        int symbology;
        int module_width;
        int rotation;
        int hr_on;
        int hr_above;
    };
    const Places& places() const;

    // Sets the initial values of a symbology's own fields.
    void SetSymbologyDefaults();

    BarCodeRecord record_;
};
