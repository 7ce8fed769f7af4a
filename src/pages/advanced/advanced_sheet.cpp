#include "pages/advanced/advanced_sheet.h"

#include "locale/text_numbers.h"
#include "pages/advanced/pp_advanced.h"
#include "pages/advanced/pp_advanced_driver.h"
#include "ui/prt_prop_sheet.h"

void ShowAdvancedSheet(prtpage& page) {
    prtPropSheet sheet;
    sheet.Init(page.GetUI());
    sheet.SetTitle(page.GetString(TEXT_ADVANCED_SHEET));
    sheet.AddPage("*:ADVANCED/USER_COMMANDS", ppAdvanced::WinProc);
    sheet.AddPage("*:ADVANCED/DRIVER_OPTIONS", ppAdvancedDriver::WinProc);
    sheet.Display(page.GetWindow());
}
