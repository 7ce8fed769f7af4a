// A printer's settings for programs without a user interface.
#include <windows.h>

#include "keys/shadow_keys.h"
#include "spooler/printer_info.h"
#include "ui/prtui.h"
#include "zplui.h"

HANDLE WINAPI DAL_Printer_Open(HANDLE printer) {
    CreateShadow(PrinterInfo(printer).GetPrinterName());
    prtui* ui = prtui::new_ext();
    if (ui) ui->init(printer, nullptr, 0);
    return ui;
}

void WINAPI DAL_Printer_Close(HANDLE settings) {
    auto* ui = static_cast<prtui*>(settings);
    if (!ui) return;
    ui->Settings_Save();
    delete ui;
}
