// The ports of this machine that the module knows more about than the spooler does. For the report
// about versions.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>

#include "core/ostring.h"
#include "core/ostring_array.h"

// The setup of a serial port. Numbers but the handshake are as in the system's DCB.
struct _SerialPortInfo {
    uint32_t baud_rate;
    uint32_t data_bits;
    uint32_t parity;
    uint32_t stop_bits;
    uint32_t handshake; // PortInfo::Handshake
};
static_assert(sizeof(_SerialPortInfo) == 20);

struct _TcpipPortInfo {
    WCHAR address[32]; // zero-terminated
    uint32_t port;
};
static_assert(sizeof(_TcpipPortInfo) == 68);

// One port with the facts about it.
struct _PORT_INFO_CUSTOM {
    const WCHAR* name;    // without a trailing colon
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

// The inventory as it was when made or refreshed. It is empty if the spooler does not answer. An
// object belongs to one thread.
class PortInfo {
public:
    enum Type : int32_t {
        SERIAL = 0,
        PARALLEL = 1,
        USB = 2,
        TCPIP_VALDRICK = 3, // by the maker's own port monitor
        TCPIP_MICROSOFT = 4,
        TCPIP_HP = 5,
        RESERVED_6 = 6, // no port of this machine has these two; reports name no kind for them
        RESERVED_7 = 7,
        OTHER = 9
    };
    enum ParallelMode : uint32_t { STANDARD = 0, ECP = 1, EPP = 2, UNKNOWN = 3 };
    enum Handshake : uint32_t { HARDWARE = 0, XON_XOFF = 1, NO_HANDSHAKE = 2 };

    PortInfo() { Refresh(); }

    void Refresh();

    // In the order of ComparePortName for the spooler's names, with their colons.
    int GetSize() const { return names_.GetSize(); }
    const OString& GetName(int index) const { return names_[index]; }
    const OString& GetMonitorName(int index) const { return monitors_[index]; }

    // Stores a _PORT_INFO_CUSTOM for each port and, after them, the texts that they point to. A
    // serial or parallel port whose setup cannot be read is left out. `needed` receives the size
    // that is enough for all ports, `count` the number stored. False if that is 0: there are no
    // ports, `buffer` is null, or it has less than `needed` bytes.
    bool EnumPortInfo(void* buffer, uint32_t size, uint32_t& needed, uint32_t& count) const;

    // The monitor of the first serial port, or empty.
    OString GetLocalMonitorName() const;

    // The kind of port that a name stands for. Names are the spooler's, with or without colon.
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
