// The UI object in a property sheet.
#include "spooler/platform_flags.h"
#include "spooler/printer_info.h"
#include "ui/prtpage.h"
#include "ui/prtui.h"
#include "ui/window_hook.h"

namespace {

// Where other programs leave which pages of a device the user wants to see next.
constexpr char kWantedPages[] = "DATA:FW Message";
constexpr uint32_t kCacheWanted = 4;

// Bits of a sheet's mode that some headers lack.
constexpr uint32_t kNoPermission = 0x20; // documents: view only
constexpr uint32_t kUserDefault = 0x40;  // the user's default settings

// The printer's icon among those of the common property sheets.
constexpr ULONG_PTR kPrinterIcon = 64082;

} // namespace

bool prtui::AddPropertyPage(const OString& name, DLGPROC procedure) {
    if (!winNT) return pages16.Add(name, procedure);
    return prtpage::InsertPage(this, nullptr, INSPSUIPAGE_MODE_LAST_CHILD, name, procedure);
}

void prtui::BeginEditing() {
    SettleAll();
    devmode_crc = devmode.GetCRC32();
}

LONG prtui::TakeSheet(PROPSHEETUI_INFO* info, uint32_t groups) {
    sheet.Open(*info);
    AddPages(groups);
    AddAboutPage();
    sheet.ReadPages();
    info->UserData = reinterpret_cast<ULONG_PTR>(this);
    info->Result = 0;
    return 1;
}

// Afterwards showing the pages changes nothing, and settings that came from a preset still are
// equal to it.
void prtui::SettleAll() {
    Settle(devmode);
    if (!stocks.Find(devmode.GetDevMode())) devmode.SetStock(stocks.Find(int16_t{DMPAPER_USER}));
    presets.Settle([this](DevMode& settings) { Settle(settings); });
}

void prtui::Settle(DevMode& settings) const {
    if (prtconfig* const config = settings.GetConfiguration()) config->Validate(model.get());
}

LONG prtui::InitDevSheets(PROPSHEETUI_INFO* info, const DEVICEPROPERTYHEADER* header) {
    no_permission = (header->Flags & DPS_NOPERMISSION) != 0;
    uint32_t groups = PRINTER_PAGES;
    prtreg registry(model->GetRegistry()); // its failures are not the model's
    if (const uint32_t wanted = registry.GetDWORD(kWantedPages, 0)) {
        if (wanted == kCacheWanted) {
            groups = CACHE_PAGES;
            start_on_last = false;
        }
        registry.SetDWORD(kWantedPages, 0);
    }
    const LONG result = TakeSheet(info, groups);
    WindowHook_Install(this);
    return result;
}

LONG prtui::InitDocSheets(PROPSHEETUI_INFO* info, const DOCUMENTPROPERTYHEADER* header) {
    no_permission = (header->fMode & kNoPermission) != 0;
    if (!is_default_dm()) start_on_last = false;
    BeginEditing();
    return TakeSheet(info, PAGE_SETUP | DOCUMENT_PAGES);
}

LONG prtui::ReasonGetInfoHeader(PROPSHEETUI_INFO*, PROPSHEETUI_INFO_HEADER* header,
                                const WCHAR* printer) {
    header->Flags = PSUIHDRF_PROPTITLE;
    header->pTitle = const_cast<WCHAR*>(printer);
    header->hInst = locale.GetModule();
    header->IconID = kPrinterIcon;
    return 1;
}

LONG prtui::ReasonSetResult(PROPSHEETUI_INFO* info, const SETRESULT_INFO* result,
                            const DOCUMENTPROPERTYHEADER* header) {
    DEVMODEW* const settings = devmode.GetDevMode();
    if (header && settings) {
        const bool in_place = header->pdmIn == header->pdmOut;
        const bool has_room = HasRoom(*header, size_t{settings->dmSize} + settings->dmDriverExtra);
        if (result->Result == CPSUI_OK) {
            if (header->fMode & (DM_UPDATE | DM_COPY)) {
                if (in_place)
                    DevMode::MergeDevMode(header->pdmOut, settings, model.get());
                else if (has_room)
                    devmode.CopyTo(header->pdmOut);
            }
            if (header->fMode & DM_UPDATE && is_whole) PrinterInfo(hprinter).SetDevMode(settings);
        } else if (result->Result == CPSUI_CANCEL && header->fMode & DM_COPY) {
            if (has_room) devmode_saved.CopyTo(header->pdmOut);
        }
    }
    info->Result = static_cast<ULONG_PTR>(result->Result);
    return 1;
}

bool prtui::Apply() {
    const DEVMODEW* const settings = devmode.GetDevMode();
    if (settings && devmode_saved.GetDevMode()) {
        const uint32_t crc = devmode.GetCRC32();
        if (crc != devmode_crc) {
            devmode.CopyTo(devmode_saved.GetDevMode());
            if (!winNT && !channel16.Publish(*settings)) return false;
            devmode_crc = crc;
        }
    }
    return sheet.SetResult(CPSUI_OK);
}

bool prtui::Cancel() {
    return sheet.SetResult(CPSUI_CANCEL);
}

bool prtui::is_default_dm() const {
    return winNT ? (fmode & (DM_UPDATE | kUserDefault)) != 0 : channel16.EditsDefaults();
}

uint32_t prtui::DeviceCapabilitiesW(WORD capability, unsigned char* output) const {
    return static_cast<uint32_t>(::DeviceCapabilitiesW(printer_name.wstring(), port_name.wstring(),
                                                       capability, reinterpret_cast<WCHAR*>(output),
                                                       devmode.GetDevMode()));
}
