#include "fonts/data_font_bar_code.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "core/numbers.h"
#include "model/prtmodel.h"
#include "model/symbology_bits.h"
#include "model/symbology_info.h"

namespace {

constexpr int kSize1D = 96;
constexpr int kSize2D = 72;
constexpr int kGuardBarMils = 65;

// Fields set in every one-dimensional record. Only the rendering module knows the last two.
constexpr int kSetAtFirst[] = {DataFont_BarCode::CHECK_DIGIT_SHOWN, 72, 74};

} // namespace

DataFont_BarCode::DataFont_BarCode() {
    init();
}

void DataFont_BarCode::init(int32_t dpi) {
    DataFont::operator=(DataFont());
    resolution = dpi;
    InitBarCodeData(SymbologyInfo::CODE39);
    set_ratio(0);
    set_rotation(0);
    set_mils(15);
    set_hr(HR_BELOW);
}

void DataFont_BarCode::InitBarCodeData(int symbology) {
    record_ = {};
    set_symbology(symbology);
    if (type_ != BAR_CODE_1D) return;
    SetGuardBars(muldiv64s(kGuardBarMils, resolution, 1000));
    for (const int offset : kSetAtFirst) record_.Set(offset, 1);
}

// ---- Fields -------------------------------------------------------------------------------------

const DataFont_BarCode::Places& DataFont_BarCode::places() const {
    static constexpr Places one_dimensional = {32, 34, 46, 52, 54};
    static constexpr Places two_dimensional = {6, 26, 24, 32, 34};
    return type_ == BAR_CODE_2D ? two_dimensional : one_dimensional;
}

void DataFont_BarCode::set_symbology(int symbology) {
    const bool two_dimensional = is_2D(symbology);
    type_ = two_dimensional ? BAR_CODE_2D : BAR_CODE_1D;
    record_.Set(RECORD_SIZE, two_dimensional ? kSize2D : kSize1D);
    record_.Set(places().symbology, symbology);
}

void DataFont_BarCode::set_x(int dots) {
    record_.Set(places().module_width, std::clamp(dots, 0, 0xFFFF));
}

int DataFont_BarCode::get_mils() const {
    return muldiv64s(get_x(), 1000, resolution);
}

void DataFont_BarCode::set_mils(int mils) {
    set_x(muldiv64s(mils, resolution, 1000));
}

int DataFont_BarCode::get_ratio() const {
    return record_.Get(RATIO_WHOLE) * 100 + record_.Get(RATIO_HUNDREDTHS);
}

void DataFont_BarCode::set_ratio(int ratio) {
    record_.Set(RATIO_WHOLE, ratio / 100);
    record_.Set(RATIO_HUNDREDTHS, ratio % 100);
}

int DataFont_BarCode::get_hr() const {
    if (record_.Get(places().hr_on) == 0) return HR_NONE;
    return record_.Get(places().hr_above) != 0 ? HR_ABOVE : HR_BELOW;
}

void DataFont_BarCode::set_hr(int hr) {
    record_.Set(places().hr_on, hr == HR_ABOVE || hr == HR_BELOW);
    record_.Set(places().hr_above, hr == HR_ABOVE);
}

int32_t DataFont_BarCode::GetGuardBars() const {
    const uint32_t low = record_.Get(GUARD_BARS);
    const uint32_t high = record_.Get(GUARD_BARS + 2);
    return static_cast<int32_t>(high << 16 | low);
}

void DataFont_BarCode::SetGuardBars(int32_t dots) {
    record_.Set(GUARD_BARS, static_cast<uint16_t>(dots));
    record_.Set(GUARD_BARS + 2, static_cast<uint16_t>(static_cast<uint32_t>(dots) >> 16));
}

// ---- Symbologies --------------------------------------------------------------------------------

void DataFont_BarCode::change_symbology(int symbology) {
    const int old_type = type_;
    const int rotation = get_rotation();
    const int mils = get_mils();
    const int hr = get_hr();
    set_symbology(symbology);
    if (type_ != old_type || type_ == BAR_CODE_2D) InitBarCodeData(symbology);
    set_rotation(rotation);
    set_mils(mils);
    set_hr(hr);
    SetSymbologyDefaults();
}

