#include "driver/property_sheets.h"

#include "core/ascii.h"
#include "keys/shadow_keys.h"
#include "spooler/printer_info.h"

std::unique_ptr<prtui> OpenSheets(HANDLE printer, const DEVMODEW* in, uint32_t mode) {
    CreateShadow(PrinterInfo(printer).GetPrinterName());
    std::unique_ptr<prtui> ui(prtui::new_ext());
    if (ui) ui->init(printer, in, mode);
    if (ui && !ui->model) ui.reset();
    return ui;
}

LONG AnswerSheets(PROPSHEETUI_INFO& info, LPARAM parameter, HANDLE printer, const WCHAR* name,
                  const DOCUMENTPROPERTYHEADER* header) {
    auto* const ui = reinterpret_cast<prtui*>(info.UserData);
    switch (info.Reason) {
    case PROPSHEETUI_REASON_GET_INFO_HEADER:
        if (!ui || !parameter) return kNoSheets;
        return ui->ReasonGetInfoHeader(&info, reinterpret_cast<PROPSHEETUI_INFO_HEADER*>(parameter),
                                       name);
    case PROPSHEETUI_REASON_DESTROY:
        if (!ui) return kNoSheets;
        if (ui->commit_shadow) CommitShadow(PrinterInfo(printer).GetPrinterName());
        delete ui;
        info.UserData = 0;
        return 1;
    case PROPSHEETUI_REASON_SET_RESULT:
        if (!ui || !parameter) return kNoSheets;
        return ui->ReasonSetResult(&info, reinterpret_cast<const SETRESULT_INFO*>(parameter),
                                   header);
    default:
        return 1;
    }
}

bool IsExplorer(const char* path) {
    constexpr char kExplorer[] = "explorer.exe";
    constexpr int kLength = sizeof kExplorer - 1;
    for (; *path; ++path)
        if (xstrnicmp(path, kExplorer, kLength) == 0) return true;
    return false;
}
