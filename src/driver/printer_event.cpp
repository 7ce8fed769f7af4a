// Events in the life of a printer: DrvPrinterEvent and DrvUpgradePrinter.
#include "zplui.h"

#include <memory>

#include "driver/fail.h"
#include "driver/version_check.h"
#include "model/prtmodel.h"
#include "settings/dev_mode.h"
#include "spooler/open_printer.h"
#include "spooler/printer_info.h"

namespace {

std::unique_ptr<prtmodel> ModelOf(HANDLE printer) {
    return std::unique_ptr<prtmodel>(prtmodel::new_ext(PrinterInfo(printer)));
}

// Brings the printer's default DEVMODE into the current layout and within the model's limits. These
// are not known of a model that could not be read whole: the DEVMODE then stays as it is, and the
// answer is FALSE.
BOOL UpgradeDefaultDevMode(HANDLE printer, const prtmodel* model) {
    PrinterInfo info(printer);
    DevMode settings;
    settings.CreateDefault(model);
    settings.Merge(info.GetDevMode(), model);
    if (!model->WasReadWhole()) return FALSE;
    info.SetDevMode(settings.GetDevMode());
    return TRUE;
}

void InstallDefaults(prtmodel& model) {
    model.InitializeDriverSettings();
    model.InstallDefault_BarFonts();
    model.InstallDefault_Presets();
    model.InstallDefault_Stocks();
}

BOOL AddConnection(const OString& name) {
    if (!CheckWindowsVersion()) {
        DisplayVersionWarning();
        return FALSE;
    }
    const OpenPrinter printer(name, PRINTER_ACCESS_USE);
    if (!printer.Get()) return TRUE;
    const auto model = ModelOf(printer.Get());
    if (model) {
        InstallDefaults(*model);
        model->RecordDataToReg();
    }
    return TRUE;
}

BOOL Initialize(const OString& name) {
    const OpenPrinter printer(name, PRINTER_ALL_ACCESS);
    if (!printer.Get()) return FALSE;
    if (!CheckWindowsVersion()) {
        DisplayVersionWarning();
        WriteVersionError(printer.Get());
        return FALSE;
    }
    const auto model = ModelOf(printer.Get());
    if (!model) return FALSE;
    const BOOL result = UpgradeDefaultDevMode(printer.Get(), model.get());
    InstallDefaults(*model);
    model->RecordDataToReg();
    return result;
}

} // namespace

BOOL WINAPI DrvPrinterEvent(LPWSTR printer, int event, DWORD, LPARAM) {
    switch (event) {
    case PRINTER_EVENT_ADD_CONNECTION:
        return AddConnection(OString(printer));
    case PRINTER_EVENT_INITIALIZE:
        return Initialize(OString(printer));
    default:
        return FALSE;
    }
}

BOOL WINAPI DrvUpgradePrinter(DWORD, LPBYTE info) {
    if (!info) return Fail(ERROR_INVALID_PARAMETER);
    const OString name(reinterpret_cast<const DRIVER_UPGRADE_INFO_1W*>(info)->pPrinterName);
    const OpenPrinter printer(name, PRINTER_ALL_ACCESS);
    if (!printer.Get()) return Fail(ERROR_INVALID_PARAMETER);
    if (!CheckWindowsVersion()) {
        WriteVersionError(printer.Get());
        return Fail(ERROR_BAD_DRIVER);
    }
    const auto model = ModelOf(printer.Get());
    if (!model) return FALSE;
    const BOOL result = UpgradeDefaultDevMode(printer.Get(), model.get());
    InstallDefaults(*model);
    return result;
}
