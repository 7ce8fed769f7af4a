// The page for the status monitor, which watches the printer and its jobs.
#pragma once

#include "model/driver_settings.h"
#include "ui/prtpage.h"

class ppStatusMonitor : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppStatusMonitor>;
    // The check box that tells whether the printer is watched.
    static constexpr uint16_t MONITOR_STATUS = 621;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    bool Apply() override;
    uint32_t GetCurrentCRC32() const override;
    const char* HelpTopic() override { return "/base/Status_Monitoring.html"; }

private:
    // Takes the state of a check box. False for another control.
    bool ReadBox(uint16_t id);
    void RunMonitor(const char* verb);

    mutable DriverSettings settings_; // reads values when they are first asked for
};
