// What the sheets of ZPL II printers have besides the framework's pages.
#include "zpl/extui.h"
#include "zpl/pages/pp_options.h"

int32_t extui::AddPages(uint32_t groups) {
    constexpr uint32_t kDocumentGroup = 2;
    int32_t pages = prtui::AddPages(groups);
    if (groups & kDocumentGroup) pages += AddPropertyPage("PAGE_OPTIONS", ppOptions::WinProc);
    return pages;
}
