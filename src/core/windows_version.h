// The family and version of the system.
#pragma once

#include <cstdint>

// Whether it is of the NT family, not Windows 9x.
bool IsWindowsNT();
// Whether it is Windows NT 4.0.
bool IsWindowsNT4();

// The major version: 4 of Windows 9x and Windows NT 4.0, 5 and more of later systems.
uint32_t WindowsMajorVersion();
