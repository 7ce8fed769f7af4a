#include "zpl/pages/pp_options.h"

#include "locale/text_numbers.h"
#include "zpl/extmodel.h"

namespace {

enum : uint16_t {
    kPrinterDarkness = 1201,
    kRelative = 1202,
    kAbsolute = 1203,
    kDarkness = 1204,
    kDarknessValue = 1205,
    kPrinterSpeeds = 1211,
    kPrintSpeed = 1212,
    kSlewSpeed = 1213,
    kBackfeedSpeed = 1214,
    kPrintSpeedLabel = 1215,
    kSlewSpeedLabel = 1216,
    kBackfeedSpeedLabel = 1217,
    kMode = 1221
};

constexpr int kDarknessLimit = 30;
constexpr int kDarknessPage = 5;
constexpr int32_t kMicronsPerInch = 25400;

// The fields of the packed settings have no references, so these read and write them.
int32_t SpeedOf(const extconfig& settings, uint16_t list) {
    if (list == kPrintSpeed) return settings.print_speed;
    return list == kSlewSpeed ? settings.slew_speed : settings.backfeed_speed;
}

void SetSpeed(extconfig& settings, uint16_t list, int32_t speed) {
    if (list == kPrintSpeed)
        settings.print_speed = speed;
    else if (list == kSlewSpeed)
        settings.slew_speed = speed;
    else
        settings.backfeed_speed = speed;
}

void SetFlag(extconfig& settings, uint16_t flag, bool on) {
    settings.setting_flags =
        static_cast<uint16_t>(on ? settings.setting_flags | flag : settings.setting_flags & ~flag);
}

} // namespace

void ppOptions::Init() {
    prtpage::Init();
    extconfig* const settings = Settings();
    if (!settings) return;
    settings->Validate(GetModel());
    darkness_.Bind(this, kDarkness);
    darkness_.SetTicFrequency(kDarknessPage);
    darkness_.SetPageSize(kDarknessPage);
    darkness_.Link(kDarknessValue);
}

void ppOptions::Refresh(bool all) {
    const extconfig* const settings = Settings();
    if (!settings) return;
    if (all) FillLists();
    ShowDarkness(*settings);
    ShowSpeeds(*settings);
}

void ppOptions::FillLists() {
    const extconfig& settings = *Settings();
    for (const uint16_t list : {kPrintSpeed, kSlewSpeed, kBackfeedSpeed})
        FillSpeeds(list, SpeedOf(settings, list));

    CB_ResetContent(kMode);
    CB_AddString(kMode, GetString(TEXT_MODE_STANDARD), 0);
    if (GetModel()->GetCustomData()->flags & CustomData::EXTENDED_OPTIONS) {
        CB_AddString(kMode, GetString(TEXT_MODE_EXTENDED_1), 3);
        CB_AddString(kMode, GetString(TEXT_MODE_EXTENDED_2), 4);
    }
    CB_AddString(kMode, GetString(TEXT_MODE_ALTERNATIVE_1), 1);
    CB_AddString(kMode, GetString(TEXT_MODE_ALTERNATIVE_2), 2);
    CB_SetCurSelData(kMode, settings.option);
}

// The model's speeds are in inches per second.
void ppOptions::FillSpeeds(int list, int32_t selected) {
    CB_ResetContent(list);
    for (const CustomData::Speed& speed : GetModel()->GetCustomData()->speeds)
        if (speed.value != 0) CB_AddSpeed(list, speed.value * kMicronsPerInch, speed.value);
    CB_SetCurSelData(list, selected);
}

void ppOptions::ShowDarkness(const extconfig& settings) {
    const bool sent = (settings.setting_flags & extconfig::SETTING_DARKNESS) != 0;
    const bool absolute = settings.IsAbsoluteDarkness();
    const bool can_choose =
        sent && (GetModel()->GetCustomData()->flags & CustomData::ABSOLUTE_DARKNESS);
    CheckDlgButton(GetWindow(), kPrinterDarkness, sent ? BST_UNCHECKED : BST_CHECKED);
    CheckRadioButton(GetWindow(), kRelative, kAbsolute, absolute ? kAbsolute : kRelative);
    WM_Enable(kRelative, can_choose);
    WM_Enable(kAbsolute, can_choose);
    WM_Enable(kDarkness, sent);
    WM_Enable(kDarknessValue, sent);
    if (absolute_shown_ != absolute || darkness_.IsInvalid())
        darkness_.SetRange(absolute ? 0 : -kDarknessLimit, kDarknessLimit);
    absolute_shown_ = absolute;
    if (darkness_.IsInvalid() || darkness_.GetValue() != settings.GetDarkness())
        darkness_.SetValue(settings.GetDarkness());
}

void ppOptions::ShowSpeeds(const extconfig& settings) {
    const bool sent = (settings.setting_flags & extconfig::SETTING_SPEEDS) != 0;
    const uint32_t abilities = GetModel()->GetCustomData()->flags;
    CheckDlgButton(GetWindow(), kPrinterSpeeds, sent ? BST_UNCHECKED : BST_CHECKED);
    const struct {
        uint16_t list;
        uint16_t label;
        bool possible;
    } lists[] = {
        {kPrintSpeed, kPrintSpeedLabel, true},
        {kSlewSpeed, kSlewSpeedLabel, (abilities & CustomData::SLEW_SPEED) != 0},
        {kBackfeedSpeed, kBackfeedSpeedLabel, (abilities & CustomData::BACKFEED_SPEED) != 0}};
    for (const auto& list : lists) {
        WM_Enable(list.list, sent && list.possible);
        WM_Enable(list.label, sent && list.possible);
    }
}

bool ppOptions::OnClick(extconfig& settings, uint16_t id) {
    const bool checked = IsDlgButtonChecked(GetWindow(), id) == BST_CHECKED;
    switch (id) {
    case kPrinterDarkness:
        SetFlag(settings, extconfig::SETTING_DARKNESS, !checked);
        return false;
    case kPrinterSpeeds:
        SetFlag(settings, extconfig::SETTING_SPEEDS, !checked);
        return false;
    case kRelative:
    case kAbsolute:
        settings.SetAbsoluteDarkness(id == kAbsolute);
        return false;
    default:
        return true;
    }
}

bool ppOptions::OnSelection(extconfig& settings, uint16_t id) {
    switch (id) {
    case kPrintSpeed:
    case kSlewSpeed:
    case kBackfeedSpeed:
        SetSpeed(settings, id, static_cast<int32_t>(CB_GetCurSelData(id)));
        return false;
    case kMode:
        settings.option = static_cast<int16_t>(CB_GetCurSelData(id));
        return false;
    default:
        return true;
    }
}

bool ppOptions::Command(uint16_t id, uint16_t code, LPARAM value) {
    extconfig* const settings = Settings();
    if (!settings) return true;
    if (id == kDarkness) { // the slider, with its value
        settings->SetDarkness(static_cast<int>(value));
        return false;
    }
    if (code == BN_CLICKED && !OnClick(*settings, id)) return false;
    if (code == CBN_SELCHANGE && !OnSelection(*settings, id)) return false;
    return prtpage::Command(id, code, value);
}
