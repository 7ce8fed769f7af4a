#include "zpl/pages/pp_printer_options.h"

#include "locale/text_numbers.h"

namespace {

enum : uint16_t {
    kReprint = 1231,
    kFeedsOfPrinter = 1232,
    kPowerUpFeed = 1233,
    kHeadCloseFeed = 1234,
    kPowerUpFeedLabel = 1235,
    kHeadCloseFeedLabel = 1236
};

constexpr int kFeedActions = 4; // TEXT_FIRST_MEDIA_FEED and those after it

constexpr char kReprintSetting[] = "Settings:Reprint After Error";
constexpr char kMediaFeedSetting[] = "Settings:Media Feed";
constexpr char kPowerUpSetting[] = "Settings:Media Feed (Power Up)";
constexpr char kHeadCloseSetting[] = "Settings:Media Feed (Head Close)";

} // namespace

void ppPrinterOptions::Init() {
    prtpage::Init();
    reprint_ = registry_.GetByte(kReprintSetting, reprint_) != 0;
    sends_feeds_ = registry_.GetByte(kMediaFeedSetting, sends_feeds_) != 0;
    power_up_feed_ = registry_.GetInt(kPowerUpSetting, power_up_feed_);
    head_close_feed_ = registry_.GetInt(kHeadCloseSetting, head_close_feed_);
}

void ppPrinterOptions::FillFeeds(int list, int32_t selected) {
    CB_ResetContent(list);
    for (int i = 0; i < kFeedActions; ++i)
        CB_AddString(list, GetString(TEXT_FIRST_MEDIA_FEED + i), i);
    CB_SetCurSelData(list, selected);
}

void ppPrinterOptions::Refresh(bool all) {
    if (all) {
        FillFeeds(kPowerUpFeed, power_up_feed_);
        FillFeeds(kHeadCloseFeed, head_close_feed_);
        CheckDlgButton(GetWindow(), kReprint, reprint_ ? BST_CHECKED : BST_UNCHECKED);
        CheckDlgButton(GetWindow(), kFeedsOfPrinter, sends_feeds_ ? BST_UNCHECKED : BST_CHECKED);
        if (IsRestricted()) WM_EnableAll(false, 0, 0);
    }
    for (const uint16_t id : {kPowerUpFeed, kHeadCloseFeed, kPowerUpFeedLabel, kHeadCloseFeedLabel})
        WM_Enable(id, sends_feeds_ && !IsRestricted());
}

bool ppPrinterOptions::Command(uint16_t id, uint16_t code, LPARAM value) {
    const bool checked = IsDlgButtonChecked(GetWindow(), id) == BST_CHECKED;
    if (id == kReprint && code == BN_CLICKED) {
        reprint_ = checked;
    } else if (id == kFeedsOfPrinter && code == BN_CLICKED) {
        sends_feeds_ = !checked;
    } else if (id == kPowerUpFeed && code == CBN_SELCHANGE) {
        power_up_feed_ = static_cast<int32_t>(CB_GetCurSelData(id));
    } else if (id == kHeadCloseFeed && code == CBN_SELCHANGE) {
        head_close_feed_ = static_cast<int32_t>(CB_GetCurSelData(id));
    } else {
        return prtpage::Command(id, code, value);
    }
    return false;
}

bool ppPrinterOptions::Apply() {
    if (!IsRestricted()) {
        const bool stored = registry_.SetByte(kReprintSetting, reprint_) &&
                            registry_.SetByte(kMediaFeedSetting, sends_feeds_) &&
                            registry_.SetInt(kPowerUpSetting, power_up_feed_) &&
                            registry_.SetInt(kHeadCloseSetting, head_close_feed_);
        if (!stored) {
            ReportNotStored(GetString(TEXT_PRINTER_OPTIONS));
            return false;
        }
    }
    return prtpage::Apply();
}
