// The DEVMODEs that the spooler keeps for others.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace win32host {

// The same settings in the driver's current layout. They stay as they are if the driver cannot be
// loaded, does not convert or fails. Calls the driver, which may open the printer.
std::vector<BYTE> InLayoutOfDriver(const std::u16string& driver, const std::u16string& printer,
                                   std::vector<BYTE> dev_mode);

// The current user's own default settings for the printer with this full name; empty if there are
// none.
std::vector<BYTE> ReadUserDevMode(const std::u16string& printer);
// Replaces them; an empty `dev_mode` removes them.
LSTATUS WriteUserDevMode(const std::u16string& printer, const std::vector<BYTE>& dev_mode);

} // namespace win32host
