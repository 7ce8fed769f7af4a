// DrvDocumentPropertySheets: document settings for programs, with and without property sheets.
#include "zplui.h"

#include <memory>

#include "driver/property_sheets.h"
#include "model/prtmodel.h"
#include "settings/dev_mode.h"
#include "spooler/printer_info.h"

namespace {

constexpr LONG kFailure = 0;

LONG MakeSettings(DOCUMENTPROPERTYHEADER& header) {
    const auto size = static_cast<DWORD>(DevMode::GetDefaultDevModeSize());
    if (!header.fMode || !header.pdmOut) {
        header.cbOut = size;
        return static_cast<LONG>(size);
    }
    if (header.fMode & DM_OUT_BUFFER && !HasRoom(header, size)) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return kFailure;
    }

    const PrinterInfo printer = PrinterInfo::Of(header.hPrinter, header.pszPrinterName);
    const std::unique_ptr<const prtmodel> model(prtmodel::new_ext(printer));
    if (!model) return kFailure;
    DevMode settings;
    settings.CreateDefault(model.get());
    if (!settings.GetDevMode()) return kFailure;
    settings.Merge(printer.GetDevMode(), model.get());
    if (header.fMode & DM_IN_BUFFER) settings.Merge(header.pdmIn, model.get());
    if (header.fMode & DM_OUT_BUFFER) settings.CopyTo(header.pdmOut);
    return IDOK;
}

// The printers folder edits the user's defaults.
uint32_t ModeOfCaller(uint32_t mode) {
    constexpr uint32_t kUserDefault = 0x40;
    char program[1024] = {};
    GetModuleFileNameA(nullptr, program, sizeof program - 1);
    return IsExplorer(program) ? mode | kUserDefault : mode;
}

} // namespace

LONG WINAPI DrvDocumentPropertySheets(PPROPSHEETUI_INFO info, LPARAM parameter) {
    auto* header = reinterpret_cast<DOCUMENTPROPERTYHEADER*>(info ? info->lParamInit : parameter);
    if (!header) return kFailure;
    if (!info) return MakeSettings(*header);
    if (info->Reason != PROPSHEETUI_REASON_INIT)
        return AnswerSheets(*info, parameter, header->hPrinter, header->pszPrinterName, header);
    auto ui = OpenSheets(header->hPrinter, header->pdmIn, ModeOfCaller(header->fMode));
    return ui ? ui.release()->InitDocSheets(info, header) : kNoSheets;
}
