// The printer that is asked, and its port.
#pragma once

#include <windows.h>
#include <winspool.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

using WideString = std::basic_string<WCHAR>;

WideString FromAnsi(const char* text, size_t size);
std::string ToAnsi(const WideString& text);

struct NetworkPort {
    std::string host;
    uint16_t port = 9100;
    uint16_t udp_port = 0; // 0: not known
};

// Where a port "IP_host" or "IP_host:port" leads; nothing for other ports.
std::optional<NetworkPort> NetworkPortNamed(const WideString& port);

// What the spooler says about a port: the name of its monitor and its description.
struct PortFacts {
    WideString monitor, description;
};

// A printer, opened with as many rights as the user has.
class MonitoredPrinter {
public:
    explicit MonitoredPrinter(const WideString& name);
    ~MonitoredPrinter();
    MonitoredPrinter(const MonitoredPrinter&) = delete;
    MonitoredPrinter& operator=(const MonitoredPrinter&) = delete;

    bool IsOpen() const { return handle_ != nullptr; }
    HANDLE handle() const { return handle_; }
    const WideString& port() const { return port_; }
    // Where its port leads on the network: to the address that a TCP/IP port monitor of the
    // printer's machine has set up under the port's name, or to the one in the name itself. Nothing
    // for other ports.
    const std::optional<NetworkPort>& network() const { return network_; }
    std::optional<PortFacts> Facts() const;
    DWORD attributes() const { return attributes_; } // PRINTER_ATTRIBUTE_ bits

    // The bytes of one of its jobs; empty if they cannot be read.
    std::string JobBytes(DWORD job) const;

    // Writes a number into the printer's data. A refusal is ignored.
    void SetData(const WCHAR* name, DWORD value) const;

private:
    HANDLE handle_ = nullptr;
    WideString server_;
    WideString port_;
    std::optional<NetworkPort> network_;
    DWORD attributes_ = 0;
};
