// Opening, asking, changing, adding and deleting printers.
#include "host/text.h"
#include "registry/transactions.h"
#include "spooler/dev_modes.h"
#include "spooler/job_record.h"
#include "spooler/opened_printer.h"
#include "spooler/ports.h"
#include "spooler/printer_levels.h"
#include "spooler/question.h"

#include <winddiui.h>

using namespace win32host;

namespace {

constexpr ACCESS_MASK kChanging = PRINTER_ACCESS_ADMINISTER | SERVER_ACCESS_ADMINISTER |
                                  JOB_ACCESS_ADMINISTER | DELETE | WRITE_DAC | WRITE_OWNER |
                                  GENERIC_ALL;
constexpr DWORD kHighestPriority = 99;
constexpr const char16_t* kPrintProcessor = u"WinPrint"; // the only one

// The information levels with only the default settings: everybody's, and the user's own.
constexpr DWORD kDefaults = 8, kUserDefaults = 9;
static_assert(sizeof(PRINTER_INFO_8W) == sizeof(PRINTER_INFO_9W));

std::u16string CopyOr(LPCWSTR text, const char16_t* usual) {
    return text && *text ? text : usual;
}

// The record `old` with the fields of the caller's structure. Fields that callers cannot set stay,
// and so do the default settings.
PrinterRecord RecordOf(const PRINTER_INFO_2W& info, const PrinterRecord& old) {
    PrinterRecord record = old;
    record.name = SplitPrinterName(CopyOf(info.pPrinterName)).printer;
    record.share_name = CopyOf(info.pShareName);
    record.port = CopyOf(info.pPortName);
    record.driver = CopyOf(info.pDriverName);
    record.comment = CopyOf(info.pComment);
    record.location = CopyOf(info.pLocation);
    record.separator_file = CopyOf(info.pSepFile);
    record.print_processor = CopyOr(info.pPrintProcessor, kPrintProcessor);
    record.datatype = CopyOr(info.pDatatype, u"RAW");
    record.parameters = CopyOf(info.pParameters);
    record.attributes =
        (info.Attributes & ~DWORD{PRINTER_ATTRIBUTE_NETWORK | PRINTER_ATTRIBUTE_DEFAULT}) |
        PRINTER_ATTRIBUTE_LOCAL;
    record.priority = info.Priority ? info.Priority : 1;
    record.default_priority = info.DefaultPriority ? info.DefaultPriority : 1;
    record.start_time = info.StartTime;
    record.until_time = info.UntilTime;
    return record;
}

// NO_ERROR if the printer can be what the record says. What it already was is always accepted;
// `old` is empty for a new one.
DWORD Check(const PrintServer& server, const PrinterRecord& record, const PrinterRecord& old) {
    const bool is_new = old.name.empty();
    if ((is_new || !SameName(record.driver, old.driver)) && !ReadDriver(server, record.driver))
        return ERROR_UNKNOWN_PRINTER_DRIVER;
    if ((is_new || !SameName(record.port, old.port)) && !IsUsablePort(server, record.port))
        return ERROR_UNKNOWN_PORT;
    if (!SameName(record.print_processor, kPrintProcessor) &&
        !SameName(record.print_processor, old.print_processor))
        return ERROR_UNKNOWN_PRINTPROCESSOR;
    if (record.priority > kHighestPriority || record.default_priority > kHighestPriority)
        return ERROR_INVALID_PRIORITY;
    return ERROR_SUCCESS;
}

BOOL Answer(HANDLE handle, LPDWORD needed, bool known_level, const auto& fill) {
    auto printer = FindPrinter(handle);
    if (!printer) return FALSE;
    if (!needed) return Fail(ERROR_INVALID_PARAMETER);
    if (!known_level) return Fail(ERROR_INVALID_LEVEL);
    const auto record = printer->Record();
    return record ? fill(ShownPrinter{&*record, &printer->Server()}) : FALSE;
}

DWORD Add(const PrintServer& server, const PrinterRecord& record) {
    if (const DWORD code = Check(server, record, {})) return code;
    SpoolerLock lock(server);
    if (!ReadPrinterName(server, record.name).empty()) return ERROR_PRINTER_ALREADY_EXISTS;
    RegistryKey printers, key;
    LSTATUS status = server.CreatePrinters(printers);
    if (status != ERROR_SUCCESS) return static_cast<DWORD>(status);
    registry::KeyTransaction transaction(printers.get());
    // Somebody who was stopped may have left parts of a printer.
    printers.DeleteTree(record.name);
    status = key.Create(printers.get(), record.name + u"\\PrinterDriverData");
    if (status == ERROR_SUCCESS) status = RegisterPort(server, record.port);
    if (status == ERROR_SUCCESS) status = key.Open(printers.get(), record.name, KEY_ALL_ACCESS);
    if (status == ERROR_SUCCESS) status = WritePrinter(key, record, {});
    return static_cast<DWORD>(transaction.Commit(status));
}

// The caller's settings in the driver's current layout, or empty for null. False if they are not a
// DEVMODE.
bool TakeDevMode(const OpenedPrinter& printer, const std::u16string& driver, PDEVMODEW wanted,
                 std::vector<BYTE>& dev_mode) {
    if (!wanted) return true;
    dev_mode = CheckedDevMode(wanted);
    if (dev_mode.empty()) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    dev_mode = InLayoutOfDriver(driver, printer.FullName(), std::move(dev_mode));
    return true;
}

// Makes the caller's structure the printer's record and tells the driver.
BOOL SetRecord(const OpenedPrinter& printer, const PRINTER_INFO_2W& wanted) {
    const PrintServer& server = printer.Server();
    std::vector<BYTE> dev_mode;
    if (!TakeDevMode(printer, CopyOf(wanted.pDriverName), wanted.pDevMode, dev_mode)) return FALSE;

    PRINTER_EVENT_ATTRIBUTES_INFO attributes = {sizeof attributes, 0, 0};
    std::u16string driver;
    bool new_driver = false;
    {
        SpoolerLock lock(server);
        const auto old = printer.Record();
        if (!old) return FALSE;
        PrinterRecord record = RecordOf(wanted, *old);
        if (wanted.pDevMode) record.dev_mode = std::move(dev_mode);
        if (record.name != old->name) return Fail(ERROR_INVALID_PRINTER_NAME);
        if (const DWORD code = Check(server, record, *old)) return Fail(code);
        RegistryKey key;
        LSTATUS status = server.OpenPrinter(printer.Printer(), key);
        if (status == ERROR_SUCCESS && !SameName(record.port, old->port))
            status = RegisterPort(server, record.port);
        if (status == ERROR_SUCCESS) status = WritePrinter(key, record, *old);
        if (status != ERROR_SUCCESS) return Fail(static_cast<DWORD>(status));
        attributes.dwOldAttributes = old->attributes;
        attributes.dwNewAttributes = record.attributes;
        driver = record.driver;
        new_driver = !SameName(driver, old->driver);
    }
    if (new_driver) {
        if (const auto library = LoadDriver(driver))
            library->RaisePrinterEvent(printer.FullName(), PRINTER_EVENT_INITIALIZE,
                                       PRINTER_EVENT_FLAG_NO_UI, 0);
    }
    if (attributes.dwOldAttributes != attributes.dwNewAttributes) {
        if (const auto library = LoadDriver(driver))
            library->RaisePrinterEvent(printer.FullName(), PRINTER_EVENT_ATTRIBUTES_CHANGED,
                                       PRINTER_EVENT_FLAG_NO_UI,
                                       reinterpret_cast<LPARAM>(&attributes));
    }
    return TRUE;
}

// Makes the settings everybody's defaults or the user's own.
BOOL SetDefaults(const OpenedPrinter& printer, DWORD level, PDEVMODEW wanted) {
    if (!wanted && level == kDefaults) return Fail(ERROR_INVALID_PARAMETER);
    const auto driver = printer.DriverName();
    std::vector<BYTE> dev_mode;
    if (!driver || !TakeDevMode(printer, *driver, wanted, dev_mode)) return FALSE;

    LSTATUS status = ERROR_SUCCESS;
    if (level == kUserDefaults) {
        status = WriteUserDevMode(printer.FullName(), dev_mode);
    } else {
        SpoolerLock lock(printer.Server());
        const auto old = printer.Record();
        if (!old) return FALSE;
        PrinterRecord record = *old;
        record.dev_mode = std::move(dev_mode);
        RegistryKey key;
        status = printer.Server().OpenPrinter(printer.Printer(), key);
        if (status == ERROR_SUCCESS) status = WritePrinter(key, record, *old);
    }
    return status == ERROR_SUCCESS ? TRUE : Fail(static_cast<DWORD>(status));
}

} // namespace

