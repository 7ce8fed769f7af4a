#include "pages/development/pp_development.h"

#include "model/prtmodel.h"
#include "ui/prtui.h"

namespace {

constexpr int kFontsButton = 692;

constexpr RegistryFlag kFontFlags[] = {{"SETTINGS:Cache Font Metrics", 152},
                                       {"DEBUG:Enumerate PFM Names", 149},
                                       {"DEBUG:No Condensed//Expanded Fonts", 147},
                                       {"DEBUG:No Magnified Fonts", 148},
                                       {"DEBUG:No Base Fonts", 150},
                                       {"DEBUG:No Bar Code Fonts", 151},
                                       {"DEBUG:Reuse Device Info", 0}};

} // namespace

ppDevelopment::ppDevelopment()
    : flags_(kFontFlags) {}

void ppDevelopment::Init() {
    prtpage::Init();
    flags_.Read(registry_);
    menu_.Load(ui_->locale, "*:DEVELOPMENT/CONTROL/MENU");
    button_.Bind(this, kFontsButton);
    button_.GetMenu() = menu_.GetSubMenu(0);
}

void ppDevelopment::Refresh(bool all) {
    if (!all) return;
    for (int i = 0; i < static_cast<int>(std::size(kFontFlags)); ++i)
        if (kFontFlags[i].control != 0) menu_.Check(kFontFlags[i].control, flags_.IsOn(i));
}

bool ppDevelopment::Command(uint16_t id, uint16_t code, LPARAM value) {
    const int flag = code == BN_CLICKED ? flags_.Find(id) : -1;
    if (flag < 0) return prtpage::Command(id, code, value);
    flags_.Set(flag, !flags_.IsOn(flag));
    menu_.Check(id, flags_.IsOn(flag));
    return false;
}

bool ppDevelopment::Apply() {
    flags_.Write(registry_);
    GetModel()->FlushDataCache();
    return prtpage::Apply();
}
