#include "zpl/pages/pp_stock.h"

#include <windows.h>

#include <commctrl.h>

#include "locale/text_numbers.h"
#include "ui/prtui.h"
#include "zpl/extconfig.h"
#include "zpl/extmodel.h"

namespace {

enum StockPageControl : uint16_t {
    MEDIA_TYPE = 1010,
    LABEL_TOP = 1026,
    BACKFEED_PERCENT = 1032,
    BACKFEED = 1036,
    MEDIA_TRACKING = 1040,
    PRINT_MODE = 1045,
    BACKFEED_PERCENT_LABEL = 1065,
    TEAR_OFF_FIELD = 1072,
    OPTION = 1075,
    OPTION_LABEL = 1076,
    COUNT = 1078,
    COUNT_ARROWS = 1079,
    PAUSE_AFTER_CUT = 1087,
    LABEL_TOP_SENT = 1095,
    TEAR_OFF_SENT = 1096,
    BACKFEED_LABEL = 1142
};

// The options in which a number of labels is counted; the others fix it or have none.
constexpr int kCutCounted = 2;
constexpr int kPauseEachLabel = 1;
constexpr int kPauseCounted = 3;

} // namespace

extconfig& ppStock::Config() const {
    return *extconfig::get_cfg(ui_->devmode.GetDevMode());
}

const extmodel& ppStock::Model() const {
    return AsZpl(*GetModel());
}

bool ppStock::Has(uint32_t flag) const {
    return (data_->flags & flag) != 0;
}

void ppStock::Init() {
    prtpage::Init();
    data_ = GetModel()->GetCustomData();
    media_type_.Bind(this, MEDIA_TYPE);
    media_tracking_.Bind(this, MEDIA_TRACKING);
    print_mode_.Bind(this, PRINT_MODE);
    backfeed_.Bind(this, BACKFEED);
    label_top_sent_.Bind(this, LABEL_TOP_SENT);
    label_top_.Bind(this, LABEL_TOP);
    tear_off_sent_.Bind(this, TEAR_OFF_SENT);
    tear_off_.Bind(this, TEAR_OFF_FIELD);
    print_mode_changed_.Chain(tear_off_changed_);
}

// ---- What the page shows ------------------------------------------------------------------------

void ppStock::Refresh(bool all) {
    Config().Validate(GetModel());
    if (all) {
        Forward(COUNT_ARROWS, UDM_SETRANGE32, 1, extconfig::MOST_LABELS);
        FillMedia();
        FillPrintModes();
    }
    if (print_mode_changed_.Get() || all) RefreshPrintMode();
    if (backfeed_changed_.Get() || all) RefreshBackfeed();
    if (label_top_changed_.Get() || all) RefreshLabelTop();
    if (tear_off_changed_.Get() || all) RefreshTearOff();
}

void ppStock::FillMedia() {
    media_type_.ResetContent();
    media_type_.AddString(GetString(TEXT_AS_SET), -1);
    if (!Has(CustomData::TRANSFER_ONLY)) media_type_.AddString(GetString(TEXT_DIRECT_THERMAL), 0);
    if (!Has(CustomData::DIRECT_ONLY)) media_type_.AddString(GetString(TEXT_THERMAL_TRANSFER), 1);
    media_type_.SetCurSelData(Config().media_type);
    if (media_type_.GetCount() == 1) {
        media_type_.SetCurSel(0);
        media_type_.Enable(false);
    }

    media_tracking_.ResetContent();
    media_tracking_.AddString(GetString(TEXT_AS_SET), -1);
    media_tracking_.AddString(GetString(TEXT_CONTINUOUS), 0);
    if (Has(CustomData::TRACKING_MARKS)) {
        media_tracking_.AddString(GetString(TEXT_GAP_OR_MARK), 2);
        media_tracking_.AddString(GetString(TEXT_MARK), 3);
    } else {
        media_tracking_.AddString(GetString(TEXT_GAP), 1);
    }
    media_tracking_.SetCurSelData(Config().media_tracking);
}

