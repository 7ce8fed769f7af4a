#include "pages/fonts/pp_bar_font_symbology.h"

#include <algorithm>

#include "locale/text_numbers.h"
#include "model/symbology_bits.h"
#include "model/symbology_info.h"
#include "ui/prtui.h"
#include "ui/uwindow.h"

namespace {

using Fields = DataFont_BarCode;
using Lists = SymbologyLists;

enum : uint16_t {
    kCheckDigit = 2008,
    kUCC128 = 2011,
    kGuardBars = 2016,
    kTruncated = 2100,
    kMatrixWhiteOnBlack = 2306,
    kZipperBlock = 2202,
    kContrastBlock = 2203,
    kAztecWhiteOnBlack = 673,
    kSeparatorLabel = 657,
    kSeparator = 658
};

constexpr struct {
    uint16_t box;
    int field;
    // The box is enabled if the printer has this bit, and not that one.
    uint32_t needed;
    uint32_t forbidden;
} kSymbologyBoxes[] = {
    {kUCC128, Fields::CODE128_OPTION, 0, 0},
    {kTruncated, Fields::PDF417_TRUNCATED, 0, PDF417_NOT_TRUNCATED},
    {kMatrixWhiteOnBlack, Fields::MATRIX_WHITE_ON_BLACK, DATA_MATRIX_WHITE_ON_BLACK, 0},
    {kZipperBlock, Fields::MAXICODE_ZIPPER, MAXICODE_ZIPPER_BLOCK, 0},
    {kContrastBlock, Fields::MAXICODE_CONTRAST, MAXICODE_CONTRAST_BLOCK, 0},
    {kAztecWhiteOnBlack, Fields::AZTEC_WHITE_ON_BLACK, 0, 0}};

constexpr int32_t kLongestGuardBars = 9999; // dots
constexpr int kMostCompactLayers = 4;       // of Aztec

} // namespace

OString ppBarFontSymbology::TemplateOf(int symbology) {
    static constexpr struct {
        int symbology;
        const char* name;
    } kTemplates[] = {{SymbologyInfo::CODE128, "CODE128"},
                      {SymbologyInfo::CODABAR, "CODABAR"},
                      {SymbologyInfo::UPC_A, "UPC"},
                      {SymbologyInfo::UPC_E, "UPC"},
                      {SymbologyInfo::EAN_13, "UPC"},
                      {SymbologyInfo::EAN_8, "UPC"},
                      {SymbologyInfo::CODE_ONE, "CODEONE"},
                      {SymbologyInfo::PDF417, "PDF417"},
                      {SymbologyInfo::DATA_MATRIX, "DATAMATRIX"},
                      {SymbologyInfo::MAXICODE, "MAXICODE"},
                      {SymbologyInfo::QR_CODE, "QRCODE"},
                      {SymbologyInfo::JAPAN_POST, "JAPANPOST"},
                      {SymbologyInfo::CODE16K, "CODE16K"},
                      {SymbologyInfo::CODE49, "CODE49"},
                      {SymbologyInfo::CODABLOCK, "CODABLOCK"},
                      {SymbologyInfo::MICRO_PDF417, "MICROPDF417"},
                      {SymbologyInfo::AZTEC, "AZTEC"},
                      {SymbologyInfo::RSS, "RSS"},
                      {SymbologyInfo::COMPOSITE, "RSS"}};
    const auto* const found =
        std::ranges::find(kTemplates, symbology, [](const auto& row) { return row.symbology; });
    const OString name = found != std::end(kTemplates) ? found->name : "CODE39";
    return OString("*:FONTS/^BARCODE/") + name;
}

void ppBarFontSymbology::Init() {
    prtpage::Init();
    font_ = static_cast<DataFont_BarCode*>(ui_->edit_data_font);
    if (font_) lists_.Open(*this, *font_);
}

// ---- What the page shows ------------------------------------------------------------------------

void ppBarFontSymbology::Refresh(bool all) {
    if (!font_) return;
    if (all) {
        ShowTitle();
        lists_.FillAll();
        ShowBoxes();
        EM_SetDots(kGuardBars, font_->GetGuardBars());
        WM_Enable(kSeparatorLabel, false);
        WM_Enable(kSeparator, false);
    }
    switch (changed_) {
    case kGuardBars:
        EM_SetDots(kGuardBars, font_->GetGuardBars());
        break;
    case Lists::QUALITIES:
    case Lists::FUNCTION_BOX:
        lists_.ShowQuality();
        break;
    case Lists::MICRO_COLUMNS:
        lists_.FillRows();
        break;
    case Lists::AZTEC_CORRECTIONS:
    case Lists::AZTEC_LAYERS:
    case Lists::AZTEC_TYPES:
        lists_.FillAztec();
        break;
    case Lists::RSS_TYPES:
    case Lists::SEGMENTS:
        lists_.FillSegments();
        break;
    default:
        break;
    }
    changed_ = 0;
    if (IsRestricted()) WM_EnableAll(false, 0, 0);
}

void ppBarFontSymbology::ShowTitle() {
    OString title;
    title.Format(TextOfWindow(GetWindow()).wstring(),
                 GetString(TEXT_FIRST_SYMBOLOGY + font_->get_symbology()).wstring());
    SetTextOfWindow(GetWindow(), title);
}

void ppBarFontSymbology::ShowBoxes() {
    const uint32_t options = lists_.Options();
    for (const auto& row : kSymbologyBoxes) {
        if (!GetItem(row.box)) continue;
        CheckDlgButton(GetWindow(), row.box,
                       font_->GetField(row.field) != 0 ? BST_CHECKED : BST_UNCHECKED);
        WM_Enable(row.box, (options & row.needed) == row.needed && !(options & row.forbidden));
    }
    ShowCheckDigit();
}

