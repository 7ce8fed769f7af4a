// The dialogs and sheets that printer actions open.
#include "ui/action_dialogs.h"

#include "locale/text_numbers.h"
#include "pages/advanced/pp_advanced_administration.h"
#include "pages/advanced/pp_advanced_specifications.h"
#include "pages/advanced/pp_office_compatibility.h"
#include "pages/advanced/pp_regional.h"
#include "pages/cache/pp_cache_settings.h"
#include "pages/cache/pp_manage_cache.h"
#include "pages/status/pp_status_communication.h"
#include "pages/status/pp_status_monitor.h"
#include "ui/prt_prop_sheet.h"

void ShowAdministration(prtpage& page) {
    prtPropSheet sheet;
    sheet.Init(page.GetUI());
    sheet.SetTitle(page.GetString(TEXT_ADMINISTRATION_SHEET));
    sheet.AddPage("*:DRIVER/ADMINISTRATION", ppAdvancedAdministration::WinProc);
    sheet.AddPage("*:DRIVER/REGIONAL_OPTIONS", ppRegional::WinProc);
    sheet.AddPage("*:DRIVER/SPECIFICATIONS", ppAdvancedSpecifications::WinProc);
    sheet.Display(page.GetWindow());
    page.WM_QuerySiblings(prtpage::REFRESH, TRUE);
}

void ShowOfficeCompatibility(prtpage& page) {
    page.DialogModal("*:FONTS/^OFFICE_COMPATIBILITY", ppOfficeCompatibility::WinProc);
}

void ShowStatusMonitor(prtpage& page) {
    prtPropSheet sheet;
    sheet.Init(page.GetUI());
    sheet.SetTitle(page.GetString(TEXT_STATUS_SHEET));
    sheet.AddPage("*:STATUS/MONITORING", ppStatusMonitor::WinProc);
    sheet.AddPage("*:STATUS/COMMUNICATIONS", ppStatusCommunication::WinProc);
    sheet.Display(page.GetWindow());
}

void ShowObjectCache(prtpage& page) {
    prtPropSheet sheet;
    sheet.Init(page.GetUI());
    sheet.SetTitle(page.GetString(TEXT_CACHE));
    sheet.AddPage("*:CACHE/SETTINGS", ppCacheSettings::WinProc);
    sheet.AddPage("*:CACHE/CONTENTS", ppManageCache::WinProc);
    sheet.Display(page.GetWindow());
}
