// The mode of a parallel port, from the system's inventory of devices.
#pragma once

#include <cstdint>

#include "core/ostring.h"

// Stores the mode (PortInfo::ParallelMode) of a port. It is standard on Windows NT before version
// 5, which has no such inventory. If no device has that port it is unknown, and the answer is
// false.
bool GetParPortMode(const OString& port, uint32_t& mode);
