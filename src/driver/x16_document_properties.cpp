// X16_DocumentProperties: the property sheets for the 16-bit driver, which runs the module in a
// process of its own.
#include "zplui.h"

#include <memory>

#include "core/obuffer.h"
#include "driver/bridge16/property_sheets16.h"
#include "registry/oregistry.h"
#include "settings/dev_mode_extent.h"
#include "spooler/open_printer.h"
#include "spooler/printer_info.h"
#include "ui/prtui.h"

namespace {

// The printer's settings as the 16-bit driver has them. Without a buffer if it gave none that can
// be understood, and without a model.
void ReadSettings16(const Channel16& channel, HANDLE printer, DevMode& settings) {
    ORegistry registry;
    const OString path = channel.ValuePath("DevMode 16");
    const int32_t size = registry.GetSize(path);
    if (size <= 0) return;
    const std::unique_ptr<const prtmodel> model(prtmodel::new_ext(PrinterInfo(printer)));
    OBuffer<char> settings16(static_cast<uint32_t>(size));
    if (!model || registry.GetBinary(path, settings16.GetData(), settings16.GetSize()) != size ||
        DevModeExtent<DEVMODE16>(settings16.GetData(), settings16.GetSize()) == 0)
        return;
    settings.CreateDefault(model.get());
    settings.Convert(settings16.GetData());
}

// Which pages there are. Another program may have left which ones the user wants to see.
uint32_t ChoosePages(const Channel16& channel, prtui& ui) {
    constexpr char kWanted[] = "DATA:FW Message";
    uint32_t groups = prtui::DOCUMENT_PAGES | prtui::PAGE_SETUP;
    if (channel.EditsDefaults()) groups |= prtui::PRINTER_PAGES;
    if (channel.Wants("Advanced Setup")) groups &= ~uint32_t{prtui::PAGE_SETUP};
    prtreg registry(ui.model->GetRegistry());
    const uint32_t wanted = registry.GetDWORD(kWanted, 0);
    if (wanted == 1 || wanted == 4) {
        groups = wanted == 1 ? prtui::PRINTER_PAGES : prtui::CACHE_PAGES;
        ui.start_on_last = false;
    }
    if (wanted != 0) registry.Delete(kWanted, false);
    return groups;
}

void ShowSheet(const Channel16& channel, HANDLE printer) {
    DevMode settings;
    ReadSettings16(channel, printer, settings);
    const std::unique_ptr<prtui> ui(prtui::new_ext());
    if (!ui) return;
    ui->init(printer, settings.GetDevMode(), DM_IN_BUFFER);
    if (!ui->model) return;
    ui->channel16 = channel;
    ui->BeginEditing();
    ui->AddPages(ChoosePages(channel, *ui));
    ui->AddAboutPage();
    if (channel.Wants("Properties"))
        X16_AppendPropertySheet(ui.get());
    else
        X16_CreatePropertySheet(ui.get(), GetParent(channel.GetWindow()));
}

} // namespace

void WINAPI X16_DocumentProperties(HWND, HINSTANCE, char* command_line, int) {
    Channel16 channel;
    if (!channel.Open(OString(command_line))) return;
    SendMessageW(channel.GetWindow(), Channel16::STARTED, 0, 0);
    channel.SetEditsDefaults(channel.Wants("Default DevMode"));
    {
        const OpenPrinter printer(ORegistry().GetString(channel.ValuePath("Printer"), ""),
                                  PRINTER_ALL_ACCESS);
        if (printer.Get()) ShowSheet(channel, printer.Get());
    }
    PostMessageW(channel.GetWindow(), Channel16::ENDED, 2, 0);
}
