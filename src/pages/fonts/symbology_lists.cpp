#include "pages/fonts/symbology_lists.h"

#include <iterator>

#include "locale/text_numbers.h"
#include "model/prtmodel.h"
#include "model/symbology_bits.h"
#include "model/symbology_info.h"

namespace {

using BarCode = DataFont_BarCode;

constexpr char kTimesModule[] = " X"; // heights are multiples of the module width

constexpr int kHighestPDF417Row = 10;
constexpr int kHighestStackedRow = 20;
constexpr int kUsualPDF417Level = 2;
constexpr int kExpandedRSS = 5;

constexpr struct {
    int list;
    int field;
    bool must_select;
} kSymbologyLists[] = {{SymbologyLists::CODE128_MODES, BarCode::CODE128_MODE, true},
                       {SymbologyLists::CODABAR_STARTS, BarCode::CODABAR_START, false},
                       {SymbologyLists::CODABAR_STOPS, BarCode::CODABAR_STOP, false},
                       {SymbologyLists::ADD_ONS, BarCode::ADD_ON, true},
                       {SymbologyLists::CODE_ONE_VERSIONS, BarCode::CODE_ONE_VERSION, false},
                       {SymbologyLists::PDF417_LEVELS, BarCode::PDF417_SECURITY, false},
                       {SymbologyLists::ROW_HEIGHTS, BarCode::PDF417_ROW_HEIGHT, false},
                       {SymbologyLists::PDF417_COLUMNS, BarCode::PDF417_COLUMNS, false},
                       {SymbologyLists::QUALITIES, BarCode::MATRIX_QUALITY, true},
                       {SymbologyLists::SIZES, BarCode::MATRIX_SIZE, false},
                       {SymbologyLists::SHAPES, BarCode::MATRIX_RECTANGLE, false},
                       {SymbologyLists::MAXICODE_MODES, BarCode::MAXICODE_MODE, true},
                       {SymbologyLists::QR_MODELS, BarCode::QR_MODEL, true},
                       {SymbologyLists::QR_MASKS, BarCode::QR_MASK, true},
                       {SymbologyLists::QR_INPUTS, BarCode::QR_INPUT, true},
                       {SymbologyLists::QR_CORRECTIONS, BarCode::QR_CORRECTION, true},
                       {SymbologyLists::PRIORITIES, BarCode::JAPAN_POST_PRIORITY, false},
                       {SymbologyLists::CODE16K_HEIGHTS, BarCode::STACKED_HEIGHT, false},
                       {SymbologyLists::CODE49_HEIGHTS, BarCode::STACKED_HEIGHT, false},
                       {SymbologyLists::MICRO_COLUMNS, BarCode::PDF417_COLUMNS, false},
                       {SymbologyLists::MICRO_ROWS, BarCode::PDF417_ROWS, true},
                       {SymbologyLists::AZTEC_CORRECTIONS, BarCode::AZTEC_CORRECTION, false},
                       {SymbologyLists::AZTEC_LAYERS, BarCode::AZTEC_LAYERS, false},
                       {SymbologyLists::AZTEC_TYPES, BarCode::AZTEC_TYPE, false},
                       {SymbologyLists::RSS_TYPES, BarCode::RSS_TYPE, true},
                       {SymbologyLists::SEGMENTS, BarCode::RSS_SEGMENTS, false}};

} // namespace

void SymbologyLists::Open(prtpage& page, DataFont_BarCode& font) {
    page_ = &page;
    font_ = &font;
}

uint32_t SymbologyLists::Options(int symbology) const {
    const KVSymbologyData* const record = page_->GetModel()->GetSymbologyData(symbology);
    return record ? record->options : 0;
}

int SymbologyLists::FieldOf(int list) {
    for (const auto& row : kSymbologyLists)
        if (row.list == list) return row.field;
    return -1;
}

// ---- Items --------------------------------------------------------------------------------------

void SymbologyLists::Add(int list, int text, int value) {
    page_->CB_AddString(list, page_->GetString(text), value);
}

void SymbologyLists::AddOffered(int list, std::span<const Item> items) {
    for (const Item& item : items)
        if (Options() & item.bit) Add(list, item.text, item.value);
}

void SymbologyLists::AddNumber(int list, int number, const char* after) {
    page_->CB_AddString(list, OString() << number << after, number);
}

void SymbologyLists::AddNumbers(int list, int first, int last, const char* after) {
    for (int number = first; number <= last; ++number) AddNumber(list, number, after);
}

void SymbologyLists::Select(int list, int value) {
    if (!page_->CB_SetCurSelData(list, value)) page_->CB_SetCurSel(list, -1);
}

void SymbologyLists::Enable(int list, int label, bool enable) {
    page_->WM_Enable(list, enable);
    page_->WM_Enable(label, enable);
}

