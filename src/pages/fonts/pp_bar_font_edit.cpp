#include "pages/fonts/pp_bar_font_edit.h"

#include <cstdlib>

#include "core/numbers.h"
#include "locale/text_numbers.h"
#include "model/prtmodel.h"
#include "model/symbology_bits.h"
#include "model/symbology_info.h"
#include "pages/fonts/font_lists.h"
#include "pages/fonts/font_name.h"
#include "pages/fonts/pp_bar_font_symbology.h"
#include "ui/prtui.h"

namespace {

enum : uint16_t {
    kBarCodeName = 831,
    kSymbology = 832,
    kRotation = 833,
    kModuleWidth = 834,
    kRatio = 835,
    kHumanReadable = 836,
    kMultiline = 837,
    kBarCodeCharacterSet = 838,
    kBarCodeAdjustment = 839,
    kModuleWidthLabel = 844,
    kRatioLabel = 845,
    kHumanReadableLabel = 846,
    kOptionsPlace = 395
};

constexpr int kRotations = 4;
constexpr int kWidestModule = 16; // 1/16 inch

// Ratios of wide to narrow in hundredths.
constexpr int kFirstRatio = 200;
constexpr int kLastRatio = 300;
constexpr int kRatioStep = 10;
constexpr int kRatioTolerance = 9; // by how much whole dots may miss a ratio

// The width in thousandths of an inch that a symbology prescribes, or 0.
int PrescribedMils(int symbology) {
    switch (symbology) {
    case SymbologyInfo::POSTNET:
        return 25;
    case SymbologyInfo::MAXICODE:
        return 35;
    case SymbologyInfo::ROYAL_MAIL:
    case SymbologyInfo::AUSTRALIAN_POST:
    case SymbologyInfo::JAPAN_POST:
    case SymbologyInfo::KIX:
    case SymbologyInfo::FIM:
        return 20;
    default:
        return 0;
    }
}

// The dialog's own choices. They differ from what the tables can tell of a symbology
// (SymbologyInfo): there is no ratio to choose for Code 93, and no text for two codes of the mail.
bool OffersRatio(int symbology) {
    switch (symbology) {
    case SymbologyInfo::CODE39:
    case SymbologyInfo::CODE39_VARIANT:
    case SymbologyInfo::CODABAR:
    case SymbologyInfo::INTERLEAVED_2_OF_5:
    case SymbologyInfo::MSI:
        return true;
    default:
        return false;
    }
}

bool OffersHumanReadable(int symbology) {
    switch (symbology) {
    case SymbologyInfo::POSTNET:
    case SymbologyInfo::ROYAL_MAIL:
    case SymbologyInfo::AUSTRALIAN_POST:
        return false;
    case SymbologyInfo::CODE49:
        return true;
    default:
        return !DataFont_BarCode::is_2D(symbology);
    }
}

} // namespace

void ppBarFontEdit::Init() {
    prtpage::Init();
    if (ui_->edit_data_font) font_ = *static_cast<const DataFont_BarCode*>(ui_->edit_data_font);
}

KVSymbologyData ppBarFontEdit::Offer() const {
    const KVSymbologyData* const record = GetModel()->GetSymbologyData(font_.get_symbology());
    return record ? *record : KVSymbologyData{};
}

// ---- What the dialog shows ----------------------------------------------------------------------

void ppBarFontEdit::Refresh(bool all) {
    if (all) {
        ShowFontName(*this, kBarCodeName, font_, TEXT_NEW_BAR_CODE_FONT);
        FillSymbologies();
        FillRotations();
        FillWidths();
        CheckDlgButton(GetWindow(), kMultiline, font_.IsMultiline() ? BST_CHECKED : BST_UNCHECKED);
        FillCharacterSets(*this, kBarCodeCharacterSet, font_);
        FillAdjustments(*this, kBarCodeAdjustment, font_);
    }
    if (all || symbology_changed_)
        ShowSymbology();
    else if (width_changed_)
        FillRatios();
    symbology_changed_ = width_changed_ = false;
}

