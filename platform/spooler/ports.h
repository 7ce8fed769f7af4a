// The ports that printers can be on.
#pragma once

#include "spooler/print_server.h"

#include <string>

namespace win32host {

// Whether a printer can be on the port: "FILE:", a port that the machine knows, or one whose name
// says all about it: "IP_host", "IP_host:port", the full path of a file or device.
bool IsUsablePort(const PrintServer& server, const std::u16string& port);

// Makes the machine know the port.
LSTATUS RegisterPort(const PrintServer& server, const std::u16string& port);

} // namespace win32host