extern "C" BOOL WINAPI OpenPrinterW(LPWSTR name, LPHANDLE handle, LPPRINTER_DEFAULTSW defaults) {
    return Guarded(FALSE, [&] {
        if (!handle) return Fail(ERROR_INVALID_PARAMETER);
        *handle = nullptr;
        const PrinterName parts = SplitPrinterName(CopyOf(name));
        auto server = PrintServer::Named(parts.server);
        if (!server) return FALSE;
        std::u16string printer;
        if (!parts.printer.empty() || (parts.server.empty() && name && *name)) {
            printer = ReadPrinterName(*server, parts.printer);
            if (printer.empty()) return Fail(ERROR_INVALID_PRINTER_NAME);
        }
        ACCESS_MASK access = PRINTER_ACCESS_USE;
        if (defaults && defaults->DesiredAccess) access = defaults->DesiredAccess;
        if (access & kChanging && !MayAdminister()) return Fail(ERROR_ACCESS_DENIED);
        if (access & GENERIC_ALL) access |= PRINTER_ALL_ACCESS;
        *handle = NewHandle(std::make_shared<OpenedPrinter>(server, printer, access));
        return BOOL{*handle != nullptr};
    });
}

extern "C" BOOL WINAPI ClosePrinter(HANDLE handle) {
    return Guarded(FALSE, [&] { return BOOL{Close<OpenedPrinter>(handle) != nullptr}; });
}

