// DrvConvertDevMode: DEVMODEs in the layout that the spooler or a program asks for.
#include "zplui.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>

#include "driver/fail.h"
#include "model/prtmodel.h"
#include "settings/dev_mode.h"
#include "spooler/open_printer.h"
#include "spooler/printer_info.h"

namespace {

// Names, versions and sizes, which every DEVMODE has.
constexpr DWORD kHeader = offsetof(DEVMODEW, dmFields);

// The layout of Windows NT 3.51, which ends before the colour management.
constexpr WORD kSpecVersion351 = 0x320;
constexpr WORD kSize351 = offsetof(DEVMODEW, dmICMMethod);

BOOL AskForRoom(PDWORD needed, DWORD size) {
    *needed = size;
    return Fail(ERROR_INSUFFICIENT_BUFFER);
}

BOOL MakeDefault(const WCHAR* printer, DEVMODEW* out, PDWORD size) {
    const auto needed = static_cast<DWORD>(DevMode::GetDefaultDevModeSize());
    if (*size < needed) return AskForRoom(size, needed);
    const OpenPrinter opened(OString(printer), PRINTER_ACCESS_USE);
    if (!opened.Get()) return FALSE;
    const std::unique_ptr<const prtmodel> model(prtmodel::new_ext(PrinterInfo(opened.Get())));
    if (model) DevMode(out).Reset(model.get());
    return model ? TRUE : FALSE;
}

BOOL Convert(const DEVMODEW* in, DEVMODEW* out, PDWORD size, bool to_351) {
    if (!in) return Fail(ERROR_INVALID_PARAMETER);
    // A shorter buffer does not say which layout it wants.
    if (*size < kHeader)
        return AskForRoom(size, (to_351 ? kSize351 : DWORD{sizeof(DEVMODEW)}) + in->dmDriverExtra);
    const WORD in_size = in->dmSize; // read before the output is written, which may be the same
    const WORD extra = in->dmDriverExtra;
    if (to_351) {
        out->dmSpecVersion = kSpecVersion351;
        out->dmSize = kSize351;
    }
    const WORD spec_version = out->dmSpecVersion;
    const WORD out_size = out->dmSize;
    if (out_size < kHeader) return Fail(ERROR_INVALID_PARAMETER);
    const DWORD needed = DWORD{out_size} + extra;
    if (*size < needed) return AskForRoom(size, needed);

    // The private part first, so that a buffer can be converted in place.
    const auto* from = reinterpret_cast<const char*>(in);
    auto* to = reinterpret_cast<char*>(out);
    std::memmove(to + out_size, from + in_size, extra);
    const WORD copied = std::min(in_size, out_size);
    std::memmove(to, from, copied);
    std::memset(to + copied, 0, static_cast<size_t>(out_size - copied));
    out->dmSpecVersion = spec_version;
    out->dmSize = out_size;
    out->dmDriverExtra = extra;
    *size = needed;
    return TRUE;
}

} // namespace

BOOL WINAPI DrvConvertDevMode(LPWSTR printer, PDEVMODEW in, PDEVMODEW out, PDWORD needed,
                              DWORD mode) {
    if (!needed) return Fail(ERROR_INVALID_PARAMETER);
    if (!out) return AskForRoom(needed, static_cast<DWORD>(DevMode::GetDefaultDevModeSize()));
    switch (mode) {
    case CDM_DRIVER_DEFAULT:
        return MakeDefault(printer, out, needed);
    case CDM_CONVERT:
    case CDM_CONVERT351:
        return Convert(in, out, needed, mode == CDM_CONVERT351);
    default:
        return FALSE;
    }
}
