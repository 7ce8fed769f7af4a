#include "zpl/pages/pp_power_management.h"

#include "locale/text_numbers.h"
#include "ui/wait_cursor.h"
#include "zpl/zpl_query.h"

namespace {

enum : uint16_t {
    kBatteryVoltage = 1241,
    kHeadVoltage = 1242,
    kTemperature = 1243,
    kSleep = 1244,
    kTimeout = 1245,
    kForcedSleep = 1246,
    kLowVoltagePause = 1247,
    kDischarge = 1248
};

} // namespace

void ppPowerManagement::Init() {
    prtpage::Init();
    settings_ = Zpl().GetPowerSettings();
}

void ppPowerManagement::Refresh(bool all) {
    if (all) {
        const auto check = [&](int id, bool on) {
            CheckDlgButton(GetWindow(), id, on ? BST_CHECKED : BST_UNCHECKED);
        };
        check(kSleep, settings_.sleep);
        check(kForcedSleep, settings_.forced_sleep);
        check(kLowVoltagePause, settings_.low_voltage_pause);
        EM_SetInt(kTimeout, settings_.timeout);
        if (IsRestricted()) WM_EnableAll(false, 0, 0);
    }
    if (!asked_) {
        asked_ = true;
        // The user sees the dialog while the printer takes its time.
        ShowWindow(GetWindow(), SW_SHOW);
        UpdateWindow(GetWindow());
        ShowReadings();
    }
}

void ppPowerManagement::ShowReadings() {
    PowerReadings readings;
    bool answered = false;
    {
        const WaitCursor wait;
        answered =
            RunPowerQuery(GetWindow(), *static_cast<extstream*>(GetUI()->stream),
                          GetString(TEXT_POWER_QUERY_JOB), GetString(TEXT_POWER_QUERY), readings);
    }
    if (!answered) readings = {};
    EM_SetText(kBatteryVoltage, readings.battery_voltage);
    EM_SetText(kHeadVoltage, readings.head_voltage);
    EM_SetText(kTemperature, readings.battery_temperature);
    if (!answered)
        Message(GetString(TEXT_NO_POWER_READINGS), GetString(TEXT_POWER_TITLE),
                MB_OK | MB_ICONEXCLAMATION);
}

bool ppPowerManagement::Command(uint16_t id, uint16_t code, LPARAM value) {
    const bool checked = IsDlgButtonChecked(GetWindow(), id) == BST_CHECKED;
    if (id == kTimeout && code == EN_UPDATE) {
        settings_.timeout = EM_GetInt(kTimeout);
        return false;
    }
    if (code != BN_CLICKED) return prtpage::Command(id, code, value);
    switch (id) {
    case kSleep:
        settings_.sleep = checked;
        return false;
    case kForcedSleep:
        settings_.forced_sleep = checked;
        return false;
    case kLowVoltagePause:
        settings_.low_voltage_pause = checked;
        return false;
    case kDischarge:
        Zpl().DischargeBattery();
        return false;
    default:
        return prtpage::Command(id, code, value);
    }
}

bool ppPowerManagement::Apply() {
    if (!Zpl().SetPowerSettings(settings_)) {
        ReportNotStored(GetString(TEXT_POWER_MANAGEMENT));
        return false;
    }
    return prtpage::Apply();
}
