// Printers as the information levels show them.
#pragma once

#include "spooler/level_writer.h"
#include "spooler/printer_record.h"

#include <winspool.h>

namespace win32host {

// One printer and the server that it is on.
struct ShownPrinter {
    const PrinterRecord* record;
    const PrintServer* server;
};

inline bool IsPrinterLevel(DWORD level) {
    return level == 1 || level == 2 || level == 4;
}

// Writes one structure of a level that IsPrinterLevel knows.
void PutPrinter(LevelWriter& writer, DWORD level, size_t index, const ShownPrinter& printer);
// Reserves room for all of them.
void PrinterStructures(LevelWriter& writer, DWORD level, size_t count);

// Levels 8 and 9: these settings, which may be empty.
void PutDefaults(LevelWriter& writer, const std::vector<BYTE>& dev_mode);

// Level 2 in the ANSI code page.
void PutPrinterA(LevelWriter& writer, const ShownPrinter& printer);

} // namespace win32host
