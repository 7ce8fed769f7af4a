#include "pages/development/development_sheet.h"

#include "pages/development/pp_development.h"
#include "pages/development/pp_development_monitor.h"
#include "pages/development/pp_development_output.h"
#include "pages/development/pp_development_performance.h"
#include "ui/prt_prop_sheet.h"

void ShowDevelopmentOptions(prtpage& page) {
    prtPropSheet sheet;
    sheet.Init(page.GetUI());
    // Developers know the sheet by this name in every language.
    sheet.SetTitle("Development Options");
    sheet.AddPage("*:DEVELOPMENT/CONTROL", ppDevelopment::WinProc);
    sheet.AddPage("*:DEVELOPMENT/PERFORMANCE", ppDevelopmentPerformance::WinProc);
    sheet.AddPage("*:DEVELOPMENT/OUTPUT", ppDevelopmentOutput::WinProc);
    sheet.AddPage("*:DEVELOPMENT/MONITOR", ppDevelopmentMonitor::WinProc);
    sheet.Display(page.GetWindow());
}
