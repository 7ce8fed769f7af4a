#include "printer/port_info.h"

#include <winspool.h>

#include <algorithm>
#include <cstring>
#include <iterator>

#include "core/oarray.h"
#include "core/obuffer.h"
#include "printer/parallel_port_mode.h"
#include "registry/oregistry.h"

namespace {

// The ports of a monitor below the spooler's key.
constexpr char kValdrick[] = "PRINT:Monitors/Valdrick Port/Ports/";
constexpr char kMicrosoft[] = "PRINT:Monitors/Standard TCP//IP Port/Ports/";
constexpr char kHP[] = "PRINT:Monitors/HP Standard TCP//IP Port/Ports/";

bool HasPort(const char* monitor, const OString& name) {
    return ORegistry().GetKeyInfo(OString(monitor) + ORegistry::EncodeName(name), nullptr, nullptr);
}

bool BeginsWith(const OString& name, const char* prefix) {
    const OString wanted = prefix;
    return name.Left(wanted.GetLength()).CompareNoCase(wanted) == 0;
}

bool ReadSerial(const OString& name, _SerialPortInfo& info) {
    COMMCONFIG config = {};
    config.dwSize = sizeof config;
    DWORD size = sizeof config;
    if (!GetDefaultCommConfigW(name.wstring(), &config, &size)) return false;
    const DCB& dcb = config.dcb;
    info.baud_rate = dcb.BaudRate;
    info.data_bits = dcb.ByteSize;
    info.parity = dcb.Parity;
    info.stop_bits = dcb.StopBits;
    info.handshake = dcb.fOutxCtsFlow || dcb.fOutxDsrFlow ? PortInfo::HARDWARE
                     : dcb.fOutX                          ? PortInfo::XON_XOFF
                                                          : PortInfo::NO_HANDSHAKE;
    return true;
}

void ReadTcpip(const OString& name, int32_t type, _TcpipPortInfo& info) {
    OString key = type == PortInfo::TCPIP_VALDRICK    ? kValdrick
                  : type == PortInfo::TCPIP_MICROSOFT ? kMicrosoft
                                                      : kHP;
    key << ORegistry::EncodeName(name);
    ORegistry registry;
    const OString address = registry.GetString(key + "/IPAddress", "");
    const WCHAR* text = address.wstring();
    const auto length =
        std::min<size_t>(static_cast<size_t>(address.wlen()), std::size(info.address) - 1);
    std::memcpy(info.address, text, length * sizeof(WCHAR));
    info.port = static_cast<uint32_t>(registry.GetInt(key + "/PortNumber", 0));
}

// Reads the facts about one port. False if they cannot be read.
bool ReadPort(const OString& name, _PORT_INFO_CUSTOM& info) {
    const int32_t type = PortInfo::PortType(name);
    info.type = static_cast<uint32_t>(type);
    switch (type) {
    case PortInfo::SERIAL:
        return ReadSerial(name, info.serial);
    case PortInfo::PARALLEL:
        return GetParPortMode(name, info.parallel_mode);
    case PortInfo::TCPIP_VALDRICK:
    case PortInfo::TCPIP_MICROSOFT:
    case PortInfo::TCPIP_HP:
        ReadTcpip(name, type, info.tcpip);
        return true;
    default:
        return true;
    }
}

int Compare(int32_t type, const OString& name, int32_t other_type, const OString& other_name) {
    return type != other_type ? type - other_type : name.CompareNoCase(other_name);
}

// In bytes, with its terminator.
uint32_t TextSize(const OString& text) {
    text.wstring();
    return (static_cast<uint32_t>(text.wlen()) + 1) * static_cast<uint32_t>(sizeof(WCHAR));
}

// Copies a text to `place`, which moves to the byte after it.
const WCHAR* StoreText(const OString& text, char*& place) {
    auto* stored = reinterpret_cast<WCHAR*>(place);
    std::memcpy(place, text.wstring(), TextSize(text));
    place += TextSize(text);
    return stored;
}

} // namespace

// ---- The inventory ------------------------------------------------------------------------------

