// The ports that printers can be on.
#pragma once

#include "spooler/print_server.h"

#include <optional>
#include <string>
#include <string_view>

namespace win32host {

// Whether a printer can be on the port: "FILE:", a port that the machine or one of its TCP/IP port
// monitors knows, or one whose name says all about it: "IP_host", "IP_host:port", the full path of
// a file or device.
bool IsUsablePort(const PrintServer& server, const std::u16string& port);

// Where a port leads on the network: what a TCP/IP port monitor of the machine has set up under its
// name, else what the name "IP_host" or "IP_host:port" says. Nothing for other ports.
struct NetworkAddress {
    std::string host;
    WORD port = 9100;
};
std::optional<NetworkAddress> NetworkAddressOf(const PrintServer& server,
                                               const std::u16string& port);

// Whether jobs stay in the spooler: the port "FILE:".
bool KeepsJobs(std::u16string_view port);
// Whether the port is the full path of a file or device.
bool IsPathPort(std::u16string_view port);

// Makes the machine know the port.
LSTATUS RegisterPort(const PrintServer& server, const std::u16string& port);

} // namespace win32host
