// The page for darkness and speed.
#pragma once

#include "ui/prtpage.h"
#include "ui/uslider.h"
#include "zpl/extconfig.h"

class ppOptions : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppOptions>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    const char* HelpTopic() override { return "/zpl/Options.html"; }

private:
    // The settings inside the DEVMODE. Null if it has none of this printer language.
    extconfig* Settings() { return extconfig::get_cfg(devmode_.GetDevMode()); }

    void FillLists();
    void FillSpeeds(int list, int32_t selected);
    void ShowDarkness(const extconfig& settings);
    void ShowSpeeds(const extconfig& settings);
    bool OnClick(extconfig& settings, uint16_t id);
    bool OnSelection(extconfig& settings, uint16_t id);

    USlider darkness_;
    bool absolute_shown_ = false; // the range that the slider has
};
