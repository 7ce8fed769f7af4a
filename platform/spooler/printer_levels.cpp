#include "spooler/printer_levels.h"

#include "spooler/job_record.h"

namespace win32host {
namespace {

// The attributes as the asking machine sees them.
DWORD ShownAttributes(const ShownPrinter& printer) {
    const DWORD attributes =
        printer.record->attributes & ~DWORD{PRINTER_ATTRIBUTE_LOCAL | PRINTER_ATTRIBUTE_NETWORK};
    return attributes |
           (printer.server->IsLocal() ? PRINTER_ATTRIBUTE_LOCAL : PRINTER_ATTRIBUTE_NETWORK);
}

void PutDevMode(LevelWriter& writer, PDEVMODEW& target, const std::vector<BYTE>& dev_mode) {
    target = dev_mode.empty() ? nullptr : writer.Block<DEVMODEW>(dev_mode.data(), dev_mode.size());
}

void PutDevMode(LevelWriter& writer, DEVMODEA*& target, const std::vector<BYTE>& dev_mode) {
    const std::vector<BYTE> ansi = AnsiDevMode(dev_mode);
    target = ansi.empty() ? nullptr : writer.Block<DEVMODEA>(ansi.data(), ansi.size());
}

// PRINTER_INFO_2W or PRINTER_INFO_2A.
template <class Info>
void PutLevel2(LevelWriter& writer, size_t index, const ShownPrinter& printer) {
    const PrinterRecord& record = *printer.record;
    Info info = {};
    PutDevMode(writer, info.pDevMode, record.dev_mode);
    writer.OptionalText(info.pServerName, printer.server->Name());
    writer.Text(info.pPrinterName, printer.server->FullName(record.name));
    writer.Text(info.pShareName, record.share_name);
    writer.Text(info.pPortName, record.port);
    writer.Text(info.pDriverName, record.driver);
    writer.Text(info.pComment, record.comment);
    writer.Text(info.pLocation, record.location);
    writer.Text(info.pSepFile, record.separator_file);
    writer.Text(info.pPrintProcessor, record.print_processor);
    writer.Text(info.pDatatype, record.datatype);
    writer.Text(info.pParameters, record.parameters);
    info.Attributes = ShownAttributes(printer);
    info.Priority = record.priority;
    info.DefaultPriority = record.default_priority;
    info.StartTime = record.start_time;
    info.UntilTime = record.until_time;
    info.Status = record.status;
    info.cJobs = CountJobs(*printer.server, record.name);
    writer.Put(index, info);
}

void PutLevel1(LevelWriter& writer, size_t index, const ShownPrinter& printer) {
    const PrinterRecord& record = *printer.record;
    const std::u16string name = printer.server->FullName(record.name);
    PRINTER_INFO_1W info = {};
    info.Flags = PRINTER_ENUM_ICON8;
    writer.Text(info.pDescription, name + u',' + record.driver + u',' + record.location);
    writer.Text(info.pName, name);
    writer.Text(info.pComment, record.comment);
    writer.Put(index, info);
}

void PutLevel4(LevelWriter& writer, size_t index, const ShownPrinter& printer) {
    PRINTER_INFO_4W info = {};
    writer.Text(info.pPrinterName, printer.server->FullName(printer.record->name));
    writer.OptionalText(info.pServerName, printer.server->Name());
    info.Attributes =
        ShownAttributes(printer) & (PRINTER_ATTRIBUTE_LOCAL | PRINTER_ATTRIBUTE_NETWORK);
    writer.Put(index, info);
}

} // namespace

void PrinterStructures(LevelWriter& writer, DWORD level, size_t count) {
    if (level == 1) writer.Structures<PRINTER_INFO_1W>(count);
    if (level == 2) writer.Structures<PRINTER_INFO_2W>(count);
    if (level == 4) writer.Structures<PRINTER_INFO_4W>(count);
}

void PutPrinter(LevelWriter& writer, DWORD level, size_t index, const ShownPrinter& printer) {
    if (level == 1) PutLevel1(writer, index, printer);
    if (level == 2) PutLevel2<PRINTER_INFO_2W>(writer, index, printer);
    if (level == 4) PutLevel4(writer, index, printer);
}

void PutDefaults(LevelWriter& writer, const std::vector<BYTE>& dev_mode) {
    writer.Structures<PRINTER_INFO_8W>(1);
    PRINTER_INFO_8W info = {};
    PutDevMode(writer, info.pDevMode, dev_mode);
    writer.Put(0, info);
}

void PutPrinterA(LevelWriter& writer, const ShownPrinter& printer) {
    writer.Structures<PRINTER_INFO_2A>(1);
    PutLevel2<PRINTER_INFO_2A>(writer, 0, printer);
}

} // namespace win32host
