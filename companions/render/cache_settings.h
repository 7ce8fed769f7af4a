// The user's settings for keeping objects in the printer: a value of the printer's data.
#pragma once

#include <windows.h>

#include "printer/escape_records.h"

// Until somebody has set them: 1 MB of memory R, and the numbers 1 to 100 for both kinds.
[[nodiscard]] KVCacheSettings ReadCacheSettings(HANDLE printer);
// False if the user may not change the printer's data. A null pointer resets them.
[[nodiscard]] bool WriteCacheSettings(const WCHAR* printer_name, const KVCacheSettings* settings);