void ppBarFontEdit::FillSymbologies() {
    CB_ResetContent(kSymbology);
    OTypedArray<int> symbologies;
    const int count = DataFont_BarCode::EnumBarCodeSymbologies(symbologies);
    for (int i = 0; i < count; ++i) {
        const int symbology = symbologies[i];
        const KVSymbologyData* const record = GetModel()->GetSymbologyData(symbology);
        if (record && record->flags != 0)
            CB_AddString(kSymbology, GetString(TEXT_FIRST_SYMBOLOGY + symbology), symbology);
    }
    CB_SetCurSelData(kSymbology, font_.get_symbology());
}

void ppBarFontEdit::FillRotations() {
    CB_ResetContent(kRotation);
    for (int i = 0; i < kRotations; ++i)
        CB_AddString(kRotation, GetString(TEXT_FIRST_ROTATION + i), i);
    CB_SetCurSelData(kRotation, font_.get_rotation());
}

void ppBarFontEdit::FillWidths() {
    CB_ResetContent(kModuleWidth);
    const int resolution = GetModel()->GetXResolution();
    for (int dots = 1; dots <= resolution / kWidestModule; ++dots)
        CB_AddString(kModuleWidth, xdimension_to_string(dots, resolution),
                     muldiv64s(dots, 1000, resolution));
}

void ppBarFontEdit::ShowSymbology() {
    const int prescribed = PrescribedMils(font_.get_symbology());
    if (prescribed != 0) font_.set_mils(prescribed);
    WM_Enable(kModuleWidth, prescribed == 0);
    WM_Enable(kModuleWidthLabel, prescribed == 0);
    ShowWidth();
    FillRatios();
    FillHumanReadable();
    ShowOptions();
}

void ppBarFontEdit::ShowWidth() {
    const int mils = font_.get_mils();
    // The widest item that is not wider than the font's modules; of equal ones the first.
    int shown = -1;
    for (int i = 0; i < CB_GetCount(kModuleWidth); ++i) {
        const LPARAM width = CB_GetSelData(kModuleWidth, i);
        if (width <= mils && (shown < 0 || width > CB_GetSelData(kModuleWidth, shown))) shown = i;
    }
    CB_SetCurSel(kModuleWidth, shown);
}

void ppBarFontEdit::FillRatios() {
    CB_ResetContent(kRatio);
    CB_AddString(kRatio, GetString(TEXT_AUTOMATIC), 0);
    const bool has_ratio = OffersRatio(font_.get_symbology());
    const int narrow = font_.get_x();
    const uint32_t allowed = Offer().options;
    int shown = 0;
    for (int ratio = kFirstRatio; has_ratio && ratio <= kLastRatio; ratio += kRatioStep) {
        const int wide = muldiv64s(narrow, ratio, 100);
        if (std::abs(muldiv64s(wide, 100, narrow) - ratio) > kRatioTolerance ||
            !DataFont_BarCode::SupportedRatio(narrow, wide, allowed))
            continue;
        const int text = TEXT_FIRST_RATIO + (ratio - kFirstRatio) / kRatioStep;
        const int item = CB_AddString(kRatio, GetString(text), ratio);
        if (ratio <= font_.get_ratio()) shown = item;
    }
    CB_SetCurSel(kRatio, shown);
    WM_Enable(kRatio, has_ratio);
    WM_Enable(kRatioLabel, has_ratio);
}

