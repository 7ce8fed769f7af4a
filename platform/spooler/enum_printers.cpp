// Lists of printers.
#include "spooler/connections.h"
#include "spooler/opened_printer.h"
#include "spooler/printer_levels.h"

#include <deque>

using namespace win32host;

namespace {

// Printers with everything that ShownPrinter points to.
struct PrinterList {
    std::deque<PrinterRecord> records;
    std::deque<std::shared_ptr<PrintServer>> servers; // one per record

    void Add(PrinterRecord record, const std::shared_ptr<PrintServer>& server) {
        records.push_back(std::move(record));
        servers.push_back(server);
    }
    void AddAll(const std::shared_ptr<PrintServer>& server, bool shared_only, DWORD level) {
        // Level 4 exists to be quick.
        for (PrinterRecord& record : ReadPrinters(*server, shared_only, level == 4))
            Add(std::move(record), server);
    }
    // Connections whose server cannot be reached are not listed.
    void AddConnections(bool shared_only) {
        for (const std::u16string& name : ConnectionNames()) {
            const PrinterName parts = SplitPrinterName(name);
            const auto server = PrintServer::Named(parts.server);
            const auto record = server ? ReadPrinter(*server, parts.printer) : std::nullopt;
            if (record && (!shared_only || record->attributes & PRINTER_ATTRIBUTE_SHARED))
                Add(*record, server);
        }
    }
};

} // namespace

extern "C" BOOL WINAPI EnumPrintersW(DWORD flags, LPWSTR name, DWORD level, LPBYTE buffer,
                                     DWORD size, LPDWORD needed, LPDWORD returned) {
    return Guarded(FALSE, [&] {
        if (!needed || !returned) return Fail(ERROR_INVALID_PARAMETER);
        *needed = *returned = 0;
        if (!IsPrinterLevel(level)) return Fail(ERROR_INVALID_LEVEL);
        if (!(flags & (PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS | PRINTER_ENUM_NAME)))
            return Fail(ERROR_INVALID_FLAGS);
        const bool shared_only = flags & PRINTER_ENUM_SHARED;
        PrinterList list;
        if (flags & PRINTER_ENUM_NAME) {
            const auto server = PrintServer::Named(name ? name : u"");
            if (!server) return FALSE;
            list.AddAll(server, shared_only, level);
        } else if (flags & PRINTER_ENUM_LOCAL) {
            list.AddAll(PrintServer::Named({}), shared_only, level);
        }
        if (flags & PRINTER_ENUM_CONNECTIONS) list.AddConnections(shared_only);

        const size_t count = list.records.size();
        const BOOL good = FillBuffer(buffer, size, needed, [&](LevelWriter& writer) {
            PrinterStructures(writer, level, count);
            for (size_t i = 0; i < count; ++i)
                PutPrinter(writer, level, i, {&list.records[i], list.servers[i].get()});
        });
        if (good) *returned = static_cast<DWORD>(count);
        return good;
    });
}
