#include "pages/status/pp_status_communication.h"

#include "core/crc.h"
#include "locale/text_numbers.h"
#include "pages/page_setup/field_values.h"
#include "pages/status/pp_status_monitor.h"
#include "ui/prtui.h"

namespace {

// The settings of the fields, in the order of the checksum, and their limits.
constexpr struct StatusField {
    uint16_t field;
    int32_t least;
    int32_t most;
    int32_t (DriverSettings::*get)();
    void (DriverSettings::*set)(int32_t number);
} kStatusFields[] = {
    {631, 500, 600000, &DriverSettings::GetWriteTimeout, &DriverSettings::SetWriteTimeout},
    {632, 500, 600000, &DriverSettings::GetJobCompleteTimeout,
     &DriverSettings::SetJobCompleteTimeout},
    {633, 100, 10000, &DriverSettings::GetQueryInterval, &DriverSettings::SetQueryInterval}};

const StatusField* FindStatusField(uint16_t id) {
    for (const StatusField& field : kStatusFields)
        if (field.field == id) return &field;
    return nullptr;
}

} // namespace

void ppStatusCommunication::Init() {
    prtpage::Init();
    settings_.Load(registry_);
}

void ppStatusCommunication::Refresh(bool all) {
    if (all || values_changed_)
        for (const StatusField& field : kStatusFields)
            EM_SetInt(field.field, (settings_.*field.get)());
    values_changed_ = false;
    if (all) {
        const bool monitored = IsMonitored();
        for (const StatusField& field : kStatusFields) WM_Enable(field.field, monitored);
    }
    if (IsRestricted()) WM_EnableAll(false, 0, 0);
}

bool ppStatusCommunication::IsMonitored() const {
    const HWND monitoring =
        GetSheet() ? reinterpret_cast<HWND>(SendMessageW(GetSheet(), PSM_INDEXTOHWND, 0, 0))
                   : nullptr;
    if (monitoring && GetDlgItem(monitoring, ppStatusMonitor::MONITOR_STATUS))
        return IsDlgButtonChecked(monitoring, ppStatusMonitor::MONITOR_STATUS) == BST_CHECKED;
    DriverSettings stored;
    stored.Load(registry_);
    return stored.MonitorStatus();
}

bool ppStatusCommunication::Command(uint16_t id, uint16_t code, LPARAM value) {
    const StatusField* const field = FindStatusField(id);
    if (field && code == EN_UPDATE) {
        (settings_.*field->set)(fitrange(EM_GetInt(id), field->least, field->most));
        return false;
    }
    if (field && code == EN_KILLFOCUS) {
        values_changed_ = true;
        return false;
    }
    return prtpage::Command(id, code, value);
}

bool ppStatusCommunication::SetActive() {
    WM_Refresh(true);
    return true;
}

bool ppStatusCommunication::Apply() {
    settings_.Save(registry_);
    if (settings_.HasFailed()) {
        ReportNotStored(GetString(TEXT_DRIVER_SETTINGS));
        return false;
    }
    return prtpage::Apply();
}

uint32_t ppStatusCommunication::GetCurrentCRC32() const {
    CRC32_Calculator checksum(0);
    for (const StatusField& field : kStatusFields) checksum.CRC32((settings_.*field.get)());
    return checksum.GetValue();
}
