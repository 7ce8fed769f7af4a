// The last page of every sheet: what the driver is, and whose.
#pragma once

#include "ui/prtpage.h"

class ppAbout : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppAbout>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    bool PaletteChange(UINT message, WPARAM first, LPARAM second) override;
    const char* HelpTopic() override { return "/base/Introduction.html"; }

private:
    bool shown_ = false;
};
