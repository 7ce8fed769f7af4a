// What a sheet has besides the pages of all printers. Defines extui::AddPages.
#include "zpl/extui.h"
#include "zpl/pages/pp_options.h"
#include "zpl/pages/pp_stock.h"

int32_t extui::AddPages(uint32_t groups) {
    int32_t pages = prtui::AddPages(groups);
    if (groups & DOCUMENT_PAGES) {
        pages += AddPropertyPage("PAGE_STOCK", ppStock::WinProc);
        pages += AddPropertyPage("PAGE_OPTIONS", ppOptions::WinProc);
    }
    return pages;
}
