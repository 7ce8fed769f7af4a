// The SDK's header, which needs <windows.h> ahead of it. The macros for names without A or W would
// rename functions and classes of our own that are called like that.
#pragma once

#include <windows.h>

#include_next <winspool.h>

#undef AddPrinter
#undef DeviceCapabilities
#undef DocumentProperties
#undef OpenPrinter
#undef SetPrinter
