#include "machine/printer.h"

#include "fault.h"
#include "text.h"

namespace {

PrinterFacts FactsIn(const PRINTER_INFO_2W& info) {
    return {ToUtf8(info.pPrinterName), ToUtf8(info.pDriverName), ToUtf8(info.pPortName),
            ToUtf8(info.pServerName)};
}

// The text with the letters a to z in lower case.
WideString Folded(WideString text) {
    for (WCHAR& unit : text)
        if (unit >= TEXT('A') && unit <= TEXT('Z')) unit += TEXT('a') - TEXT('A');
    return text;
}

bool Matches(const WideString& name, const WideString& pattern) {
    size_t at = 0, in = 0;
    size_t star = WideString::npos, behind_star = 0; // the last *, and where the name goes on
    while (at < name.size()) {
        if (in < pattern.size() && pattern[in] == TEXT('*')) {
            star = in++;
            behind_star = at;
        } else if (in < pattern.size() && (pattern[in] == TEXT('?') || pattern[in] == name[at])) {
            ++at;
            ++in;
        } else if (star != WideString::npos) {
            in = star + 1; // the * takes one character more
            at = ++behind_star;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(TEXT('*'), in) == WideString::npos;
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

std::vector<std::string> PrinterNames() {
    DWORD count = 0;
    const std::vector<BYTE> buffer =
        Record("cannot list the printers", [&](BYTE* out, DWORD size, DWORD* needed) {
            return EnumPrintersW(PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, nullptr, 4, out,
                                 size, needed, &count);
        });
    std::vector<std::string> names;
    const auto* infos = reinterpret_cast<const PRINTER_INFO_4W*>(buffer.data());
    for (DWORD i = 0; i < count && !buffer.empty(); ++i)
        names.push_back(ToUtf8(infos[i].pPrinterName));
    return names;
}

std::vector<std::string> PrintersNamed(const std::string& pattern) {
    if (pattern.find_first_of("*?") == std::string::npos || PrinterExists(pattern))
        return {pattern};
    const WideString folded = Folded(ToWide(pattern));
    std::vector<std::string> names;
    for (std::string& name : PrinterNames())
        if (Matches(Folded(ToWide(name)), folded)) names.push_back(std::move(name));
    if (names.empty()) throw Fault("no printer's name matches '" + pattern + "'");
    return names;
}

bool PrinterExists(const std::string& name) {
    WideString wide = ToWide(name);
    HANDLE handle = nullptr;
    if (!OpenPrinterW(wide.data(), &handle, nullptr)) return false;
    ClosePrinter(handle);
    return true;
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
