// Which family of systems this is.
#pragma once

// Whether it is one of the NT family, and not Windows 9x.
bool IsWindowsNT();
// Whether it is Windows NT 4.0.
bool IsWindowsNT4();