void DataFont_BarCode::SetSymbologyDefaults() {
    static constexpr struct {
        int symbology;
        int offset;
        int value;
    } defaults[] = {
        {SymbologyInfo::CODE128, CODE128_MODE, 0},
        {SymbologyInfo::CODE128, CODE128_OPTION, 0},
        {SymbologyInfo::CODABAR, CODABAR_START, 'a'},
        {SymbologyInfo::CODABAR, CODABAR_STOP, 'a'},
        {SymbologyInfo::PDF417, OWN_SIZE, 12},
        {SymbologyInfo::PDF417, PDF417_SECURITY, CHOSEN_BY_PRINTER},
        {SymbologyInfo::PDF417, PDF417_TRUNCATED, 0},
        {SymbologyInfo::PDF417, PDF417_COLUMNS, 0},
        {SymbologyInfo::PDF417, PDF417_ROW_HEIGHT, 3},
        {SymbologyInfo::MICRO_PDF417, OWN_SIZE, 12},
        {SymbologyInfo::MICRO_PDF417, PDF417_SECURITY, CHOSEN_BY_PRINTER},
        {SymbologyInfo::MICRO_PDF417, PDF417_TRUNCATED, 0},
        {SymbologyInfo::MICRO_PDF417, PDF417_COLUMNS, 0},
        {SymbologyInfo::MICRO_PDF417, PDF417_ROW_HEIGHT, 3},
        {SymbologyInfo::MAXICODE, OWN_SIZE, 12},
        {SymbologyInfo::MAXICODE, MAXICODE_MODE, 2},
        {SymbologyInfo::DATA_MATRIX, OWN_SIZE, 20},
        {SymbologyInfo::DATA_MATRIX, MATRIX_QUALITY, BEST_MATRIX_QUALITY},
        {SymbologyInfo::DATA_MATRIX, MATRIX_SIZE, 0},
        {SymbologyInfo::DATA_MATRIX, MATRIX_FUNCTION, 0},
        {SymbologyInfo::DATA_MATRIX, 54, 0},
        {SymbologyInfo::DATA_MATRIX, 56, 0},
        {SymbologyInfo::QR_CODE, OWN_SIZE, 16},
        {SymbologyInfo::QR_CODE, QR_MODEL, 2},
        {SymbologyInfo::QR_CODE, QR_MASK, QR_MASK_BY_PRINTER},
        {SymbologyInfo::QR_CODE, QR_CORRECTION, 'L'},
        {SymbologyInfo::QR_CODE, QR_INPUT, 0},
        {SymbologyInfo::CODE16K, OWN_SIZE, 4},
        {SymbologyInfo::CODE16K, STACKED_HEIGHT, 10},
        {SymbologyInfo::CODE49, OWN_SIZE, 6},
        {SymbologyInfo::CODE49, STACKED_HEIGHT, 10},
        {SymbologyInfo::CODE49, 48, 0},
        {SymbologyInfo::RSS, OWN_SIZE, 8},
        {SymbologyInfo::RSS, RSS_TYPE, 0},
        {SymbologyInfo::RSS, 48, 3},
        {SymbologyInfo::RSS, RSS_SEGMENTS, 0},
        {SymbologyInfo::COMPOSITE, OWN_SIZE, 26},
        {SymbologyInfo::COMPOSITE, RSS_TYPE, 0},
        {SymbologyInfo::COMPOSITE, 48, 3},
        {SymbologyInfo::COMPOSITE, RSS_SEGMENTS, 0},
        {SymbologyInfo::AZTEC, OWN_SIZE, 10},
        {SymbologyInfo::AZTEC, AZTEC_CORRECTION, 0},
        {SymbologyInfo::AZTEC, AZTEC_LAYERS, 0},
        {SymbologyInfo::AZTEC, AZTEC_TYPE, AZTEC_ANY},
        {SymbologyInfo::AZTEC, AZTEC_WHITE_ON_BLACK, 0},
    };
    const int symbology = get_symbology();
    for (const auto& field : defaults)
        if (field.symbology == symbology) record_.Set(field.offset, field.value);
}