void ppStock::FillPrintModes() {
    const auto add = [this](int text, int16_t mode) {
        print_mode_.AddString(GetString(text), mode);
    };
    print_mode_.ResetContent();
    add(TEXT_AS_SET, extconfig::PRINT_AS_SET);
    add(TEXT_TEAR_OFF, extconfig::PRINT_TEAR_OFF);
    if (Model().HasPeelOffMode()) add(TEXT_PEEL_OFF, extconfig::PRINT_PEEL_OFF);
    if (!Model().IsPPLZ()) add(TEXT_REWIND, extconfig::PRINT_REWIND);
    if (Has(CustomData::CUTTER)) add(TEXT_CUTTER, extconfig::PRINT_CUTTER);
    if (Model().HasApplicatorMode()) add(TEXT_APPLICATOR, extconfig::PRINT_APPLICATOR);
    print_mode_.SetCurSelData(Config().print_mode);
}

void ppStock::RefreshPrintMode() {
    Config().SettlePrintMode();
    cuts_ = Config().print_mode == extconfig::PRINT_CUTTER;
    WM_Enable(PAUSE_AFTER_CUT, cuts_);
    SendMessageW(GetItem(PAUSE_AFTER_CUT), BM_SETCHECK, Config().get_pauseaftercut(), 0);
    EM_SetText(OPTION_LABEL, GetString(cuts_ ? TEXT_CUT_OPTIONS : TEXT_PAUSE_OPTIONS));
    CB_ResetContent(OPTION);
    if (cuts_)
        RefreshCutOptions();
    else
        RefreshPauseOptions();
}

void ppStock::RefreshCutOptions() {
    CB_AddString(OPTION, GetString(TEXT_CUT_EACH_LABEL), 0);
    CB_AddString(OPTION, GetString(TEXT_CUT_AFTER_JOB), 1);
    CB_AddString(OPTION, GetString(TEXT_CUT_SEVERAL), kCutCounted);
    CB_SetCurSelData(OPTION, Config().cut_variant);
    const auto option = static_cast<int>(CB_GetCurSelData(OPTION));
    ShowCount(option == 0 || option == kCutCounted, option == kCutCounted);
}

void ppStock::RefreshPauseOptions() {
    CB_AddString(OPTION, GetString(TEXT_PAUSE_NEVER), 0);
    CB_AddString(OPTION, GetString(TEXT_PAUSE_EACH_LABEL), kPauseEachLabel);
    CB_AddString(OPTION, GetString(TEXT_PAUSE_AFTER_JOB), 2);
    CB_AddString(OPTION, GetString(TEXT_PAUSE_SEVERAL), kPauseCounted);
    CB_SetCurSel(OPTION, Config().stock_option);
    const auto option = static_cast<int>(CB_GetCurSelData(OPTION));
    ShowCount(option == kPauseEachLabel || option == kPauseCounted, option == kPauseCounted);
    if (option == 0) EM_SetInt(COUNT, 0);
}

void ppStock::ShowCount(bool shown, bool enabled) {
    if (shown)
        EM_SetInt(COUNT, Config().stock_count);
    else
        EM_SetText(COUNT, OString());
    WM_Enable(COUNT, enabled);
    WM_Enable(COUNT_ARROWS, enabled);
}

void ppStock::RefreshBackfeed() {
    if (Model().IsPPLZ()) {
        for (const int id : {BACKFEED, BACKFEED_LABEL, BACKFEED_PERCENT, BACKFEED_PERCENT_LABEL})
            WM_Show(id, false);
        return;
    }
    backfeed_.ResetContent();
    backfeed_.AddString(GetString(TEXT_BACKFEED_NORMAL), 0);
    backfeed_.AddString(GetString(TEXT_BACKFEED_BEFORE), 1);
    backfeed_.AddString(GetString(TEXT_BACKFEED_AFTER), 2);
    if (Has(CustomData::BACKFEED_OFF)) backfeed_.AddString(GetString(TEXT_BACKFEED_OFF), 3);
    if (Has(CustomData::BACKFEED_PERCENTAGE))
        backfeed_.AddString(GetString(TEXT_BACKFEED_PERCENTAGE), extconfig::BACKFEED_PERCENTAGE);
    backfeed_.SetCurSelData(Config().backfeed);
    const bool by_percentage = Config().backfeed == extconfig::BACKFEED_PERCENTAGE;
    WM_Show(BACKFEED_PERCENT, by_percentage);
    WM_Show(BACKFEED_PERCENT_LABEL, by_percentage);
    if (by_percentage) EM_SetInt(BACKFEED_PERCENT, Config().backfeed_percentage);
}

