// The SDK's header, which needs <windows.h> before it. The macros for names without A or W would
// rename functions and classes of our own with the same names.
#pragma once

#include <windows.h>

#include_next <winspool.h>

#undef AddPrinter
#undef DeviceCapabilities
#undef DocumentProperties
#undef OpenPrinter
#undef SetPrinter
