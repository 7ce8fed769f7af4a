// What a sheet has: the pages of each group, in their order. Defines prtui::AddPages and
// AddAboutPage, which belong to the UI object but need the pages.
#include "pages/pp_about.h"
#include "ui/prtui.h"

int32_t prtui::AddPages(uint32_t) {
    return 0;
}

bool prtui::AddAboutPage() {
    return AddPropertyPage("PAGE_ABOUT", ppAbout::WinProc);
}
