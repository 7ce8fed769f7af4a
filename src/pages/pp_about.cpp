#include "pages/pp_about.h"

#include "model/prtmodel.h"
#include "pages/development/development_sheet.h"
#include "pages/reports/pp_version.h"
#include "ui/prtui.h"

namespace {

constexpr int kLogo = 100;
constexpr int kCopyright = 102;
constexpr int kSymbol = 103;
constexpr int kLicense = 110;
constexpr int kVersion = 111;

constexpr int kLogoBitmap = 901;
constexpr int kSymbolBitmap = 902;

// The maker's own brand, which shows the module's copyright; others have their own text.
constexpr char kOwnBrand[] = "oqv";

// The developers' secret, held while a button is pressed.
bool IsDeveloperCombination() {
    return GetKeyState(VK_CONTROL) < 0 && GetKeyState(VK_MENU) < 0 && GetKeyState(VK_SHIFT) < 0;
}

} // namespace

void ppAbout::Init() {
    prtpage::Init();
    if (GetModel() && OString(GetModel()->GetOEM()) == kOwnBrand)
        EM_SetText(kCopyright, GetUI()->GetCopyright());
    // The page shows the same whatever settings there are, and for those of no use to it, too.
    if (!config_) Refresh(true);
}

void ppAbout::Refresh(bool) {
    if (shown_) return;
    shown_ = true;
    for (HWND child = ::GetWindow(GetWindow(), GW_CHILD); child;
         child = ::GetWindow(child, GW_HWNDNEXT))
        ReplaceSpecialStrings(child);
    BMM_SetBitmap(kLogo, kLogoBitmap, true);
    BMM_SetBitmap(kSymbol, kSymbolBitmap, true);
}

bool ppAbout::Command(uint16_t id, uint16_t code, LPARAM) {
    if (code != BN_CLICKED) return true;
    switch (id) {
    case kLicense:
        ShowHelp("/base/License.html");
        return false;
    case kVersion:
        if (IsDeveloperCombination())
            ShowDevelopmentOptions(*this);
        else
            DialogModal("*:^INFORMATION", ppVersion::WinProc);
        return false;
    default:
        return true;
    }
}

bool ppAbout::PaletteChange(UINT message, WPARAM first, LPARAM second) {
    Forward(kLogo, message, first, second);
    return false;
}