bool DataFont_BarCode::is_2D(int symbology) {
    switch (symbology) {
    case SymbologyInfo::CODE_ONE:
    case SymbologyInfo::PDF417:
    case SymbologyInfo::DATA_MATRIX:
    case SymbologyInfo::MAXICODE:
    case SymbologyInfo::QR_CODE:
    case SymbologyInfo::CODE16K:
    case SymbologyInfo::CODE49:
    case SymbologyInfo::MICRO_PDF417:
    case SymbologyInfo::AZTEC:
    case SymbologyInfo::AZTEC_MESA:
    case SymbologyInfo::RSS:
    case SymbologyInfo::COMPOSITE:
    case SymbologyInfo::CP_CODE:
    case SymbologyInfo::VERICODE:
        return true;
    default:
        return false;
    }
}

int DataFont_BarCode::EnumBarCodeSymbologies(OTypedArray<int>& symbologies) {
    static constexpr SymbologyInfo::Number order[] = {SymbologyInfo::AUSTRALIAN_POST,
                                                      SymbologyInfo::AZTEC,
                                                      SymbologyInfo::AZTEC_MESA,
                                                      SymbologyInfo::CODE_ONE,
                                                      SymbologyInfo::CODE11,
                                                      SymbologyInfo::CODE16K,
                                                      SymbologyInfo::CODE39,
                                                      SymbologyInfo::CODE39_VARIANT,
                                                      SymbologyInfo::CODE49,
                                                      SymbologyInfo::CODE93,
                                                      SymbologyInfo::CODE128,
                                                      SymbologyInfo::CODABAR,
                                                      SymbologyInfo::COMPOSITE,
                                                      SymbologyInfo::DATA_MATRIX,
                                                      SymbologyInfo::EAN_8,
                                                      SymbologyInfo::EAN_13,
                                                      SymbologyInfo::SUPPLEMENTAL_2,
                                                      SymbologyInfo::SUPPLEMENTAL_5,
                                                      SymbologyInfo::FIM,
                                                      SymbologyInfo::INTERLEAVED_2_OF_5,
                                                      SymbologyInfo::JAPAN_POST,
                                                      SymbologyInfo::KIX,
                                                      SymbologyInfo::MAXICODE,
                                                      SymbologyInfo::MICRO_PDF417,
                                                      SymbologyInfo::MSI,
                                                      SymbologyInfo::PDF417,
                                                      SymbologyInfo::QR_CODE,
                                                      SymbologyInfo::ROYAL_MAIL,
                                                      SymbologyInfo::RSS,
                                                      SymbologyInfo::TELEPEN,
                                                      SymbologyInfo::UPC_A,
                                                      SymbologyInfo::UPC_E,
                                                      SymbologyInfo::PLANET,
                                                      SymbologyInfo::POSTNET,
                                                      SymbologyInfo::VERICODE};
    symbologies.SetSize(0);
    for (const int number : order) symbologies.Add(number);
    return symbologies.GetSize();
}

// ---- What the printer can do --------------------------------------------------------------------

namespace {

// The option bit without which Data Matrix cannot be printed at a quality, or 0 if it needs none.
// Printers of every kind are taken to print 140.
uint32_t DataMatrixBit(int quality) {
    constexpr auto& all = DataFont_BarCode::MATRIX_QUALITIES;
    const auto* const found = std::ranges::find(all, quality);
    if (found == std::end(all) || quality == 140) return 0;
    return static_cast<uint32_t>(DATA_MATRIX_ECC_000) << (found - all);
}

bool HasAll(uint32_t options, uint32_t bits) {
    return (options & bits) == bits;
}

// Whether an add-on symbology can be attached to another bar code.
bool CanAttach(const prtmodel& model, int add_on) {
    const KVSymbologyData* const record = model.GetSymbologyData(add_on);
    return record && (record->options & SUPPLEMENTAL_ANY) != 0;
}

} // namespace