extern "C" BOOL WINAPI GetPrinterW(HANDLE handle, DWORD level, LPBYTE buffer, DWORD size,
                                   LPDWORD needed) {
    return AnswerQuestion({"GetPrinterW", level}, buffer, size, [&] {
        const bool defaults = level == kDefaults || level == kUserDefaults;
        return Answer(handle, needed, defaults || IsPrinterLevel(level),
                      [&](const ShownPrinter& printer) {
                          std::vector<BYTE> own;
                          if (level == kUserDefaults)
                              own = ReadUserDevMode(printer.server->FullName(printer.record->name));
                          return FillBuffer(buffer, size, needed, [&](LevelWriter& writer) {
                              if (defaults) {
                                  PutDefaults(writer, own.empty() ? printer.record->dev_mode : own);
                              } else {
                                  PrinterStructures(writer, level, 1);
                                  PutPrinter(writer, level, 0, printer);
                              }
                          });
                      });
    });
}

extern "C" BOOL WINAPI GetPrinterA(HANDLE handle, DWORD level, LPBYTE buffer, DWORD size,
                                   LPDWORD needed) {
    return AnswerQuestion({"GetPrinterA", level}, buffer, size, [&] {
        return Answer(handle, needed, level == 2, [&](const ShownPrinter& printer) {
            return FillBuffer(buffer, size, needed,
                              [&](LevelWriter& writer) { PutPrinterA(writer, printer); });
        });
    });
}

