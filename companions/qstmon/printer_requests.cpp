// The requests that the configuration module makes through printer data.
#include "qstmon/command_line.h"
#include "qstmon/printer_port.h"
#include "qstmon/qstmon.h"
#include "qstmon/shadow_server.h"
#include "qstmon/xpml.h"

#include <cstring>
#include <exception>

namespace {

// The bytes of an answer, or nothing.
using Reply = std::optional<std::string>;

Reply Byte(bool value) {
    return std::string(1, value ? '\1' : '\0');
}

// Texts are answered with their terminator.
Reply Text(const std::string& text) {
    return text + '\0';
}

bool BeginsWithLetters(const WideString& port, const char* letters) {
    const std::string name = ToAnsi(port);
    for (size_t i = 0; letters[i]; ++i)
        if (i == name.size() || (name[i] & ~0x20) != letters[i]) return false;
    return true;
}

// The type of the printer's port.
std::string TypeOf(const MonitoredPrinter& printer) {
    if (printer.network()) return "TCP/IP";
    for (const char* type : {"LPT", "USB", "COM"})
        if (BeginsWithLetters(printer.port(), type)) return type;
    return {};
}

Reply AnswerAboutPort(const MonitoredPrinter& printer, std::string_view fact) {
    const std::string type = TypeOf(printer);
    if (type.empty()) return std::nullopt;
    const auto& network = printer.network();
    if (fact == "type") return Text(type);
    // The monitor reads from the network only.
    if (fact == "bidirectional") return Text(network ? "1" : "");
    if (fact == "ip_address" && network) return Text(network->host);
    if (fact == "protocol" && network) return Text("RAW");
    if (fact == "udp_port" && network && network->udp_port)
        return Text(std::to_string(network->udp_port));
    const auto facts = printer.Facts();
    if (fact == "monitor_name" && facts) return Text(ToAnsi(facts->monitor));
    if (fact == "description" && facts) return Text(ToAnsi(facts->description));
    return std::nullopt;
}

Reply AnswerDocument(const MonitoredPrinter& printer, std::string_view document) {
    size_t at = 0;
    while (const auto tag = NextTag(document, at)) {
        if (tag->name == "port" && tag->Attribute("action") == "get")
            return AnswerAboutPort(printer, tag->Attribute("name"));
        if (tag->name == "printer") return Byte(true);
    }
    return std::nullopt;
}

// A local, bidirectional printer shares its settings unless that was switched off.
bool SharesSettings(const MonitoredPrinter& printer) {
    BYTE shared = 1;
    DWORD needed = 0;
    GetPrinterDataExW(printer.handle(), TEXT("PrinterDriverData\\Settings"),
                      TEXT("Network Sharing"), nullptr, &shared, sizeof shared, &needed);
    return shared != 0 && (printer.attributes() & PRINTER_ATTRIBUTE_ENABLE_BIDI) != 0;
}

// True if `name` is `question` followed by digits, which make every question a new one.
bool Asks(const std::string& name, const char* question) {
    const size_t length = std::strlen(question);
    return name.size() > length && name.compare(0, length, question) == 0 &&
           name.find_first_not_of("0123456789", length) == std::string::npos;
}

Reply Answer(const WideString& printer_name, const std::string& name) {
    const bool xpml = IsXpml(name);
    const bool monitoring = Asks(name, "Monitoring Supported");
    const bool sharing = Asks(name, "Network Sharing");
    if (!xpml && !monitoring && !sharing) return std::nullopt;
    if (const auto number = AnswerShadowRequest(printer_name.c_str(), name))
        return std::string(reinterpret_cast<const char*>(&*number), sizeof *number);
    const MonitoredPrinter printer(printer_name);
    if (!printer.IsOpen()) return std::nullopt;
    if (xpml) return AnswerDocument(printer, name);
    return Byte(monitoring ? printer.network().has_value() : SharesSettings(printer));
}

// The printers that the user wants monitored, one value each.
const WCHAR* const kMonitored = TEXT("SOFTWARE\\Valdrick\\Drivers\\Status Monitor\\Printers");

void Remember(const MonitorCommand& command) {
    const WideString printer = FromAnsi(command.printer.data(), command.printer.size());
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, kMonitored, 0, nullptr, 0, KEY_WRITE, nullptr, &key,
                        nullptr) != ERROR_SUCCESS)
        return;
    const DWORD open = 1;
    if (command.verb == "open")
        RegSetValueExW(key, printer.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&open),
                       sizeof open);
    else if (command.verb == "close")
        RegDeleteValueW(key, printer.c_str());
    RegCloseKey(key);
}

} // namespace

extern "C" DWORD WINAPI MonitorPrinterData(LPCWSTR printer, LPCWSTR name, LPDWORD type, LPBYTE data,
                                           DWORD size, LPDWORD needed) {
    try {
        if (!printer || !name || !needed) return ERROR_INVALID_PARAMETER;
        const Reply reply = Answer(printer, ToAnsi(name));
        if (!reply) return ERROR_FILE_NOT_FOUND;
        if (type) *type = REG_BINARY;
        *needed = static_cast<DWORD>(reply->size());
        if (reply->size() > size) return ERROR_MORE_DATA;
        if (!data) return ERROR_INVALID_PARAMETER;
        std::memcpy(data, reply->data(), reply->size());
        return ERROR_SUCCESS;
    } catch (const std::exception&) {
        return ERROR_NOT_ENOUGH_MEMORY;
    }
}

extern "C" BOOL WINAPI MonitorTakesJob(LPCWSTR, const BYTE* start, DWORD size) {
    return start && IsXpml({reinterpret_cast<const char*>(start), size});
}

extern "C" void CALLBACK StatusMonitor(HWND, HINSTANCE, LPSTR command_line, int) {
    try {
        if (!command_line) return;
        if (const auto command = ParseMonitorCommand(command_line)) Remember(*command);
    } catch (const std::exception&) {
        // There is nobody to tell.
    }
}
