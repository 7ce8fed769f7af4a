// The UI object in a property sheet.
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "core/crc.h"
#include "core/memory.h"
#include "spooler/platform_flags.h"
#include "spooler/printer_info.h"
#include "ui/prtui.h"

namespace {

// Bits of a sheet's mode that not all headers have.
constexpr uint32_t NO_PERMISSION = 0x20; // documents: look only
constexpr uint32_t USER_DEFAULT = 0x40;  // the user's default settings

// The printer among the icons of the common property sheets.
constexpr ULONG_PTR PRINTER_ICON = 64082;

// A sheet is answered by the last page but two, which is the driver's last beside the About page
// and the system's own.
constexpr int32_t ANSWERING_PAGE = 3;

} // namespace

bool prtui::HasRoom(const DOCUMENTPROPERTYHEADER& header, size_t size) {
    if (header.cbOut == 0 || header.cbOut >= size) return true;
    // Some spoolers do not know the room, and tell how large the public part is that lies there.
    if (!header.pdmOut || header.cbOut < offsetof(DEVMODEW, dmFields)) return false;
    WORD public_size = 0;
    std::memcpy(&public_size,
                reinterpret_cast<const char*>(header.pdmOut) + offsetof(DEVMODEW, dmSize),
                sizeof public_size);
    return header.cbOut == public_size;
}

void prtui::TakeSheet(PROPSHEETUI_INFO* info) {
    pfn_comprop = info->pfnComPropSheet;
    hcomprop = info->hComPropSheet;
    info->UserData = reinterpret_cast<ULONG_PTR>(this);
    info->Result = 0;
    if (!pfn_comprop) return;
    const auto count = static_cast<int32_t>(pfn_comprop(hcomprop, CPSFUNC_GET_PAGECOUNT, 0, 0));
    if (count <= 0) return;
    page_handles.reset(new (kCounted) HANDLE[static_cast<size_t>(count)]());
    if (!page_handles) return;
    page_count = count;
    pfn_comprop(hcomprop, CPSFUNC_GET_HPSUIPAGES, reinterpret_cast<LPARAM>(page_handles.get()),
                count);
}

LONG prtui::InitDevSheets(PROPSHEETUI_INFO* info, const DEVICEPROPERTYHEADER* header) {
    no_permission = (header->Flags & DPS_NOPERMISSION) != 0;
    TakeSheet(info);
    return 1;
}

LONG prtui::InitDocSheets(PROPSHEETUI_INFO* info, const DOCUMENTPROPERTYHEADER* header) {
    no_permission = (header->fMode & NO_PERMISSION) != 0;
    if (!is_default_dm()) start_on_last = false;
    TakeSheet(info);
    return 1;
}

LONG prtui::ReasonGetInfoHeader(PROPSHEETUI_INFO*, PROPSHEETUI_INFO_HEADER* header,
                                const WCHAR* printer) {
    header->Flags = PSUIHDRF_PROPTITLE;
    header->pTitle = const_cast<WCHAR*>(printer);
    header->hInst = locale.GetModule();
    header->IconID = PRINTER_ICON;
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
            if (header->fMode & DM_UPDATE) PrinterInfo(hprinter).SetDevMode(settings);
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
        const uint32_t crc =
            CRC32(settings, uint32_t{settings->dmSize} + settings->dmDriverExtra, 0);
        if (crc != devmode_crc) {
            devmode_crc = crc;
            devmode.CopyTo(devmode_saved.GetDevMode());
        }
    }
    return SetSheetResult(CPSUI_OK);
}

bool prtui::Cancel() {
    return SetSheetResult(CPSUI_CANCEL);
}

bool prtui::SetSheetResult(LPARAM result) const {
    if (!pfn_comprop) return true;
    const HANDLE page =
        page_count >= ANSWERING_PAGE ? page_handles[size_t(page_count - ANSWERING_PAGE)] : nullptr;
    return pfn_comprop(hcomprop, CPSFUNC_SET_RESULT, reinterpret_cast<LPARAM>(page), result) != 0;
}

bool prtui::is_default_dm() const {
    return winNT && (fmode & (DM_UPDATE | USER_DEFAULT)) != 0;
}

uint32_t prtui::DeviceCapabilitiesW(WORD capability, unsigned char* output) const {
    return static_cast<uint32_t>(::DeviceCapabilitiesW(printer_name.wstring(), port_name.wstring(),
                                                       capability, reinterpret_cast<WCHAR*>(output),
                                                       devmode.GetDevMode()));
}