void SymbologyLists::SelectStored(int list) {
    for (const auto& row : kSymbologyLists) {
        if (row.list != list) continue;
        Select(list, Field(row.field));
        if (!row.must_select || page_->CB_GetCurSel(list) >= 0 || page_->CB_GetCount(list) == 0)
            return;
        page_->CB_SetCurSel(list, 0);
        font_->SetField(row.field, static_cast<int>(page_->CB_GetCurSelData(list)));
        return;
    }
}

// ---- Symbologies --------------------------------------------------------------------------------

void SymbologyLists::FillAll() {
    switch (font_->get_symbology()) {
    case SymbologyInfo::CODE128:
        FillCode128();
        break;
    case SymbologyInfo::CODABAR:
        FillCodabar();
        break;
    case SymbologyInfo::UPC_A:
    case SymbologyInfo::UPC_E:
    case SymbologyInfo::EAN_13:
    case SymbologyInfo::EAN_8:
        FillAddOns();
        break;
    case SymbologyInfo::CODE_ONE:
        FillCodeOne();
        break;
    case SymbologyInfo::PDF417:
        FillPDF417();
        break;
    case SymbologyInfo::DATA_MATRIX:
        FillDataMatrix();
        break;
    case SymbologyInfo::MAXICODE:
        FillMaxiCode();
        break;
    case SymbologyInfo::QR_CODE:
        FillQRCode();
        break;
    case SymbologyInfo::JAPAN_POST:
        Add(PRIORITIES, TEXT_FIRST_PRIORITY, 0);
        Add(PRIORITIES, TEXT_FIRST_PRIORITY + 1, 1);
        break;
    case SymbologyInfo::CODE16K:
        AddNumbers(CODE16K_HEIGHTS, 1, kHighestStackedRow, kTimesModule);
        break;
    case SymbologyInfo::CODE49:
        AddNumbers(CODE49_HEIGHTS, 1, kHighestStackedRow, kTimesModule);
        break;
    case SymbologyInfo::MICRO_PDF417:
        AddNumbers(ROW_HEIGHTS, 1, kHighestPDF417Row, kTimesModule);
        Add(MICRO_COLUMNS, TEXT_AUTOMATIC, 0);
        AddNumbers(MICRO_COLUMNS, 1, 4);
        break;
    case SymbologyInfo::RSS:
    case SymbologyInfo::COMPOSITE:
        FillRSS();
        break;
    default:
        break;
    }
    // The page has only the lists of its own symbology.
    for (const auto& row : kSymbologyLists) SelectStored(row.list);

    switch (font_->get_symbology()) {
    case SymbologyInfo::DATA_MATRIX:
        ShowQuality();
        break;
    case SymbologyInfo::MICRO_PDF417:
        FillRows();
        break;
    case SymbologyInfo::AZTEC:
        FillAztec();
        break;
    case SymbologyInfo::RSS:
    case SymbologyInfo::COMPOSITE:
        FillSegments();
        break;
    default:
        break;
    }
}

void SymbologyLists::FillCode128() {
    const bool by_hand = !(Options() & CODE128_NO_MANUAL);
    Add(CODE128_MODES, TEXT_AUTOMATIC, 0);
    for (int mode = 1; by_hand && mode <= 4; ++mode)
        Add(CODE128_MODES, TEXT_FIRST_CODE_SET + mode - 1, mode);
    Enable(CODE128_MODES, CODE128_MODES_LABEL, by_hand);
}

void SymbologyLists::FillCodabar() {
    for (const int list : {CODABAR_STARTS, CODABAR_STOPS})
        for (const char* letter : {"a", "b", "c", "d"}) page_->CB_AddString(list, letter, *letter);
}

void SymbologyLists::FillAddOns() {
    const bool two = Options(SymbologyInfo::SUPPLEMENTAL_2) & SUPPLEMENTAL_ANY;
    const bool five = Options(SymbologyInfo::SUPPLEMENTAL_5) & SUPPLEMENTAL_ANY;
    if (two && five) Add(ADD_ONS, TEXT_AUTOMATIC, BarCode::CHOSEN_BY_PRINTER);
    Add(ADD_ONS, TEXT_WITHOUT, 0);
    if (two) Add(ADD_ONS, TEXT_TWO_DIGITS, 2);
    if (five) Add(ADD_ONS, TEXT_FIVE_DIGITS, 5);
    Enable(ADD_ONS, ADD_ONS_LABEL, two || five);
}

void SymbologyLists::FillCodeOne() {
    Add(CODE_ONE_VERSIONS, TEXT_AUTOMATIC, 0);
    int version = 0;
    for (const char* name :
         {"A", "B", "C", "D", "E", "F", "G", "H", "S10", "S20", "S30", "T16", "T32", "T48"})
        page_->CB_AddString(CODE_ONE_VERSIONS, name, ++version);
}

