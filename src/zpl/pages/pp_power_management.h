// The dialog for the battery of a mobile printer.
#pragma once

#include "ui/prtpage.h"
#include "zpl/extui.h"

class ppPowerManagement : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppPowerManagement>;

    // The first time, asks the printer for its readings.
    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    // Stores the settings and sends them to the printer.
    bool Apply() override;
    const char* HelpTopic() override { return "/zpl/PowerManagement.html"; }

private:
    extui& Zpl() const { return *static_cast<extui*>(GetUI()); }
    void ShowReadings();

    PowerSettings settings_;
    bool asked_ = false;
};