void ppStock::RefreshLabelTop() {
    const bool possible = Model().GetLabelTopMax() != 0;
    const bool sent = (Config().setting_flags & extconfig::SETTING_LABEL_TOP) != 0;
    label_top_sent_.Enable(possible);
    label_top_sent_.Check(sent);
    label_top_.Enable(possible && sent);
    label_top_.SetText(possible && sent ? microns_to_string(Config().label_top) : OString());
}

void ppStock::RefreshTearOff() {
    const bool possible = Model().TearOff();
    const bool sent = (Config().setting_flags & extconfig::SETTING_TEAR_OFF) != 0;
    tear_off_sent_.Enable(possible && Config().print_mode <= extconfig::PRINT_TEAR_OFF);
    tear_off_sent_.Check(sent);
    tear_off_.Enable(possible && sent);
    tear_off_.SetText(possible && sent ? microns_to_string(Config().tear_off) : OString());
}

// ---- The user's acts ----------------------------------------------------------------------------

bool ppStock::Command(uint16_t id, uint16_t code, LPARAM) {
    switch (code) {
    case CBN_SELCHANGE:
        return !Chosen(id);
    case EN_UPDATE:
        Typed(id);
        return true;
    case EN_KILLFOCUS:
        return !Left(id);
    case BN_CLICKED:
        return !Clicked(id);
    default:
        return true;
    }
}

bool ppStock::Chosen(uint16_t id) {
    const auto data = static_cast<int32_t>(CB_GetCurSelData(id));
    switch (id) {
    case MEDIA_TYPE:
        Config().media_type = static_cast<int16_t>(data);
        return true;
    case MEDIA_TRACKING:
        Config().media_tracking = static_cast<int16_t>(data);
        return true;
    case PRINT_MODE:
        Config().print_mode = static_cast<int16_t>(data);
        print_mode_changed_.Set();
        return true;
    case BACKFEED:
        Config().backfeed = data;
        backfeed_changed_.Set();
        return true;
    case OPTION:
        if (Config().print_mode == extconfig::PRINT_CUTTER)
            Config().cut_variant = static_cast<int16_t>(data);
        else
            Config().stock_option = static_cast<int16_t>(data);
        print_mode_changed_.Set();
        return true;
    default:
        return false;
    }
}

void ppStock::Typed(uint16_t id) {
    constexpr int32_t kPercentStep = 10;
    switch (id) {
    case BACKFEED_PERCENT:
        Config().backfeed_percentage = EM_GetInt(id) / kPercentStep * kPercentStep;
        break;
    case LABEL_TOP:
        Config().label_top = EM_GetMicrons(id);
        break;
    case TEAR_OFF_FIELD:
        Config().tear_off = EM_GetMicrons(id);
        break;
    case COUNT:
        Config().stock_count = EM_GetInt(id);
        break;
    default:
        break;
    }
}

bool ppStock::Left(uint16_t id) {
    switch (id) {
    case BACKFEED_PERCENT:
        backfeed_changed_.Set();
        return true;
    case LABEL_TOP:
        label_top_changed_.Set();
        return true;
    case TEAR_OFF_FIELD:
        tear_off_changed_.Set();
        return true;
    case COUNT:
        print_mode_changed_.Set();
        return true;
    default:
        return false;
    }
}

bool ppStock::Clicked(uint16_t id) {
    const bool checked = Forward(id, BM_GETCHECK, 0, 0) == BST_CHECKED;
    switch (id) {
    case PAUSE_AFTER_CUT:
        SetFlag(extconfig::SETTING_PAUSE_AFTER_CUT, checked);
        return true;
    case LABEL_TOP_SENT:
        SetFlag(extconfig::SETTING_LABEL_TOP, checked);
        label_top_changed_.Set();
        return true;
    case TEAR_OFF_SENT:
        SetFlag(extconfig::SETTING_TEAR_OFF, checked);
        tear_off_changed_.Set();
        return true;
    default:
        return false;
    }
}

void ppStock::SetFlag(uint16_t flag, bool on) {
    uint16_t& flags = Config().setting_flags;
    flags = static_cast<uint16_t>(on ? flags | flag : flags & ~flag);
}
