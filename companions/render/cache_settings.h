// How objects would be kept in the printer, as the user has set it: a value of the printer's data.
#pragma once

#include <windows.h>

#include "printer/escape_records.h"

// All zeros, and memory R, until somebody has set it.
KVCacheSettings ReadCacheSettings(HANDLE printer);
// False when the user may not change the printer's data. A null pointer resets them.
bool WriteCacheSettings(const WCHAR* printer_name, const KVCacheSettings* settings);
