#include "driver/settings_handle.h"

#include "ui/prtui.h"

prtui* PrinterOf(HANDLE settings) {
    auto* ui = static_cast<prtui*>(settings);
    return ui && ui->model && ui->stream ? ui : nullptr;
}

prtui* ChangeablePrinterOf(HANDLE settings) {
    prtui* ui = PrinterOf(settings);
    return ui && !ui->restricted ? ui : nullptr;
}
