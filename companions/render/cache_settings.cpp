#include "cache_settings.h"

#include <winspool.h>

namespace {

WCHAR g_value_name[] = TEXT("Render Cache Settings");

} // namespace

KVCacheSettings ReadCacheSettings(HANDLE printer) {
    KVCacheSettings settings = {};
    DWORD type = 0, size = 0;
    if (GetPrinterDataW(printer, g_value_name, &type, reinterpret_cast<BYTE*>(&settings),
                        sizeof settings, &size) == ERROR_SUCCESS &&
        size == sizeof settings)
        return settings;
    settings = {};
    settings.graphics_location = settings.format_location = 'R';
    return settings;
}

bool WriteCacheSettings(const WCHAR* printer_name, const KVCacheSettings* settings) {
    PRINTER_DEFAULTSW access = {nullptr, nullptr, PRINTER_ACCESS_ADMINISTER | PRINTER_ACCESS_USE};
    HANDLE printer = nullptr;
    if (!OpenPrinterW(const_cast<WCHAR*>(printer_name), &printer, &access)) return false;
    DWORD code;
    if (settings) {
        KVCacheSettings copy = *settings;
        code = SetPrinterDataW(printer, g_value_name, REG_BINARY, reinterpret_cast<BYTE*>(&copy),
                               sizeof copy);
    } else {
        code = DeletePrinterDataW(printer, g_value_name);
        if (code == ERROR_FILE_NOT_FOUND) code = ERROR_SUCCESS;
    }
    ClosePrinter(printer);
    return code == ERROR_SUCCESS;
}
