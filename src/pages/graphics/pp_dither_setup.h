// The dialog that chooses the pattern of a dithering method.
#pragma once

#include "ui/prtpage.h"

class ppDitherSetup : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppDitherSetup>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    const char* HelpTopic() override { return "/base/Graphics_Dithering.html"; }

private:
    void FillPatterns();
    // What the list edits for the current method; null for a method without patterns.
    int16_t* Field();
};
