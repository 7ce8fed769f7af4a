#include "qstmon/printer_port.h"

#include <algorithm>
#include <cstdio>

namespace {

// No query is longer.
constexpr DWORD kLongestJob = 1 << 20;

bool BeginsWith(const WideString& text, const char* prefix) {
    size_t i = 0;
    for (; prefix[i]; ++i) {
        if (i == text.size()) return false;
        const WCHAR unit = text[i];
        const WCHAR upper =
            unit >= 'a' && unit <= 'z' ? static_cast<WCHAR>(unit - 'a' + 'A') : unit;
        if (upper != static_cast<WCHAR>(prefix[i])) return false;
    }
    return true;
}

// The answer of a spooler function that says what size it needs.
template <class Call>
std::vector<BYTE> Record(Call call) {
    std::vector<BYTE> buffer;
    DWORD needed = 0;
    while (!call(buffer.data(), static_cast<DWORD>(buffer.size()), &needed)) {
        if (GetLastError() != ERROR_INSUFFICIENT_BUFFER || needed <= buffer.size()) return {};
        buffer.resize(needed);
    }
    return buffer;
}

// The registry of this machine (no name) or of another one ("\\SERVER").
class MachineKey {
public:
    explicit MachineKey(const WideString& server)
        : key_(HKEY_LOCAL_MACHINE) {
        if (server.empty()) return;
        if (RegConnectRegistryW(server.c_str(), HKEY_LOCAL_MACHINE, &connected_) != ERROR_SUCCESS)
            connected_ = nullptr;
        key_ = connected_;
    }
    ~MachineKey() {
        if (connected_) RegCloseKey(connected_);
    }
    MachineKey(const MachineKey&) = delete;
    MachineKey& operator=(const MachineKey&) = delete;

    HKEY get() const { return key_; } // null if the machine cannot be reached

private:
    HKEY connected_ = nullptr;
    HKEY key_;
};

// A number from 1 to 65535, or `otherwise`.
uint16_t ReadPortNumber(HKEY key, const WCHAR* name, uint16_t otherwise) {
    DWORD number = 0, size = sizeof number;
    if (RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(&number), &size) !=
            ERROR_SUCCESS ||
        size != sizeof number || number < 1 || number > 65535)
        return otherwise;
    return static_cast<uint16_t>(number);
}

// What the TCP/IP port monitors of a machine know about a port.
std::optional<NetworkPort> ConfiguredPort(const WideString& server, const WideString& port) {
    if (port.empty()) return std::nullopt;
    const MachineKey machine(server);
    if (!machine.get()) return std::nullopt;
    for (const WCHAR* monitor :
         {TEXT("Valdrick Port"), TEXT("Standard TCP/IP Port"), TEXT("HP Standard TCP/IP Port")}) {
        const WideString path =
            WideString(TEXT("SYSTEM\\CurrentControlSet\\Control\\Print\\Monitors\\")) + monitor +
            TEXT("\\Ports\\") + port;
        HKEY key = nullptr;
        if (RegOpenKeyExW(machine.get(), path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
            continue;
        WCHAR host[256] = {};
        DWORD size = sizeof host - sizeof(WCHAR), type = 0;
        NetworkPort found;
        if (RegQueryValueExW(key, TEXT("IPAddress"), nullptr, &type, reinterpret_cast<BYTE*>(host),
                             &size) == ERROR_SUCCESS &&
            type == REG_SZ)
            found.host = ToAnsi(host);
        found.port = ReadPortNumber(key, TEXT("PortNumber"), found.port);
        found.udp_port = ReadPortNumber(key, TEXT("UDPPort"), 0);
        RegCloseKey(key);
        if (!found.host.empty()) return found;
    }
    return std::nullopt;
}

std::string ReadWholeFile(const WideString& path) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return {};
    const DWORD size = GetFileSize(file, nullptr);
    std::string bytes(size <= kLongestJob ? size : 0, 0);
    DWORD read = 0;
    if (bytes.empty() || !ReadFile(file, bytes.data(), size, &read, nullptr)) read = 0;
    CloseHandle(file);
    bytes.resize(read);
    return bytes;
}

} // namespace

