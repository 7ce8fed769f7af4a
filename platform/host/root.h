// The root folder as the parts of the platform layer see it.
#pragma once

#include <win32host/control.h>

#include <cstdint>

namespace win32host {

// Grows by one with every SetRoot, so that whoever keeps something of the root open (a registry
// connection, a loaded module list) knows when to drop it.
uint32_t RootGeneration();

} // namespace win32host
