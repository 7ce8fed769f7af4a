// Which family of systems this is.
#pragma once

#include <cstdint>

// Whether it is one of the NT family, and not Windows 9x.
bool IsWindowsNT();
// Whether it is Windows NT 4.0.
bool IsWindowsNT4();

// The major version: 4 of Windows 9x and Windows NT 4.0, 5 and more of what came later.
uint32_t WindowsMajorVersion();
