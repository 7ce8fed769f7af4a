// The handle of the settings interface: the UI object of one printer.
#pragma once

#include <windows.h>

class prtui;

// The UI object of a handle, for functions that need a printer. Null for a null handle and for a
// printer without a model.
prtui* PrinterOf(HANDLE settings);

// The same for functions that a page would refuse to a user below the printer's access level, and
// that no page asks for here. Also null for such a user.
prtui* ChangeablePrinterOf(HANDLE settings);