WideString FromAnsi(const char* text, size_t size) {
    if (size == 0) return {};
    const int bytes = static_cast<int>(size);
    WideString wide(
        static_cast<size_t>(std::max(MultiByteToWideChar(CP_ACP, 0, text, bytes, nullptr, 0), 0)),
        0);
    MultiByteToWideChar(CP_ACP, 0, text, bytes, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string ToAnsi(const WideString& text) {
    if (text.empty()) return {};
    const int units = static_cast<int>(text.size());
    const int size =
        WideCharToMultiByte(CP_ACP, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<size_t>(std::max(size, 0)), 0);
    WideCharToMultiByte(CP_ACP, 0, text.data(), units, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

std::optional<NetworkPort> NetworkPortNamed(const WideString& port) {
    if (!BeginsWith(port, "IP_")) return std::nullopt;
    NetworkPort found;
    found.host = ToAnsi(port.substr(3));
    const size_t colon = found.host.rfind(':');
    if (colon != std::string::npos) {
        const std::string digits = found.host.substr(colon + 1);
        if (digits.empty() || digits.size() > 5 ||
            digits.find_first_not_of("0123456789") != std::string::npos)
            return std::nullopt;
        const unsigned long number = std::stoul(digits);
        if (number < 1 || number > 65535) return std::nullopt;
        found.port = static_cast<uint16_t>(number);
        found.host.resize(colon);
    }
    if (found.host.empty()) return std::nullopt;
    return found;
}

MonitoredPrinter::MonitoredPrinter(const WideString& name) {
    WideString opened = name;
    constexpr ACCESS_MASK kWishes[] = {PRINTER_ACCESS_USE | PRINTER_ACCESS_ADMINISTER,
                                       PRINTER_ACCESS_USE};
    for (const ACCESS_MASK access : kWishes) {
        PRINTER_DEFAULTSW defaults = {nullptr, nullptr, access};
        if (OpenPrinterW(opened.data(), &handle_, &defaults)) break;
        handle_ = nullptr;
    }
    if (!handle_) return;
    const std::vector<BYTE> buffer = Record([&](BYTE* out, DWORD size, DWORD* needed) {
        return GetPrinterW(handle_, 2, out, size, needed);
    });
    if (buffer.size() < sizeof(PRINTER_INFO_2W)) return;
    const auto& info = *reinterpret_cast<const PRINTER_INFO_2W*>(buffer.data());
    if (info.pServerName) server_ = info.pServerName;
    if (info.pPortName) port_ = info.pPortName;
    attributes_ = info.Attributes;
    network_ = ConfiguredPort(server_, port_);
    if (!network_) network_ = NetworkPortNamed(port_);
}

MonitoredPrinter::~MonitoredPrinter() {
    if (handle_) ClosePrinter(handle_);
}

std::string MonitoredPrinter::JobBytes(DWORD job) const {
    // The folder of the jobs' files is a value of the print server.
    HANDLE spooler = nullptr;
    if (!OpenPrinterW(server_.empty() ? nullptr : const_cast<LPWSTR>(server_.c_str()), &spooler,
                      nullptr))
        return {};
    WCHAR folder[1024] = {};
    DWORD needed = 0;
    const DWORD error =
        GetPrinterDataW(spooler, const_cast<LPWSTR>(SPLREG_DEFAULT_SPOOL_DIRECTORY), nullptr,
                        reinterpret_cast<BYTE*>(folder), sizeof folder - sizeof(WCHAR), &needed);
    ClosePrinter(spooler);
    if (error != ERROR_SUCCESS) return {};
    char name[16];
    const int length = std::snprintf(name, sizeof name, "\\%05u.SPL", static_cast<unsigned>(job));
    return ReadWholeFile(folder + FromAnsi(name, static_cast<size_t>(length)));
}

void MonitoredPrinter::SetData(const WCHAR* name, DWORD value) const {
    SetPrinterDataW(handle_, const_cast<LPWSTR>(name), REG_DWORD, reinterpret_cast<BYTE*>(&value),
                    sizeof value);
}

std::optional<PortFacts> MonitoredPrinter::Facts() const {
    DWORD count = 0;
    auto* server = server_.empty() ? nullptr : const_cast<LPWSTR>(server_.c_str());
    const std::vector<BYTE> buffer = Record([&](BYTE* out, DWORD size, DWORD* needed) {
        return EnumPortsW(server, 2, out, size, needed, &count);
    });
    if (buffer.empty()) return std::nullopt;
    const auto* infos = reinterpret_cast<const PORT_INFO_2W*>(buffer.data());
    for (DWORD i = 0; i < count; ++i)
        if (infos[i].pPortName && port_ == infos[i].pPortName)
            return PortFacts{infos[i].pMonitorName ? infos[i].pMonitorName : WideString(),
                             infos[i].pDescription ? infos[i].pDescription : WideString()};
    return std::nullopt;
}
