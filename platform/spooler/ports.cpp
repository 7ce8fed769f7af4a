#include "spooler/ports.h"

#include "host/text.h"
#include "spooler/level_writer.h"
#include "spooler/opened_printer.h"

#include <algorithm>

namespace win32host {
namespace {

const std::u16string kFilePort = u"FILE:";

// All ports, "FILE:" first.
std::vector<std::u16string> PortNames(const PrintServer& server) {
    std::vector<std::u16string> names{kFilePort};
    RegistryKey key;
    if (server.OpenPorts(key) != ERROR_SUCCESS) return names;
    for (std::u16string& name : key.ValueNames()) {
        if (!name.empty() && !SameName(name, kFilePort)) names.push_back(std::move(name));
    }
    return names;
}

// A server has as many ports as printers, so that their list is not walked for one of them.
bool IsRegistered(const PrintServer& server, const std::u16string& port) {
    if (SameName(port, kFilePort)) return true;
    RegistryKey key;
    return !port.empty() && server.OpenPorts(key) == ERROR_SUCCESS && key.Has(port);
}

void FillPorts(LevelWriter& writer, const std::vector<std::u16string>& names) {
    writer.Structures<PORT_INFO_2W>(names.size());
    for (size_t i = 0; i < names.size(); ++i) {
        const bool network = NetworkAddressOf(names[i]).has_value();
        PORT_INFO_2W info = {};
        writer.Text(info.pPortName, names[i]);
        writer.Text(info.pMonitorName, network ? u"Standard TCP/IP Port" : u"Local Monitor");
        writer.Text(info.pDescription, network ? u"Standard TCP/IP Port" : u"Local Port");
        info.fPortType =
            network ? PORT_TYPE_WRITE | PORT_TYPE_READ | PORT_TYPE_NET_ATTACHED : PORT_TYPE_WRITE;
        writer.Put(i, info);
    }
}

} // namespace

std::optional<NetworkAddress> NetworkAddressOf(std::u16string_view port) {
    if (port.size() <= 3 || !SameName(port.substr(0, 3), u"IP_")) return std::nullopt;
    NetworkAddress address;
    std::u16string_view host = port.substr(3);
    if (const size_t colon = host.rfind(u':'); colon != std::u16string_view::npos) {
        DWORD number = 0;
        const std::u16string_view digits = host.substr(colon + 1);
        if (digits.empty() || digits.size() > 5) return std::nullopt;
        for (const char16_t digit : digits) {
            if (digit < u'0' || digit > u'9') return std::nullopt;
            number = number * 10 + (digit - u'0');
        }
        if (number < 1 || number > 65535) return std::nullopt;
        address.port = static_cast<WORD>(number);
        host = host.substr(0, colon);
    }
    const bool good = !host.empty() && std::all_of(host.begin(), host.end(), [](char16_t c) {
        return (c >= u'0' && c <= u'9') || (UpperOf(c) >= u'A' && UpperOf(c) <= u'Z' && c < 0x80) ||
               c == u'.' || c == u'-' || c == u'_';
    });
    if (!good) return std::nullopt;
    address.host = Utf8(host);
    return address;
}

bool KeepsJobs(std::u16string_view port) {
    return SameName(port, kFilePort);
}

bool IsPathPort(std::u16string_view port) {
    const bool drive = port.size() > 3 && UpperOf(port[0]) >= u'A' && UpperOf(port[0]) <= u'Z' &&
                       port[1] == u':' && (port[2] == u'\\' || port[2] == u'/');
    return drive || (port.size() > 1 && port[0] == u'/');
}

bool IsUsablePort(const PrintServer& server, const std::u16string& port) {
    return NetworkAddressOf(port) || IsPathPort(port) || IsRegistered(server, port);
}

LSTATUS RegisterPort(const PrintServer& server, const std::u16string& port) {
    if (IsRegistered(server, port)) return ERROR_SUCCESS;
    RegistryKey key;
    const LSTATUS status = server.CreatePorts(key);
    return status == ERROR_SUCCESS ? key.SetText(port, {}) : status;
}

} // namespace win32host

using namespace win32host;

extern "C" BOOL WINAPI EnumPortsW(LPWSTR server_name, DWORD level, LPBYTE buffer, DWORD size,
                                  LPDWORD needed, LPDWORD returned) {
    return Guarded(FALSE, [&] {
        if (!needed || !returned) return Fail(ERROR_INVALID_PARAMETER);
        *returned = 0;
        if (level != 2) return Fail(ERROR_INVALID_LEVEL);
        const auto server = PrintServer::Named(server_name ? server_name : u"");
        if (!server) return FALSE;
        const auto names = PortNames(*server);
        const BOOL good = FillBuffer(buffer, size, needed,
                                     [&](LevelWriter& writer) { FillPorts(writer, names); });
        if (good) *returned = static_cast<DWORD>(names.size());
        return good;
    });
}