bool DataFont_BarCode::IsSupported(const prtmodel* model) const {
    const int symbology = get_symbology();
    const KVSymbologyData* const record = model->GetSymbologyData(symbology);
    if (!record || record->flags == 0) return false;

    const uint32_t options = record->options;
    switch (symbology) {
    case SymbologyInfo::CODE128: {
        const int mode = GetField(CODE128_MODE);
        return mode < 1 || mode > 3 || !(options & CODE128_NO_MANUAL);
    }
    case SymbologyInfo::UPC_A:
    case SymbologyInfo::UPC_E:
    case SymbologyInfo::EAN_13:
    case SymbologyInfo::EAN_8: {
        const int digits = GetField(ADD_ON);
        const bool two = digits == 2 || digits == CHOSEN_BY_PRINTER;
        const bool five = digits == 5 || digits == CHOSEN_BY_PRINTER;
        return (!two || CanAttach(*model, SymbologyInfo::SUPPLEMENTAL_2)) &&
               (!five || CanAttach(*model, SymbologyInfo::SUPPLEMENTAL_5));
    }
    case SymbologyInfo::PDF417:
        return !(options & PDF417_NOT_TRUNCATED) || GetField(PDF417_TRUNCATED) == 0;
    case SymbologyInfo::DATA_MATRIX:
        return HasAll(options, DataMatrixBit(GetField(MATRIX_QUALITY)));
    case SymbologyInfo::MAXICODE: {
        const int mode = GetField(MAXICODE_MODE);
        return mode < 2 || mode > 6 || HasAll(options, uint32_t{MAXICODE_MODE_2} << (mode - 2));
    }
    case SymbologyInfo::QR_CODE: {
        const int qr_model = GetField(QR_MODEL);
        if (qr_model == 1 && !(options & QR_MODEL_1)) return false;
        if (qr_model == 2 && !(options & QR_MODEL_2)) return false;
        return GetField(QR_MASK) >= QR_MASK_BY_PRINTER || (options & QR_MASK_MANUAL);
    }
    default:
        return true;
    }
}

bool DataFont_BarCode::SupportedRatio(int narrow, int wide, uint32_t ratios) {
    constexpr uint32_t kAll = 0xFFF000;
    // wide : narrow as a : b, where dots cannot be divided further.
    static constexpr struct {
        uint32_t bit;
        int a;
        int b;
    } known[] = {{RATIO_2_1, 2, 1},   {RATIO_11_5, 11, 5}, {RATIO_9_4, 9, 4},   {RATIO_7_3, 7, 3},
                 {RATIO_12_5, 12, 5}, {RATIO_5_2, 5, 2},   {RATIO_13_5, 13, 5}, {RATIO_8_3, 8, 3},
                 {RATIO_11_4, 11, 4}, {RATIO_14_5, 14, 5}, {RATIO_3_1, 3, 1}};
    if ((ratios & kAll) == 0 || (ratios & RATIO_VARIABLE)) return true;
    return std::any_of(std::begin(known), std::end(known), [&](const auto& ratio) {
        return (ratios & ratio.bit) && narrow % ratio.b == 0 &&
               int64_t{wide} * ratio.b == int64_t{narrow} * ratio.a;
    });
}

// ---- Storage ------------------------------------------------------------------------------------

bool DataFont_BarCode::Load(const void* blob, size_t size) {
    DataFontStorage_BarCode storage = {};
    if (!ReadBlob(blob, size, &storage, sizeof storage)) return false;
    if (storage.font.type != BAR_CODE_1D && storage.font.type != BAR_CODE_2D) return false;
    DataFont::Load(storage.font);
    std::memcpy(&record_, &storage.record, storage.record.Get(RECORD_SIZE));
    return true;
}

void DataFont_BarCode::Save(DataFontStorage_BarCode& blob) const {
    blob = {};
    DataFont::Save(blob.font);
    std::memcpy(&blob.record, &record_, record_.Get(RECORD_SIZE));
}
