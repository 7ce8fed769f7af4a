#include "printer_value.h"

#include <winspool.h>

size_t ReadPrinterValue(HANDLE printer, const WCHAR* name, void* value, size_t size) {
    DWORD type = 0, length = 0;
    const DWORD code =
        GetPrinterDataW(printer, const_cast<WCHAR*>(name), &type, static_cast<BYTE*>(value),
                        static_cast<DWORD>(size), &length);
    return code == ERROR_SUCCESS ? length : 0;
}

bool WritePrinterValue(const WCHAR* printer_name, const WCHAR* name, const void* value,
                       size_t size) {
    PRINTER_DEFAULTSW access = {nullptr, nullptr, PRINTER_ACCESS_ADMINISTER | PRINTER_ACCESS_USE};
    HANDLE printer = nullptr;
    if (!OpenPrinterW(const_cast<WCHAR*>(printer_name), &printer, &access)) return false;
    DWORD code;
    if (value) {
        code =
            SetPrinterDataW(printer, const_cast<WCHAR*>(name), REG_BINARY,
                            static_cast<BYTE*>(const_cast<void*>(value)), static_cast<DWORD>(size));
    } else {
        code = DeletePrinterDataW(printer, const_cast<WCHAR*>(name));
        if (code == ERROR_FILE_NOT_FOUND) code = ERROR_SUCCESS;
    }
    ClosePrinter(printer);
    return code == ERROR_SUCCESS;
}
