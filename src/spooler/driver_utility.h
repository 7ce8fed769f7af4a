// The module's own location.
#pragma once

#include <windows.h>

#include "core/ostring.h"

class DriverUtility {
public:
    // The module's own handle, set once at process attach.
    static void SetModuleHandle(HINSTANCE instance);
    static HINSTANCE GetModuleHandle();

    // The folder that the module was loaded from, without a trailing backslash: its file name up to
    // but not including the last backslash. At most 260 characters; empty before attach.
    static OString GetDriverDirectory();
};
