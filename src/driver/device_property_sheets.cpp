// DrvDevicePropertySheets: the properties of a printer.
#include "driver/property_sheets.h"
#include "zplui.h"

LONG WINAPI DrvDevicePropertySheets(PPROPSHEETUI_INFO info, LPARAM parameter) {
    const auto* header =
        reinterpret_cast<const DEVICEPROPERTYHEADER*>(info ? info->lParamInit : LPARAM{0});
    if (!header) return kNoSheets;
    if (info->Reason != PROPSHEETUI_REASON_INIT)
        return AnswerSheets(*info, parameter, header->hPrinter, header->pszPrinterName, nullptr);
    auto ui = OpenSheets(header->hPrinter, nullptr, 0);
    return ui ? ui.release()->InitDevSheets(info, header) : kNoSheets;
}
