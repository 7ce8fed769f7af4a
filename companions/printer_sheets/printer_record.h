// What the spooler keeps of a printer.
#pragma once

#include <windows.h>
#include <winspool.h>

#include <vector>

namespace printer_sheets {

class PrinterRecord {
public:
    // Reads the record. `printer`: opened for any use.
    explicit PrinterRecord(HANDLE printer);

    // Null, with the last error, if it could not be read. Its texts may be replaced, but not
    // changed.
    PRINTER_INFO_2W* Get();

    // Stores everything but the default settings. False with the last error.
    [[nodiscard]] bool Store(HANDLE printer);

private:
    std::vector<BYTE> buffer_;
    DWORD error_ = ERROR_SUCCESS;
};

} // namespace printer_sheets
