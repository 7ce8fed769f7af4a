// Finds the 16-bit driver's sheet among the windows.
#pragma once

#include <windows.h>

#include "core/ostring.h"

// The uppermost window that looks like the 16-bit driver's sheet for a printer and has not been
// paired with one of the module's yet. Null if there is none.
HWND X16_FindSheet16(const OString& printer_name);
