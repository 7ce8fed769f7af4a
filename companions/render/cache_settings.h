// The user's settings for keeping objects in the printer: a value of the printer's data.
#pragma once

#include <windows.h>

#include "printer/escape_records.h"

// All zeros, and memory R, until somebody has set it.
KVCacheSettings ReadCacheSettings(HANDLE printer);
// False if the user may not change the printer's data. A null pointer resets them.
bool WriteCacheSettings(const WCHAR* printer_name, const KVCacheSettings* settings);