void ppBarFontEdit::FillHumanReadable() {
    const KVSymbologyData offer = Offer();
    const bool has_text =
        OffersHumanReadable(font_.get_symbology()) && offer.hr_mode != KVSymbologyData::HR_NONE;
    const bool none = !has_text || offer.hr_mode != KVSymbologyData::HR_ALWAYS;
    const bool above = has_text && (offer.hr_bits & HR_ABOVE);
    const bool below = has_text && (offer.hr_bits & HR_BELOW);

    const auto below_or_none = below ? DataFont_BarCode::HR_BELOW : DataFont_BarCode::HR_NONE;
    switch (font_.get_hr()) {
    case DataFont_BarCode::HR_NONE:
        if (!none) font_.set_hr(below_or_none);
        break;
    case DataFont_BarCode::HR_ABOVE:
        if (!above) font_.set_hr(below_or_none);
        break;
    default:
        if (!below) font_.set_hr(DataFont_BarCode::HR_NONE);
        break;
    }

    CB_ResetContent(kHumanReadable);
    if (none) CB_AddString(kHumanReadable, GetString(TEXT_WITHOUT), DataFont_BarCode::HR_NONE);
    if (above) CB_AddString(kHumanReadable, GetString(TEXT_ABOVE), DataFont_BarCode::HR_ABOVE);
    if (below) CB_AddString(kHumanReadable, GetString(TEXT_BELOW), DataFont_BarCode::HR_BELOW);
    CB_SetCurSelData(kHumanReadable, font_.get_hr());
    const bool choice = CB_GetCount(kHumanReadable) > 1;
    WM_Enable(kHumanReadable, choice);
    WM_Enable(kHumanReadableLabel, choice);
}

void ppBarFontEdit::ShowOptions() {
    const HWND before = options_;
    // The page inside gets the copy in the same way as this dialog got the font.
    DataFont* const original = ui_->edit_data_font;
    ui_->edit_data_font = &font_;
    options_ = DialogModeless(ppBarFontSymbology::TemplateOf(font_.get_symbology()),
                              ppBarFontSymbology::WinProc);
    ui_->edit_data_font = original;
    if (const HWND place = GetItem(kOptionsPlace); options_ && place) {
        RECT at = {};
        GetWindowRect(place, &at);
        MapWindowPoints(nullptr, GetWindow(), reinterpret_cast<POINT*>(&at), 2);
        SetWindowPos(options_, place, at.left, at.top, 0, 0,
                     SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    }
    if (before) DestroyWindow(before);
}

// ---- The user's acts ----------------------------------------------------------------------------

bool ppBarFontEdit::TakeChoice(uint16_t list) {
    const auto chosen = static_cast<int>(CB_GetCurSelData(list));
    switch (list) {
    case kSymbology:
        font_.change_symbology(chosen);
        symbology_changed_ = true;
        return true;
    case kRotation:
        font_.set_rotation(chosen);
        return true;
    case kModuleWidth:
        font_.set_mils(chosen);
        width_changed_ = true;
        return true;
    case kRatio:
        font_.set_ratio(chosen);
        return true;
    case kHumanReadable:
        font_.set_hr(chosen);
        return true;
    case kBarCodeCharacterSet:
        font_.attributes.char_set = static_cast<uint8_t>(chosen);
        return true;
    case kBarCodeAdjustment:
        font_.adjustment = static_cast<int16_t>(chosen);
        return true;
    default:
        return false;
    }
}

bool ppBarFontEdit::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (code == CBN_SELCHANGE && TakeChoice(id)) return false;
    if (code == BN_CLICKED && id == kMultiline) {
        font_.SetMultiline(IsDlgButtonChecked(GetWindow(), id) == BST_CHECKED);
        return false;
    }
    if (code == EN_UPDATE && id == kBarCodeName) {
        OString text;
        WM_GetText(id, text);
        font_.SetFontName(text);
        return false;
    }
    return prtpage::Command(id, code, value);
}

bool ppBarFontEdit::VerifyOkay() {
    if (!ui_->edit_data_font) return true;
    if (!VerifyFontName(*this, kBarCodeName, font_, TEXT_NEW_BAR_CODE_FONT)) return false;
    *static_cast<DataFont_BarCode*>(ui_->edit_data_font) = font_;
    return true;
}
