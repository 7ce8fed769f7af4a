// The dialog that adjusts the colours of pictures.
#pragma once

#include "ui/prtpage.h"
#include "ui/uslider.h"

// Five sliders and three check boxes, which edit the dithering settings at once; the framework
// takes that back when the user cancels.
class ppDitherColor : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppDitherColor>;

    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    const char* HelpTopic() override { return "/base/Graphics_Color.html"; }

private:
    static constexpr int kSliders = 5;

    USlider sliders_[kSliders];
};
