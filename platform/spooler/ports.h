// The ports that printers can be on.
#pragma once

#include "spooler/print_server.h"

#include <optional>
#include <string>
#include <string_view>

namespace win32host {

// True if a printer can be on the port: "FILE:", a port that the machine or one of its TCP/IP port
// monitors knows, or one whose name says everything: "IP_host", "IP_host:port", or the full path of
// a file or device.
bool IsUsablePort(const PrintServer& server, const std::u16string& port);

// Where a port leads on the network: to the address that a TCP/IP port monitor of the machine has
// set up under its name, else to the one in a name "IP_host" or "IP_host:port". Nothing for other
// ports.
struct NetworkAddress {
    std::string host;
    WORD port = 9100;
};
std::optional<NetworkAddress> NetworkAddressOf(const PrintServer& server,
                                               const std::u16string& port);

// True if jobs stay in the spooler: the port "FILE:".
bool KeepsJobs(std::u16string_view port);
// True if the port is the full path of a file or device.
bool IsPathPort(std::u16string_view port);

// Adds the port to those that the machine knows.
LSTATUS RegisterPort(const PrintServer& server, const std::u16string& port);

} // namespace win32host
