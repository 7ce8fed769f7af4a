#include "printer.h"

#include "fault.h"
#include "text.h"

namespace {

PrinterFacts FactsIn(const PRINTER_INFO_2W& info) {
    return {ToUtf8(info.pPrinterName), ToUtf8(info.pDriverName), ToUtf8(info.pPortName),
            ToUtf8(info.pServerName)};
}

} // namespace

OpenedPrinter::OpenedPrinter(const std::string& name, ACCESS_MASK access) {
    WideString wide = ToWide(name);
    PRINTER_DEFAULTSW defaults = {nullptr, nullptr, access};
    if (!OpenPrinterW(wide.data(), &handle_, &defaults))
        throw SystemFault("cannot open printer '" + name + "'", GetLastError());
}

OpenedPrinter::~OpenedPrinter() {
    ClosePrinter(handle_);
}

WideString ConfigFileOf(const OpenedPrinter& printer, const std::string& name) {
    const std::string what = "cannot read the driver of '" + name + "'";
    const std::vector<BYTE> buffer = Record(what, [&](BYTE* out, DWORD size, DWORD* needed) {
        return GetPrinterDriverW(printer.handle(), nullptr, 3, out, size, needed);
    });
    if (buffer.size() < sizeof(DRIVER_INFO_3W)) throw Fault(what);
    return reinterpret_cast<const DRIVER_INFO_3W*>(buffer.data())->pConfigFile;
}

std::vector<PrinterFacts> AllPrinters() {
    DWORD count = 0;
    const std::vector<BYTE> buffer =
        Record("cannot list the printers", [&](BYTE* out, DWORD size, DWORD* needed) {
            return EnumPrintersW(PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, nullptr, 2, out,
                                 size, needed, &count);
        });
    std::vector<PrinterFacts> printers;
    const auto* infos = reinterpret_cast<const PRINTER_INFO_2W*>(buffer.data());
    for (DWORD i = 0; i < count && !buffer.empty(); ++i) printers.push_back(FactsIn(infos[i]));
    return printers;
}

PrinterFacts FactsOf(const std::string& name) {
    OpenedPrinter printer(name, PRINTER_ACCESS_USE);
    const std::vector<BYTE> buffer =
        Record("cannot read printer '" + name + "'", [&](BYTE* out, DWORD size, DWORD* needed) {
            return GetPrinterW(printer.handle(), 2, out, size, needed);
        });
    if (buffer.size() < sizeof(PRINTER_INFO_2W)) throw Fault("cannot read printer '" + name + "'");
    return FactsIn(*reinterpret_cast<const PRINTER_INFO_2W*>(buffer.data()));
}
