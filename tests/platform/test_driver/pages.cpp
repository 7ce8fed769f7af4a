// The page of the test driver, which makes nine copies of everything.
#include <winddiui.h>
#include <windows.h>

#include <prsht.h>

namespace {

PROPSHEETUI_INFO g_sheet; // tests open one at a time

INT_PTR CALLBACK PageProcedure(HWND, UINT message, WPARAM, LPARAM second) {
    const UINT code = message == WM_NOTIFY ? reinterpret_cast<const NMHDR*>(second)->code : 0;
    if (code == PSN_APPLY || code == PSN_RESET)
        g_sheet.pfnComPropSheet(g_sheet.hComPropSheet, CPSFUNC_SET_RESULT, 0, code == PSN_APPLY);
    return FALSE;
}

LONG AddPage(const PROPSHEETUI_INFO& info) {
    static const WORD kTemplate[] = {0, 0x4000, 0, 0, 0, 0, 0, 100, 50, 0, 0, 0}; // without items
    g_sheet = info;
    PROPSHEETPAGEW page = {};
    page.dwSize = sizeof page;
    page.dwFlags = PSP_DLGINDIRECT | PSP_USETITLE;
    page.pResource = reinterpret_cast<LPCDLGTEMPLATEW>(kTemplate);
    page.pszTitle = u"Driver";
    page.pfnDlgProc = PageProcedure;
    return info.pfnComPropSheet(info.hComPropSheet, CPSFUNC_ADD_PROPSHEETPAGEW,
                                reinterpret_cast<LPARAM>(&page), 0) != 0;
}

} // namespace

extern "C" {

__declspec(dllexport) LONG WINAPI
    DrvDocumentPropertySheets(PROPSHEETUI_INFO* info, LPARAM parameter) {
    if (!info) return sizeof(DEVMODEW) + 8;
    const auto& header = *reinterpret_cast<const DOCUMENTPROPERTYHEADER*>(info->lParamInit);
    if (info->Reason == PROPSHEETUI_REASON_INIT) return header.pdmOut ? AddPage(*info) : -1;
    if (info->Reason == PROPSHEETUI_REASON_GET_INFO_HEADER)
        *reinterpret_cast<PROPSHEETUI_INFO_HEADER*>(parameter) = {sizeof(PROPSHEETUI_INFO_HEADER),
                                                                  PSUIHDRF_PROPTITLE,
                                                                  header.pszPrinterName,
                                                                  nullptr,
                                                                  nullptr,
                                                                  {}};
    if (info->Reason == PROPSHEETUI_REASON_SET_RESULT &&
        reinterpret_cast<const SETRESULT_INFO*>(parameter)->Result == CPSUI_OK) {
        header.pdmOut->dmSize = sizeof(DEVMODEW);
        header.pdmOut->dmCopies = 9;
    }
    return 1;
}

__declspec(dllexport) LONG WINAPI DrvDevicePropertySheets(PROPSHEETUI_INFO* info, LPARAM) {
    return info->Reason == PROPSHEETUI_REASON_INIT ? AddPage(*info) : 1;
}

} // extern "C"