void SymbologyLists::FillPDF417() {
    if (Options() & PDF417_AUTO_LEVEL)
        Add(PDF417_LEVELS, TEXT_AUTOMATIC, BarCode::CHOSEN_BY_PRINTER);
    else if (Field(BarCode::PDF417_SECURITY) == BarCode::CHOSEN_BY_PRINTER)
        font_->SetField(BarCode::PDF417_SECURITY, kUsualPDF417Level);
    AddNumbers(PDF417_LEVELS, 0, 8);
    AddNumbers(ROW_HEIGHTS, 1, kHighestPDF417Row, kTimesModule);
    if (Options() & PDF417_AUTO_COLUMNS)
        Add(PDF417_COLUMNS, TEXT_AUTOMATIC, 0);
    else if (Field(BarCode::PDF417_COLUMNS) == 0)
        font_->SetField(BarCode::PDF417_COLUMNS, 1);
    AddNumbers(PDF417_COLUMNS, 1, 30);
}

void SymbologyLists::FillRows() {
    static constexpr uint8_t kRows[][12] = {{},
                                            {11, 14, 17, 20, 24, 28},
                                            {8, 11, 14, 17, 20, 23, 26},
                                            {6, 8, 10, 12, 15, 20, 26, 32, 38, 44},
                                            {4, 6, 8, 10, 12, 15, 20, 26, 32, 38, 44}};
    const int columns = Field(BarCode::PDF417_COLUMNS);
    page_->CB_ResetContent(MICRO_ROWS);
    if (columns == 0) Add(MICRO_ROWS, TEXT_AUTOMATIC, 0);
    if (columns < static_cast<int>(std::size(kRows)))
        for (const uint8_t* rows = kRows[columns]; *rows != 0; ++rows) AddNumber(MICRO_ROWS, *rows);
    SelectStored(MICRO_ROWS);
    Enable(MICRO_ROWS, MICRO_ROWS_LABEL, columns > 0);
}

void SymbologyLists::FillDataMatrix() {
    for (int i = 0; i < static_cast<int>(std::size(BarCode::MATRIX_QUALITIES)); ++i)
        if (Options() & (DATA_MATRIX_ECC_000 << i))
            Add(QUALITIES, TEXT_FIRST_MATRIX_QUALITY + i, BarCode::MATRIX_QUALITIES[i]);
    Add(SIZES, TEXT_AUTOMATIC, 0);
    for (int size = 1; size <= 6; ++size) Add(SIZES, TEXT_FIRST_MATRIX_SIZE + size - 1, size);
    Add(FUNCTIONS, TEXT_FNC1, 1);
    Add(FUNCTIONS, TEXT_MACRO_05, 5);
    Add(FUNCTIONS, TEXT_MACRO_06, 6);
    Add(FUNCTIONS, TEXT_READER_PROGRAM, 3);
    Add(SHAPES, TEXT_SQUARE, 0);
    Add(SHAPES, TEXT_RECTANGLE, 1);
}

void SymbologyLists::ShowQuality() {
    const bool best = Field(BarCode::MATRIX_QUALITY) == BarCode::BEST_MATRIX_QUALITY;
    const int function = Field(BarCode::MATRIX_FUNCTION);
    const bool can_function = best && !(Options() & DATA_MATRIX_NO_FUNCTION_CODES);
    const bool has_function = can_function && (function & MATRIX_FUNCTION_ON);
    if (best) {
        page_->CB_SetCurSel(SIZES, -1);
        Select(FUNCTIONS, function & 0xFF ? function & 0xFF : 1);
    } else {
        SelectStored(SIZES);
        page_->CB_SetCurSel(FUNCTIONS, -1);
    }
    Enable(SIZES, SIZES_LABEL, !best);
    CheckDlgButton(page_->GetWindow(), FUNCTION_BOX, has_function ? BST_CHECKED : BST_UNCHECKED);
    page_->WM_Enable(FUNCTION_BOX, can_function);
    page_->WM_Enable(FUNCTIONS, has_function);

    constexpr uint32_t kEither = DATA_MATRIX_RECTANGLE | DATA_MATRIX_MANUAL_RECTANGLE;
    page_->CB_SetCurSel(SHAPES, best && Field(BarCode::MATRIX_RECTANGLE) != 0);
    Enable(SHAPES, SHAPES_LABEL, best && (Options() & kEither) == DATA_MATRIX_RECTANGLE);
}

