// What a printer handle names.
#pragma once

#include "host/guarded.h"
#include "host/handles.h"
#include "spooler/driver_library.h"
#include "spooler/driver_record.h"
#include "spooler/printer_record.h"

#include <winspool.h>

#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace win32host {

class SpooledDocument;

// True if the user may change printers, drivers and printer data, as administrators and power users
// may.
bool MayAdminister();

// A printer, or a print server if the printer's name is empty.
class OpenedPrinter : public HandleObject {
public:
    OpenedPrinter(std::shared_ptr<PrintServer> server, std::u16string printer, ACCESS_MASK access);
    // Drops a document that was not ended.
    ~OpenedPrinter() override;

    const PrintServer& Server() const { return *server_; }
    const std::shared_ptr<PrintServer>& SharedServer() const { return server_; }
    const std::u16string& Printer() const { return printer_; }
    std::u16string FullName() const { return server_->FullName(printer_); }
    // True if it was opened with all these rights.
    bool Has(ACCESS_MASK access) const { return (access_ & access) == access; }

    // The printer's current record; nothing, with ERROR_PRINTER_DELETED, if it is gone.
    std::optional<PrinterRecord> Record() const;
    // The name of its driver; nothing, likewise, if the printer is gone.
    std::optional<std::u16string> DriverName() const;
    // The record of its driver as installed on this machine; nothing, with
    // ERROR_UNKNOWN_PRINTER_DRIVER, if there is none.
    std::optional<DriverRecord> Driver() const;

    // The document that is being printed through the handle; null if there is none.
    struct Document {
        std::mutex lock;
        std::unique_ptr<SpooledDocument> document;
    };
    Document& CurrentDocument() { return document_; }

private:
    const std::shared_ptr<PrintServer> server_;
    const std::u16string printer_;
    const ACCESS_MASK access_;
    Document document_;
};

// The printer behind a handle. Null with ERROR_INVALID_HANDLE if it is not a printer's.
std::shared_ptr<OpenedPrinter> FindPrinter(HANDLE handle);

// The configuration module of a driver of this machine. Null with an error if there is no such
// driver or it cannot be loaded.
std::shared_ptr<const DriverLibrary> LoadDriver(const std::u16string& driver);
// Unloads it.
void DropDriver(const std::u16string& driver);

} // namespace win32host