extern "C" BOOL WINAPI SetPrinterW(HANDLE handle, DWORD level, LPBYTE info, DWORD command) {
    return Guarded(FALSE, [&] {
        auto printer = FindPrinter(handle);
        if (!printer) return FALSE;
        if (level != 2 && level != kDefaults && level != kUserDefaults)
            return Fail(ERROR_INVALID_LEVEL);
        if (command) return Fail(ERROR_INVALID_PRINTER_COMMAND);
        if (!info) return Fail(ERROR_INVALID_PARAMETER);
        if (!printer->Has(level == kUserDefaults ? PRINTER_ACCESS_USE : PRINTER_ACCESS_ADMINISTER))
            return Fail(ERROR_ACCESS_DENIED);
        if (level == 2) return SetRecord(*printer, *reinterpret_cast<const PRINTER_INFO_2W*>(info));
        return SetDefaults(*printer, level,
                           reinterpret_cast<const PRINTER_INFO_8W*>(info)->pDevMode);
    });
}

extern "C" HANDLE WINAPI AddPrinterW(LPWSTR server_name, DWORD level, LPBYTE info) {
    return Guarded(HANDLE{}, [&]() -> HANDLE {
        const auto fail = [](DWORD code) {
            SetLastError(code);
            return HANDLE{};
        };
        auto server = PrintServer::Named(CopyOf(server_name));
        if (!server) return nullptr;
        if (!server->IsLocal()) return fail(ERROR_NOT_SUPPORTED);
        if (level != 2) return fail(ERROR_INVALID_LEVEL);
        if (!info) return fail(ERROR_INVALID_PARAMETER);
        if (!MayAdminister()) return fail(ERROR_ACCESS_DENIED);
        const auto& wanted = *reinterpret_cast<const PRINTER_INFO_2W*>(info);
        PrinterRecord record = RecordOf(wanted, {});
        record.name = CopyOf(wanted.pPrinterName);
        if (!IsPrinterName(record.name)) return fail(ERROR_INVALID_PRINTER_NAME);
        // The driver converts them itself when it is told of the printer.
        record.dev_mode = CheckedDevMode(wanted.pDevMode);
        if (wanted.pDevMode && record.dev_mode.empty()) return fail(ERROR_INVALID_PARAMETER);
        if (const DWORD code = Add(*server, record)) return fail(code);

        const HANDLE handle =
            NewHandle(std::make_shared<OpenedPrinter>(server, record.name, PRINTER_ALL_ACCESS));
        // The printer stays even if the driver fails here or cannot be loaded.
        if (const auto library = LoadDriver(record.driver))
            library->RaisePrinterEvent(record.name, PRINTER_EVENT_INITIALIZE,
                                       PRINTER_EVENT_FLAG_NO_UI, 0);
        return handle;
    });
}

extern "C" BOOL WINAPI DeletePrinter(HANDLE handle) {
    return Guarded(FALSE, [&] {
        auto printer = FindPrinter(handle);
        if (!printer) return FALSE;
        if (!printer->Has(PRINTER_ACCESS_ADMINISTER)) return Fail(ERROR_ACCESS_DENIED);
        const auto driver = printer->DriverName();
        if (!driver) return FALSE;
        if (const auto library = LoadDriver(*driver))
            library->RaisePrinterEvent(printer->FullName(), PRINTER_EVENT_DELETE,
                                       PRINTER_EVENT_FLAG_NO_UI, 0);
        {
            SpoolerLock lock(printer->Server());
            for (const JobRecord& job : ReadJobs(printer->Server(), printer->Printer()))
                EraseJob(printer->Server(), printer->Printer(), job.number);
            const LSTATUS status = ErasePrinter(printer->Server(), printer->Printer());
            if (status == ERROR_FILE_NOT_FOUND) return Fail(ERROR_PRINTER_DELETED);
            if (status != ERROR_SUCCESS) return Fail(static_cast<DWORD>(status));
        }
        WriteUserDevMode(printer->FullName(), {});
        DropDriver(*driver);
        return TRUE;
    });
}
