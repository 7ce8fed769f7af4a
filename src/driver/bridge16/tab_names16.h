// The names of the 16-bit driver's own tabs.
#pragma once

#include "core/ostring_array.h"
#include "driver/bridge16/sheet_window.h"
#include "keys/prtreg.h"

// The names, as the model's registry has them. The first time they are learnt from a sheet, whose
// first `count` tabs are the driver's own: it is turned to each of them, ends at the first, and the
// names are stored. Without titles they are "General", "Details" and "Sharing".
void GetTabNames16(prtreg& registry, const SheetWindow& sheet, int count, OStringArray& names);
