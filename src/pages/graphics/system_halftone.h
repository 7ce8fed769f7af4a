// The system's own dialogs for halftones, where the system has them ("htui.dll").
#pragma once

#include <windows.h>

#include "core/ostring.h"

// Each edits the halftone settings that a DEVMODE shares with the system, after its public part,
// and answers IDOK if the user confirmed. Without the library, the function or those settings
// nothing is shown, and the answer is IDCANCEL.

// The colour adjustment.
int EditSystemColorAdjustment(DEVMODEW* settings, const OString& title, bool color);

// The halftones of the device, at `x` by `y` dots per inch.
int EditSystemHalftone(DEVMODEW* settings, const OString& device, int x, int y, bool color);
