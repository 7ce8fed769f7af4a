// The root folder as the platform layer sees it.
#pragma once

#include <win32host/control.h>

#include <cstdint>

namespace win32host {

// Grows by one with every SetRoot, so that code which keeps something of the root open (a registry
// connection, a list of loaded modules) knows when to drop it.
uint32_t RootGeneration();

} // namespace win32host
