// The ports of this machine, as far as the module knows more about them than the spooler does. For
// the report about versions.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>

#include "core/ostring.h"
#include "core/ostring_array.h"

// How a serial port is set up: numbers as in the system's DCB.
struct _SerialPortInfo {
    uint32_t baud_rate;
    uint32_t data_bits;
    uint32_t parity;
    uint32_t stop_bits;
    uint32_t handshake; // 0 hardware, 1 Xon/Xoff, 2 none
};
static_assert(sizeof(_SerialPortInfo) == 20);

struct _TcpipPortInfo {
    WCHAR address[32]; // zero-terminated
    uint32_t port;
};
static_assert(sizeof(_TcpipPortInfo) == 68);

// One port with what is known about it.
struct _PORT_INFO_CUSTOM {
    const WCHAR* name;    // without a colon at its end
    const WCHAR* monitor; // of the port
    uint32_t type;        // PortInfo::Type
    union {
        _SerialPortInfo serial;
        uint32_t parallel_mode; // PortInfo::ParallelMode
        _TcpipPortInfo tcpip;
    }; // nothing for ports of other types
};
static_assert(sizeof(void*) != 4 || sizeof(_PORT_INFO_CUSTOM) == 80);
static_assert(offsetof(_PORT_INFO_CUSTOM, serial) == 2 * sizeof(void*) + 4);

// The inventory is that of the moment when it was made or refreshed; without an answer of the
// spooler's it is empty. Belongs to one thread.
class PortInfo {
public:
    enum Type : int32_t {
        SERIAL = 0,
        PARALLEL = 1,
        USB = 2,
        TCPIP_VALDRICK = 3, // by the maker's own port monitor
        TCPIP_MICROSOFT = 4,
        TCPIP_HP = 5,
        OTHER = 9
    };
    enum ParallelMode : uint32_t { STANDARD = 0, ECP = 1, EPP = 2, UNKNOWN = 3 };

    PortInfo() { Refresh(); }

    void Refresh();

    // In the order of ComparePortName for the names as the spooler has them, with their colons.
    int GetSize() const { return names_.GetSize(); }
    const OString& GetName(int index) const { return names_[index]; }
    const OString& GetMonitorName(int index) const { return monitors_[index]; }

    // Stores a _PORT_INFO_CUSTOM for each port, and after them the texts that they point to. A
    // serial or parallel port whose setup cannot be read is left out. `needed` receives the size
    // that suffices for all ports, `count` how many were stored. False when none were: there are no
    // ports, or `buffer` is null or has less than `needed` bytes.
    bool EnumPortInfo(void* buffer, uint32_t size, uint32_t& needed, uint32_t& count) const;

    // The monitor of the first serial port; empty when there is none.
    OString GetLocalMonitorName() const;

    // What kind of port a name is. Names are those of the spooler, with or without colon.
    static int32_t PortType(const OString& name);
    static bool IsTcpipValdrick(const OString& name);
    static bool IsTcpipMicrosoft(const OString& name);
    static bool IsTcpipHP(const OString& name);
    static bool IsSerialPort(const OString& name);
    static bool IsParallelPort(const OString& name);
    static bool IsUsbPort(const OString& name);

    // Less than, equal to or greater than 0: ports sort by type, then by name in any case.
    static int ComparePortName(const OString& a, const OString& b);

private:
    OStringArray names_;
    OStringArray monitors_;
};