void PortInfo::Refresh() {
    names_.SetSize(0);
    monitors_.SetSize(0);
    DWORD needed = 0, count = 0;
    EnumPortsW(nullptr, 2, nullptr, 0, &needed, &count);
    OBuffer<unsigned char> record(needed);
    if (!record.GetData() || !EnumPortsW(nullptr, 2, record.GetData(), needed, &needed, &count))
        return;
    const auto* ports = reinterpret_cast<const PORT_INFO_2W*>(record.GetData());
    const AllocationWatch memory;
    OStringArray names, monitors;
    OTypedArray<int32_t> types; // read from the registry only once
    OTypedArray<int> order;
    for (DWORD i = 0; i < count; ++i) {
        const OString name = ports[i].pPortName;
        const int32_t type = PortType(name);
        names.Add(name);
        monitors.Add(ports[i].pMonitorName);
        types.Add(type);
        // After all that do not sort after it, so that equal ports keep their order.
        int place = 0;
        for (int end = order.GetSize(); place < end;) {
            const int middle = place + (end - place) / 2;
            const int other = order[middle];
            if (Compare(types[other], names[other], type, name) > 0)
                end = middle;
            else
                place = middle + 1;
        }
        order.InsertAt(place, static_cast<int>(i), 1);
        if (memory.Failed()) return;
    }
    for (int i = 0; i < order.GetSize(); ++i) {
        OString name = names[order[i]];
        name.TrimRight(':');
        names_.Add(name);
        monitors_.Add(monitors[order[i]]);
    }
    // Half a list, or names beside the monitors of others, would be worse than an empty one.
    if (memory.Failed()) {
        names_.SetSize(0);
        monitors_.SetSize(0);
    }
}

bool PortInfo::EnumPortInfo(void* buffer, uint32_t size, uint32_t& needed, uint32_t& count) const {
    const int ports = names_.GetSize();
    count = 0;
    const auto records =
        static_cast<uint32_t>(sizeof(_PORT_INFO_CUSTOM) * static_cast<size_t>(ports));
    needed = records;
    for (int i = 0; i < ports; ++i) needed += TextSize(names_[i]) + TextSize(monitors_[i]);
    if (!buffer || size < needed || ports == 0) return false;

    auto* info = static_cast<_PORT_INFO_CUSTOM*>(buffer);
    char* text = static_cast<char*>(buffer) + records;
    for (int i = 0; i < ports; ++i) {
        _PORT_INFO_CUSTOM port = {};
        if (!ReadPort(names_[i], port)) continue;
        port.name = StoreText(names_[i], text);
        port.monitor = StoreText(monitors_[i], text);
        info[count++] = port;
    }
    return count > 0;
}

OString PortInfo::GetLocalMonitorName() const {
    for (int i = 0; i < names_.GetSize(); ++i)
        if (PortType(names_[i]) == SERIAL) return monitors_[i];
    return OString();
}

// ---- Kinds of ports -----------------------------------------------------------------------------

bool PortInfo::IsTcpipValdrick(const OString& name) {
    return HasPort(kValdrick, name);
}

bool PortInfo::IsTcpipMicrosoft(const OString& name) {
    return HasPort(kMicrosoft, name);
}

bool PortInfo::IsTcpipHP(const OString& name) {
    return HasPort(kHP, name);
}

bool PortInfo::IsUsbPort(const OString& name) {
    return BeginsWith(name, "usb");
}

bool PortInfo::IsParallelPort(const OString& name) {
    return BeginsWith(name, "lpt");
}

bool PortInfo::IsSerialPort(const OString& name) {
    return BeginsWith(name, "com");
}

int32_t PortInfo::PortType(const OString& name) {
    if (IsTcpipValdrick(name)) return TCPIP_VALDRICK;
    if (IsTcpipMicrosoft(name)) return TCPIP_MICROSOFT;
    if (IsTcpipHP(name)) return TCPIP_HP;
    if (IsUsbPort(name)) return USB;
    if (IsParallelPort(name)) return PARALLEL;
    if (IsSerialPort(name)) return SERIAL;
    return OTHER;
}

int PortInfo::ComparePortName(const OString& a, const OString& b) {
    return Compare(PortType(a), a, PortType(b), b);
}
