#include "printer_sheets/printer_sheets.h"

#include "printer_sheets/driver_pages.h"
#include "printer_sheets/general_page.h"
#include "printer_sheets/printer_record.h"

#include <winddiui.h>

#include <utility>

namespace printer_sheets {
namespace {

// fMode: the user may not change anything.
constexpr DWORD kNoPermission = 0x20;

Ended EndedBy(LONG shown, DWORD result) {
    if (shown < 0) return Ended::Failed;
    return result == CPSUI_CANCEL ? Ended::Cancelled : Ended::Confirmed;
}

// The printer's properties while they are shown.
struct DeviceSheets {
    const DriverPages& driver;
    GeneralPage general;
    DEVICEPROPERTYHEADER header;
};

LONG CALLBACK DevicePages(PPROPSHEETUI_INFO info, LPARAM parameter) {
    auto& sheets = *reinterpret_cast<DeviceSheets*>(info->lParamInit);
    switch (info->Reason) {
    case PROPSHEETUI_REASON_INIT: {
        const auto add = [&](UINT function, LPARAM first, LPARAM second) {
            return info->pfnComPropSheet(info->hComPropSheet, function, first, second) > 0;
        };
        if (!add(CPSFUNC_ADD_PROPSHEETPAGEW, reinterpret_cast<LPARAM>(&sheets.general.Record()), 0))
            return -1;
        return add(CPSFUNC_ADD_PFNPROPSHEETUIW,
                   reinterpret_cast<LPARAM>(sheets.driver.DeviceSheets()),
                   reinterpret_cast<LPARAM>(&sheets.header))
                   ? 1
                   : -1;
    }
    case PROPSHEETUI_REASON_GET_INFO_HEADER: {
        auto& header = *reinterpret_cast<PROPSHEETUI_INFO_HEADER*>(parameter);
        header.Flags = PSUIHDRF_PROPTITLE;
        header.pTitle = sheets.header.pszPrinterName;
        return 1;
    }
    case PROPSHEETUI_REASON_SET_RESULT:
        info->Result =
            static_cast<ULONG_PTR>(reinterpret_cast<const SETRESULT_INFO*>(parameter)->Result);
        return 1;
    default:
        return 1;
    }
}

} // namespace

Ended ShowDocument(HWND owner, HANDLE printer, const Text& name, DEVMODEW* input,
                   std::vector<BYTE>& output) {
    output.clear();
    Text device = name;
    const LONG size = DocumentPropertiesW(owner, printer, device.data(), nullptr, nullptr, 0);
    if (size <= 0) return Ended::Failed;
    std::vector<BYTE> settings(static_cast<size_t>(size));
    const DWORD mode = DM_OUT_BUFFER | DM_IN_PROMPT | (input ? DM_IN_BUFFER : 0);
    const LONG answer = DocumentPropertiesW(
        owner, printer, device.data(), reinterpret_cast<DEVMODEW*>(settings.data()), input, mode);
    if (answer != IDOK && answer != IDCANCEL) return Ended::Failed;
    // A driver that was cancelled before anything was applied has stored nothing.
    if (reinterpret_cast<const DEVMODEW*>(settings.data())->dmSize != 0)
        output = std::move(settings);
    return answer == IDOK ? Ended::Confirmed : Ended::Cancelled;
}

Ended ShowDefaults(HWND owner, HANDLE printer, const Text& name, bool may_change) {
    const DriverPages driver(printer);
    if (!driver.DocumentSheets()) return Ended::Failed;
    PrinterRecord record(printer);
    if (!record.Get()) return Ended::Failed;
    Text device = name;
    const LONG size = DocumentPropertiesW(owner, printer, device.data(), nullptr, nullptr, 0);
    if (size <= 0) return Ended::Failed;
    std::vector<BYTE> settings(static_cast<size_t>(size));

    DOCUMENTPROPERTYHEADER header = {};
    header.cbSize = sizeof header;
    header.hPrinter = printer;
    header.pszPrinterName = device.data();
    header.pdmIn = record.Get()->pDevMode;
    header.pdmOut = reinterpret_cast<DEVMODEW*>(settings.data());
    header.cbOut = static_cast<DWORD>(size);
    header.fMode = DM_OUT_BUFFER | DM_IN_PROMPT | (header.pdmIn ? DM_IN_BUFFER : 0) |
                   (may_change ? DM_UPDATE : kNoPermission);
    DWORD result = CPSUI_CANCEL;
    const LONG shown = CommonPropertySheetUIW(owner, driver.DocumentSheets(),
                                              reinterpret_cast<LPARAM>(&header), &result);
    return EndedBy(shown, result);
}

Ended ShowDevice(HWND owner, HANDLE printer, const Text& name, bool may_change) {
    const DriverPages driver(printer);
    if (!driver.DeviceSheets()) return Ended::Failed;
    Text device = name;
    DeviceSheets sheets = {driver, GeneralPage(printer, may_change), {}};
    sheets.header.cbSize = sizeof sheets.header;
    sheets.header.Flags = may_change ? 0 : DPS_NOPERMISSION;
    sheets.header.hPrinter = printer;
    sheets.header.pszPrinterName = device.data();
    DWORD result = CPSUI_CANCEL;
    const LONG shown =
        CommonPropertySheetUIW(owner, DevicePages, reinterpret_cast<LPARAM>(&sheets), &result);
    return EndedBy(shown, result);
}

} // namespace printer_sheets
