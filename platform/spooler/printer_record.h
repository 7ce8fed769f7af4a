// One printer as it is in the registry.
#pragma once

#include "spooler/print_server.h"

#include <winspool.h>

#include <optional>
#include <string>
#include <vector>

namespace win32host {

struct PrinterRecord {
    std::u16string name;
    std::u16string share_name;
    std::u16string port;
    std::u16string driver;
    std::u16string comment;
    std::u16string location;
    std::u16string separator_file;
    std::u16string print_processor;
    std::u16string datatype;
    std::u16string parameters;
    std::vector<BYTE> dev_mode; // a complete DEVMODEW, or empty
    DWORD attributes = 0;
    DWORD priority = 0;
    DWORD default_priority = 0;
    DWORD start_time = 0;
    DWORD until_time = 0;
    DWORD status = 0;
};

// True for a valid printer name: not empty, without a backslash, at most 220 characters.
bool IsPrinterName(std::u16string_view name);

// The printer's current record, or nothing if there is no such printer.
std::optional<PrinterRecord> ReadPrinter(const PrintServer& server, const std::u16string& name);

// Only its name, as it is spelled in the registry; empty if there is no such printer.
std::u16string ReadPrinterName(const PrintServer& server, const std::u16string& name);
// Only its driver's name.
std::optional<std::u16string> ReadPrinterDriver(const PrintServer& server,
                                                const std::u16string& name);

// Writes what differs from `old` (an empty record if there was no printer): all of it or, on
// failure, nothing. A printer without a name does not exist.
LSTATUS WritePrinter(const RegistryKey& key, const PrinterRecord& record, const PrinterRecord& old);

// Removes the printer's key with all printer data, so that everybody sees it vanish at once.
LSTATUS ErasePrinter(const PrintServer& server, const std::u16string& name);

// The printers in the order of their installation. `shared_only` leaves out those not shared.
// `brief` records have names and attributes only.
std::vector<PrinterRecord> ReadPrinters(const PrintServer& server, bool shared_only,
                                        bool brief = false);

// The DEVMODEW in `size` bytes, cut to the size that it gives itself; empty if they are not one.
std::vector<BYTE> CheckedDevMode(const void* bytes, size_t size);
// The same for a caller's structure, which is as long as it says.
std::vector<BYTE> CheckedDevMode(const DEVMODEW* dev_mode);

// The same settings with their names in the ANSI code page, a DEVMODEA.
std::vector<BYTE> AnsiDevMode(const std::vector<BYTE>& dev_mode);

} // namespace win32host
