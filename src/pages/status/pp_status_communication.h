// The page for how the status monitor talks to the printer.
#pragma once

#include "model/driver_settings.h"
#include "ui/prtpage.h"

// Its fields are enabled while the monitor watches the printer, as the first page of the sheet
// shows it or, before that was shown, as it is stored.
class ppStatusCommunication : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppStatusCommunication>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    bool Apply() override;
    bool SetActive() override;
    uint32_t GetCurrentCRC32() const override;
    const char* HelpTopic() override { return "/base/Status_Communications.html"; }

private:
    bool IsMonitored() const;

    mutable DriverSettings settings_; // reads values when they are first asked for
    // What the next refresh brings up to date.
    bool values_changed_ = false;
};
