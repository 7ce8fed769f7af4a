#include "spooler/ports.h"

#include "host/text.h"
#include "spooler/level_writer.h"
#include "spooler/opened_printer.h"

#include <algorithm>

namespace win32host {
namespace {

const std::u16string kFilePort = u"FILE:";
const std::u16string kStandardMonitor = u"Standard TCP/IP Port";

// The port monitors that reach printers over TCP/IP, in the order in which they are asked.
const std::u16string kNetworkMonitors[] = {u"Valdrick Port", kStandardMonitor,
                                           u"HP Standard TCP/IP Port"};

struct Port {
    std::u16string name;
    std::u16string monitor; // one of the network monitors; empty: the local one
};

// The address that a monitor has set up for one of its ports.
std::optional<NetworkAddress> AddressAt(const RegistryKey& ports, const std::u16string& name) {
    RegistryKey key;
    if (name.empty() || key.Open(ports.get(), name) != ERROR_SUCCESS) return std::nullopt;
    NetworkAddress address;
    address.host = Utf8(key.Text(u"IPAddress"));
    const DWORD number = key.Number(u"PortNumber");
    if (number >= 1 && number <= 65535) address.port = static_cast<WORD>(number);
    if (address.host.empty()) return std::nullopt;
    return address;
}

// A server may have as many ports as printers, so this does not walk their list.
bool IsRegistered(const PrintServer& server, const std::u16string& port) {
    if (SameName(port, kFilePort)) return true;
    RegistryKey key;
    return !port.empty() && server.OpenPorts(key) == ERROR_SUCCESS && key.Has(port);
}

// The monitor that has set up a port, and where the port leads.
struct SetUpPort {
    const std::u16string& monitor;
    NetworkAddress address;
};
std::optional<SetUpPort> FindSetUp(const PrintServer& server, const std::u16string& name) {
    for (const std::u16string& monitor : kNetworkMonitors) {
        RegistryKey key;
        if (server.OpenMonitorPorts(monitor, key) != ERROR_SUCCESS) continue;
        if (auto address = AddressAt(key, name)) return SetUpPort{monitor, std::move(*address)};
    }
    return std::nullopt;
}

std::optional<NetworkAddress> AddressInName(std::u16string_view port) {
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

// All ports: "FILE:", the local ones and those of the network monitors.
std::vector<Port> Ports(const PrintServer& server) {
    std::vector<Port> ports{{kFilePort, {}}};
    RegistryKey key;
    if (server.OpenPorts(key) == ERROR_SUCCESS) {
        for (std::u16string& name : key.ValueNames()) {
            if (name.empty() || SameName(name, kFilePort)) continue;
            std::u16string monitor;
            if (const auto set_up = FindSetUp(server, name))
                monitor = set_up->monitor;
            else if (AddressInName(name))
                monitor = kStandardMonitor;
            ports.push_back({std::move(name), std::move(monitor)});
        }
    }
    for (const std::u16string& monitor : kNetworkMonitors) {
        if (server.OpenMonitorPorts(monitor, key) != ERROR_SUCCESS) continue;
        for (std::u16string& name : key.SubkeyNames()) {
            const auto set_up = FindSetUp(server, name);
            if (set_up && set_up->monitor == monitor && !IsRegistered(server, name))
                ports.push_back({std::move(name), monitor});
        }
    }
    return ports;
}

void FillPorts(LevelWriter& writer, const std::vector<Port>& ports) {
    writer.Structures<PORT_INFO_2W>(ports.size());
    for (size_t i = 0; i < ports.size(); ++i) {
        const bool network = !ports[i].monitor.empty();
        PORT_INFO_2W info = {};
        writer.Text(info.pPortName, ports[i].name);
        writer.Text(info.pMonitorName, network ? ports[i].monitor : u"Local Monitor");
        writer.Text(info.pDescription, network ? ports[i].monitor : u"Local Port");
        info.fPortType =
            network ? PORT_TYPE_WRITE | PORT_TYPE_READ | PORT_TYPE_NET_ATTACHED : PORT_TYPE_WRITE;
        writer.Put(i, info);
    }
}

} // namespace

std::optional<NetworkAddress> NetworkAddressOf(const PrintServer& server,
                                               const std::u16string& port) {
    if (auto set_up = FindSetUp(server, port)) return std::move(set_up->address);
    return AddressInName(port);
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
    return IsPathPort(port) || NetworkAddressOf(server, port) || IsRegistered(server, port);
}

LSTATUS RegisterPort(const PrintServer& server, const std::u16string& port) {
    if (IsRegistered(server, port) || FindSetUp(server, port)) return ERROR_SUCCESS;
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
        const auto ports = Ports(*server);
        const BOOL good = FillBuffer(buffer, size, needed,
                                     [&](LevelWriter& writer) { FillPorts(writer, ports); });
        if (good) *returned = static_cast<DWORD>(ports.size());
        return good;
    });
}