void ppBarFontSymbology::ShowCheckDigit() {
    const auto show = [this](bool checked, bool enabled) {
        CheckDlgButton(GetWindow(), kCheckDigit, checked ? BST_CHECKED : BST_UNCHECKED);
        WM_Enable(kCheckDigit, enabled);
    };
    const bool has_digit = font_->GetField(Fields::CHECK_DIGIT) != 0;
    switch (font_->get_symbology()) {
    case SymbologyInfo::CODE39:
    case SymbologyInfo::CODE39_VARIANT:
    case SymbologyInfo::INTERLEAVED_2_OF_5:
    case SymbologyInfo::CODE11:
        show(has_digit, true);
        break;
    case SymbologyInfo::MSI:
        if (lists_.Options() & MSI_CHECK_DIGIT_REQUIRED)
            show(true, false);
        else
            show(has_digit, true);
        break;
    case SymbologyInfo::FIM:
        show(false, true);
        WM_Show(kCheckDigit, false);
        break;
    case SymbologyInfo::CODE93:
    case SymbologyInfo::CODE128:
    case SymbologyInfo::UPC_A:
    case SymbologyInfo::UPC_E:
    case SymbologyInfo::EAN_13:
    case SymbologyInfo::EAN_8:
    case SymbologyInfo::SUPPLEMENTAL_2:
    case SymbologyInfo::SUPPLEMENTAL_5:
    case SymbologyInfo::POSTNET:
    case SymbologyInfo::ROYAL_MAIL:
    case SymbologyInfo::AUSTRALIAN_POST:
    case SymbologyInfo::JAPAN_POST:
    case SymbologyInfo::KIX:
    case SymbologyInfo::CODE16K:
    case SymbologyInfo::CODE49:
    case SymbologyInfo::TELEPEN:
        show(true, false);
        break;
    default:
        break; // the box stays as the template has it
    }
}

// ---- The user's acts ----------------------------------------------------------------------------

bool ppBarFontSymbology::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (!font_) return prtpage::Command(id, code, value);
    if (code == CBN_SELCHANGE && id == Lists::FUNCTIONS) {
        TakeFunction();
        return false;
    }
    if (code == CBN_SELCHANGE && Lists::FieldOf(id) >= 0) {
        TakeChoice(id, static_cast<int>(CB_GetCurSelData(id)));
        changed_ = id;
        return false;
    }
    if (code == BN_CLICKED && TakeBox(id)) {
        changed_ = id;
        return false;
    }
    if (id == kGuardBars && code == EN_UPDATE) {
        font_->SetGuardBars(std::clamp(EM_GetDots(id), 0, kLongestGuardBars));
        return false;
    }
    if (id == kGuardBars && code == EN_KILLFOCUS) {
        changed_ = id;
        return false;
    }
    return prtpage::Command(id, code, value);
}

void ppBarFontSymbology::TakeChoice(uint16_t list, int value) {
    switch (list) {
    case Lists::AZTEC_CORRECTIONS:
    case Lists::AZTEC_LAYERS:
    case Lists::AZTEC_TYPES:
        if (value != font_->GetField(Lists::FieldOf(list))) TakeAztecChoice(list, value);
        break;
    default:
        font_->SetField(Lists::FieldOf(list), value);
        break;
    }
}

void ppBarFontSymbology::TakeAztecChoice(uint16_t list, int value) {
    int correction = 0;
    int layers = font_->GetField(Fields::AZTEC_LAYERS);
    int type = font_->GetField(Fields::AZTEC_TYPE);
    switch (list) {
    case Lists::AZTEC_CORRECTIONS:
        correction = value;
        if (value > 0) layers = type = 0;
        break;
    case Lists::AZTEC_LAYERS:
        layers = value;
        if (layers == 0)
            type = Fields::AZTEC_ANY;
        else if (layers < kMostCompactLayers)
            type = Fields::AZTEC_COMPACT;
        else if (layers > kMostCompactLayers)
            type = Fields::AZTEC_FULL;
        else if (type == Fields::AZTEC_ANY)
            type = Fields::AZTEC_COMPACT;
        break;
    default:
        type = value;
        if (type == Fields::AZTEC_ANY)
            layers = 0;
        else if (type == Fields::AZTEC_COMPACT && (layers < 1 || layers > kMostCompactLayers))
            layers = 1;
        else if (type == Fields::AZTEC_FULL && layers < kMostCompactLayers)
            layers = kMostCompactLayers + 1;
        break;
    }
    font_->SetField(Fields::AZTEC_CORRECTION, correction);
    font_->SetField(Fields::AZTEC_LAYERS, layers);
    font_->SetField(Fields::AZTEC_TYPE, type);
}

void ppBarFontSymbology::TakeFunction() {
    const bool on = IsDlgButtonChecked(GetWindow(), Lists::FUNCTION_BOX) == BST_CHECKED;
    const auto function = static_cast<int>(CB_GetCurSelData(Lists::FUNCTIONS));
    font_->SetField(Fields::MATRIX_FUNCTION, function + (on ? Lists::MATRIX_FUNCTION_ON : 0));
}

bool ppBarFontSymbology::TakeBox(uint16_t box) {
    if (box == Lists::FUNCTION_BOX) {
        TakeFunction();
        return true;
    }
    const bool checked = IsDlgButtonChecked(GetWindow(), box) == BST_CHECKED;
    if (box == kCheckDigit) {
        font_->SetField(Fields::CHECK_DIGIT, checked);
        font_->SetField(Fields::CHECK_DIGIT_SHOWN, checked);
        return true;
    }
    for (const auto& row : kSymbologyBoxes) {
        if (row.box != box) continue;
        font_->SetField(row.field, checked);
        return true;
    }
    return false;
}
