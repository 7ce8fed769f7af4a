// How fast a parallel port can be, as the system's inventory of devices tells it.
#pragma once

#include <cstdint>

#include "core/ostring.h"

// Stores the mode (PortInfo::ParallelMode) of a port: standard on Windows NT before version 5,
// which has no such inventory; unknown, and false, when no device has that port.
bool GetParPortMode(const OString& port, uint32_t& mode);
