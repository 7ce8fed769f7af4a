#include "pages/status/pp_status_monitor.h"

#include "core/crc.h"
#include "locale/text_numbers.h"
#include "ui/prtui.h"

namespace {

enum : uint16_t {
    kShowOnError = 622,
    kShowIcon = 623,
    kQueryBeforeJob = 624,
    kVerifyJobComplete = 625,
    kOpenMonitor = 626,
    kCloseMonitor = 627
};

// The settings of the check boxes, in the order of the checksum.
constexpr struct {
    uint16_t box;
    bool (DriverSettings::*get)();
    void (DriverSettings::*set)(bool on);
} kMonitorBoxes[] = {
    {ppStatusMonitor::MONITOR_STATUS, &DriverSettings::MonitorStatus,
     &DriverSettings::SetMonitorStatus},
    {kShowOnError, &DriverSettings::ShowOnError, &DriverSettings::SetShowOnError},
    {kShowIcon, &DriverSettings::ShowIcon, &DriverSettings::SetShowIcon},
    {kQueryBeforeJob, &DriverSettings::QueryBeforeJob, &DriverSettings::SetQueryBeforeJob},
    {kVerifyJobComplete, &DriverSettings::VerifyJobComplete,
     &DriverSettings::SetVerifyJobComplete}};

} // namespace

void ppStatusMonitor::Init() {
    prtpage::Init();
    settings_.Load(registry_);
}

void ppStatusMonitor::Refresh(bool) {
    // What is shown for jobs depends on whether the printer is watched.
    for (const auto& box : kMonitorBoxes)
        CheckDlgButton(GetWindow(), box.box, (settings_.*box.get)() ? BST_CHECKED : BST_UNCHECKED);
    WM_Enable(kQueryBeforeJob, settings_.MonitorStatus());
    WM_Enable(kVerifyJobComplete, settings_.MonitorStatus());
    if (IsRestricted()) WM_EnableAll(false, 0, 0);
}

bool ppStatusMonitor::ReadBox(uint16_t id) {
    for (const auto& box : kMonitorBoxes) {
        if (box.box != id) continue;
        (settings_.*box.set)(IsDlgButtonChecked(GetWindow(), id) == BST_CHECKED);
        return true;
    }
    return false;
}

bool ppStatusMonitor::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (code != BN_CLICKED) return prtpage::Command(id, code, value);
    if (id == kOpenMonitor || id == kCloseMonitor) {
        RunMonitor(id == kOpenMonitor ? "open" : "close");
        return false;
    }
    return !ReadBox(id);
}

void ppStatusMonitor::RunMonitor(const char* verb) {
    prtui::rundll_statusmonitor(registry_.GetPrinterPart(), registry_.GetServerName(), verb,
                                SW_SHOWNORMAL);
}

bool ppStatusMonitor::Apply() {
    settings_.Save(registry_);
    if (settings_.HasFailed()) {
        ReportNotStored(GetString(TEXT_DRIVER_SETTINGS));
        return false;
    }
    return prtpage::Apply();
}

uint32_t ppStatusMonitor::GetCurrentCRC32() const {
    CRC32_Calculator checksum(0);
    for (const auto& box : kMonitorBoxes) checksum.CRC32(static_cast<char>((settings_.*box.get)()));
    return checksum.GetValue();
}
