// The dialog for how an RFID printer finds the tags of labels and what it does about bad ones.
#pragma once

#include "model/driver_settings.h"
#include "ui/prtpage.h"

class ppRFIDOptions : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppRFIDOptions>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    bool Apply() override;
    const char* HelpTopic() override { return "/base/RFID_Font_Edit.html"; }

private:
    // Takes what the user types in a field. False for another control.
    bool ReadField(uint16_t id);
    void ShowField(uint16_t id);

    DriverSettings settings_;
    int32_t offset_ = 0; // micrometres
    int32_t retries_ = 0;
    int32_t invalid_labels_ = 0;
    int32_t failure_action_ = 0;
};
