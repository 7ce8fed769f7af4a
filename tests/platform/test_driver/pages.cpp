// The pages of the test driver: one that makes nine copies of everything.
#include <winddiui.h>
#include <windows.h>

#include <prsht.h>

#include <cstring>

namespace {

constexpr WORD kExtra = 8;

struct PageOwner {
    HANDLE sheet;
    PFNCOMPROPSHEET call;
};
PageOwner g_owner; // tests open one sheet at a time

// A dialog without items.
const WORD kTemplate[] = {0x0000, 0x4000, 0, 0, 0, 0, 0, 100, 50, 0, 0, 0};

INT_PTR CALLBACK PageProcedure(HWND, UINT message, WPARAM, LPARAM second) {
    if (message != WM_NOTIFY) return FALSE;
    const UINT code = reinterpret_cast<const NMHDR*>(second)->code;
    if (code != PSN_APPLY && code != PSN_RESET) return FALSE;
    g_owner.call(g_owner.sheet, CPSFUNC_SET_RESULT, 0, code == PSN_APPLY ? CPSUI_OK : CPSUI_CANCEL);
    return FALSE;
}

LONG AddPage(const PROPSHEETUI_INFO& info) {
    g_owner = {info.hComPropSheet, info.pfnComPropSheet};
    PROPSHEETPAGEW page = {};
    page.dwSize = sizeof page;
    page.dwFlags = PSP_DLGINDIRECT | PSP_USETITLE;
    page.pResource = reinterpret_cast<LPCDLGTEMPLATEW>(kTemplate);
    page.pszTitle = u"Driver";
    page.pfnDlgProc = PageProcedure;
    return g_owner.call(g_owner.sheet, CPSFUNC_ADD_PROPSHEETPAGEW, reinterpret_cast<LPARAM>(&page),
                        0) != 0
               ? 1
               : -1;
}

void Make(const DOCUMENTPROPERTYHEADER& header) {
    DEVMODEW made = {};
    made.dmSpecVersion = 0x401;
    made.dmSize = sizeof made;
    made.dmDriverExtra = kExtra;
    made.dmCopies = 9;
    std::memset(header.pdmOut, 0, sizeof made + kExtra);
    std::memcpy(header.pdmOut, &made, sizeof made);
}

} // namespace

extern "C" {

__declspec(dllexport) LONG WINAPI
    DrvDocumentPropertySheets(PROPSHEETUI_INFO* info, LPARAM parameter) {
    if (!info) return sizeof(DEVMODEW) + kExtra;
    const auto& header = *reinterpret_cast<const DOCUMENTPROPERTYHEADER*>(info->lParamInit);
    switch (info->Reason) {
    case PROPSHEETUI_REASON_INIT:
        return header.pdmOut ? AddPage(*info) : -1;
    case PROPSHEETUI_REASON_GET_INFO_HEADER: {
        auto& asked = *reinterpret_cast<PROPSHEETUI_INFO_HEADER*>(parameter);
        asked.Flags = PSUIHDRF_PROPTITLE;
        asked.pTitle = header.pszPrinterName;
        return 1;
    }
    case PROPSHEETUI_REASON_SET_RESULT:
        if (reinterpret_cast<const SETRESULT_INFO*>(parameter)->Result == CPSUI_OK) Make(header);
        return 1;
    default:
        return 1;
    }
}

__declspec(dllexport) LONG WINAPI DrvDevicePropertySheets(PROPSHEETUI_INFO* info, LPARAM) {
    return info->Reason == PROPSHEETUI_REASON_INIT ? AddPage(*info) : 1;
}

} // extern "C"