void SymbologyLists::FillMaxiCode() {
    // Mode 5 is not offered.
    static constexpr Item kModes[] = {{MAXICODE_MODE_2, TEXT_FIRST_MAXICODE_MODE, 2},
                                      {MAXICODE_MODE_3, TEXT_FIRST_MAXICODE_MODE + 1, 3},
                                      {MAXICODE_MODE_4, TEXT_FIRST_MAXICODE_MODE + 2, 4},
                                      {MAXICODE_MODE_6, TEXT_FIRST_MAXICODE_MODE + 3, 6}};
    AddOffered(MAXICODE_MODES, kModes);
}

void SymbologyLists::FillQRCode() {
    if (Options() & QR_MODEL_1) AddNumber(QR_MODELS, 1);
    if (Options() & QR_MODEL_2) AddNumber(QR_MODELS, 2);

    if (Options() & QR_MASK_MANUAL) {
        AddNumbers(QR_MASKS, 0, BarCode::QR_WITHOUT_MASK - 1);
        Add(QR_MASKS, TEXT_WITHOUT, BarCode::QR_WITHOUT_MASK);
    }
    if (Options() & QR_MASK_AUTO) Add(QR_MASKS, TEXT_AUTOMATIC, BarCode::QR_MASK_BY_PRINTER);
    Enable(QR_MASKS, QR_MASKS_LABEL, page_->CB_GetCount(QR_MASKS) > 1);

    if (Options() & QR_MODE_AUTO) Add(QR_INPUTS, TEXT_AUTOMATIC, 0);
    int text = TEXT_FIRST_QR_INPUT;
    for (const char letter : {'N', 'A', 'K', 'B', 'M'})
        if (Options() & QR_MODE_MANUAL) Add(QR_INPUTS, text++, letter);
    Enable(QR_INPUTS, QR_INPUTS_LABEL, page_->CB_GetCount(QR_INPUTS) > 1);

    text = TEXT_FIRST_QR_CORRECTION;
    for (const char letter : {'L', 'M', 'Q', 'H'}) Add(QR_CORRECTIONS, text++, letter);
}

void SymbologyLists::FillAztec() {
    for (const int list : {AZTEC_CORRECTIONS, AZTEC_LAYERS, AZTEC_TYPES}) {
        page_->CB_ResetContent(list);
        Add(list, TEXT_AUTOMATIC, 0);
    }
    AddNumbers(AZTEC_CORRECTIONS, 1, 99, "%");
    AddNumbers(AZTEC_LAYERS, 1, 32);
    Add(AZTEC_TYPES, TEXT_COMPACT_AZTEC, BarCode::AZTEC_COMPACT);
    Add(AZTEC_TYPES, TEXT_FULL_AZTEC, BarCode::AZTEC_FULL);
    for (const int list : {AZTEC_CORRECTIONS, AZTEC_LAYERS, AZTEC_TYPES}) SelectStored(list);
}

void SymbologyLists::FillRSS() {
    static constexpr Item kTypes[] = {{RSS_14, TEXT_FIRST_RSS, 0},
                                      {RSS_TRUNCATED, TEXT_FIRST_RSS + 1, 1},
                                      {RSS_STACKED, TEXT_FIRST_RSS + 2, 2},
                                      {RSS_OMNIDIRECTIONAL, TEXT_FIRST_RSS + 3, 3},
                                      {RSS_LIMITED, TEXT_FIRST_RSS + 4, 4},
                                      {RSS_EXPANDED, TEXT_FIRST_RSS + 5, kExpandedRSS},
                                      {RSS_EXPANDED_STACKED, TEXT_FIRST_RSS + 6, 6},
                                      {COMPOSITE_EAN_8, TEXT_EAN_8, 16},
                                      {COMPOSITE_EAN_13, TEXT_EAN_13, 17},
                                      {COMPOSITE_UPC_A, TEXT_UPC_A, 18},
                                      {COMPOSITE_UPC_E, TEXT_UPC_E, 19},
                                      {COMPOSITE_128_CC_AB, TEXT_CC_A_OR_B, 20},
                                      {COMPOSITE_128_CC_C, TEXT_CC_C, 21}};
    AddOffered(RSS_TYPES, kTypes);
}

void SymbologyLists::FillSegments() {
    const bool by_hand = Options() & RSS_MANUAL_SEGMENTS;
    page_->CB_ResetContent(SEGMENTS);
    Add(SEGMENTS, TEXT_AUTOMATIC, 0);
    for (int segments = 2; by_hand && segments <= 22; segments += 2) AddNumber(SEGMENTS, segments);
    Select(SEGMENTS, by_hand ? Field(BarCode::RSS_SEGMENTS) : 0);
    Enable(SEGMENTS, SEGMENTS_LABEL, by_hand && Field(BarCode::RSS_TYPE) == kExpandedRSS);
}
