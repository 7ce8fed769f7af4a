// What a sheet has: the pages of each group, in their order. Defines prtui::AddPages and
// AddAboutPage, which belong to the UI object but need the pages.
#include "pages/graphics/pp_graphics.h"
#include "pages/pp_about.h"
#include "pages/tools/pp_tools.h"
#include "ui/prtui.h"

namespace {

// Groups of pages, as AddPages takes them.
constexpr uint32_t kToolsGroup = 1;
constexpr uint32_t kGraphicsGroup = 2;

} // namespace

int32_t prtui::AddPages(uint32_t groups) {
    int32_t pages = 0;
    if (groups & kGraphicsGroup) pages += AddPropertyPage("*:GRAPHICS", ppGraphics::WinProc);
    if (groups & kToolsGroup) pages += AddPropertyPage("*:TOOLS", ppTools::WinProc);
    return pages;
}

bool prtui::AddAboutPage() {
    return AddPropertyPage("PAGE_ABOUT", ppAbout::WinProc);
}
