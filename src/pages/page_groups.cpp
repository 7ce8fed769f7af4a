// What a sheet has: the pages of each group, in their order. Defines prtui::AddPages and
// AddAboutPage, which belong to the UI object but need the pages.
#include "pages/cache/pp_cache_settings.h"
#include "pages/cache/pp_manage_cache.h"
#include "pages/fonts/pp_fonts.h"
#include "pages/graphics/pp_graphics.h"
#include "pages/page_setup/pp_page_setup.h"
#include "pages/pp_about.h"
#include "pages/tools/pp_tools.h"
#include "ui/prtui.h"

int32_t prtui::AddPages(uint32_t groups) {
    int32_t pages = 0;
    if (groups & PAGE_SETUP) pages += AddPropertyPage("*:PAGE_SETUP", ppPageSetup::WinProc);
    if (groups & DOCUMENT_PAGES) pages += AddPropertyPage("*:GRAPHICS", ppGraphics::WinProc);
    if (groups & PRINTER_PAGES &&
        (model->HasBarCodes() || model->HasDeviceFonts() || model->CanDownloadFont()))
        pages += AddPropertyPage("*:FONTS", ppFonts::WinProc);
    if (groups & PRINTER_PAGES) pages += AddPropertyPage("*:TOOLS", ppTools::WinProc);
    CacheParameters cache;
    if (groups & CACHE_PAGES) GetCacheParameters(cache);
    if (cache.largest_memory > 0) {
        pages += AddPropertyPage("*:CACHE/SETTINGS", ppCacheSettings::WinProc);
        pages += AddPropertyPage("*:CACHE/CONTENTS", ppManageCache::WinProc);
    }
    return pages;
}

bool prtui::AddAboutPage() {
    return AddPropertyPage("PAGE_ABOUT", ppAbout::WinProc);
}
