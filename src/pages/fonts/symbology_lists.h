// The lists on the page for a symbology's own options.
#pragma once

#include <cstdint>
#include <span>

#include "fonts/data_font_bar_code.h"
#include "ui/prtpage.h"

// Fills them with what the printer offers and selects what the font has. Every list keeps its
// choice in a field of the font's record. In some lists something must be selected: if the font has
// what the printer does not offer, it gets the first item.
class SymbologyLists {
public:
    enum Control : int {
        CODE128_MODES = 2010,
        CODE128_MODES_LABEL = 582,
        CODABAR_STARTS = 2013,
        CODABAR_STOPS = 2015,
        ADD_ONS = 2018,
        ADD_ONS_LABEL = 2017,
        CODE_ONE_VERSIONS = 555,
        PDF417_LEVELS = 2102,
        ROW_HEIGHTS = 2101, // of PDF417 and MicroPDF417
        PDF417_COLUMNS = 2103,
        QUALITIES = 2307,
        SIZES = 2303,
        SIZES_LABEL = 2302,
        FUNCTIONS = 2301,
        FUNCTION_BOX = 2308,
        SHAPES = 2305,
        SHAPES_LABEL = 2304,
        MAXICODE_MODES = 2201,
        QR_MODELS = 2401,
        QR_MASKS = 2404,
        QR_MASKS_LABEL = 2403,
        QR_INPUTS = 2406,
        QR_INPUTS_LABEL = 2405,
        QR_CORRECTIONS = 2408,
        PRIORITIES = 349,
        CODE16K_HEIGHTS = 557,
        CODE49_HEIGHTS = 558,
        MICRO_COLUMNS = 554,
        MICRO_ROWS = 553,
        MICRO_ROWS_LABEL = 556,
        AZTEC_CORRECTIONS = 668,
        AZTEC_LAYERS = 671,
        AZTEC_TYPES = 672,
        RSS_TYPES = 665,
        SEGMENTS = 655,
        SEGMENTS_LABEL = 656
    };

    // For a page that edits a font; both outlive this object.
    void Open(prtpage& page, DataFont_BarCode& font);

    // The option bits of the printer for a symbology, and for the font's.
    uint32_t Options(int symbology) const;
    uint32_t Options() const { return Options(font_->get_symbology()); }

    // All lists of the font's symbology.
    void FillAll();
    // The rows of MicroPDF417, which depend on the columns.
    void FillRows();
    // The lists of Aztec, which exclude each other.
    void FillAztec();
    // The segments of RSS, which depend on the type.
    void FillSegments();
    // What depends on the quality of Data Matrix, and on the box for function codes.
    void ShowQuality();

    // The field in which a list keeps its choice, or -1 for any other control. That of the function
    // codes has the box in it as well.
    static int FieldOf(int list);
    static constexpr int MATRIX_FUNCTION_ON = 256; // beside the code, in MATRIX_FUNCTION

private:
    struct Item {
        uint32_t bit; // of the options
        int text;
        int value;
    };

    void FillCode128();
    void FillCodabar();
    void FillAddOns();
    void FillCodeOne();
    void FillPDF417();
    void FillDataMatrix();
    void FillMaxiCode();
    void FillQRCode();
    void FillRSS();

    void Add(int list, int text, int value);
    void AddOffered(int list, std::span<const Item> items);
    // Numbers that are their own values.
    void AddNumber(int list, int number, const char* after = "");
    void AddNumbers(int list, int first, int last, const char* after = "");
    // Selects the item of a value, or none.
    void Select(int list, int value);
    // Selects what the font has.
    void SelectStored(int list);
    void Enable(int list, int label, bool enable);

    int Field(int offset) const { return font_->GetField(offset); }

    prtpage* page_ = nullptr;
    DataFont_BarCode* font_ = nullptr;
};
