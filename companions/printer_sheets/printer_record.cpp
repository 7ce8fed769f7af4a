#include "printer_sheets/printer_record.h"

namespace printer_sheets {

PrinterRecord::PrinterRecord(HANDLE printer) {
    DWORD needed = 0;
    GetPrinterW(printer, 2, nullptr, 0, &needed);
    buffer_.resize(needed + sizeof(PRINTER_INFO_2W));
    if (!GetPrinterW(printer, 2, buffer_.data(), static_cast<DWORD>(buffer_.size()), &needed))
        error_ = GetLastError();
}

PRINTER_INFO_2W* PrinterRecord::Get() {
    if (error_ == ERROR_SUCCESS) return reinterpret_cast<PRINTER_INFO_2W*>(buffer_.data());
    SetLastError(error_);
    return nullptr;
}

bool PrinterRecord::Store(HANDLE printer) {
    if (!Get()) return false;
    PRINTER_INFO_2W stored = *Get();
    stored.pDevMode = nullptr;
    stored.pSecurityDescriptor = nullptr;
    return SetPrinterW(printer, 2, reinterpret_cast<LPBYTE>(&stored), 0) != FALSE;
}

} // namespace printer_sheets
