// The handle of the settings interface: the UI object of one printer.
#pragma once

#include <windows.h>

class prtui;

// The UI object that a handle is, for what needs a printer; null for a null handle and for a
// printer without a model.
prtui* PrinterOf(HANDLE settings);

// The same for what a page would refuse to a user below the printer's access level, and what no
// page asks for here: null for such a user as well.
prtui* ChangeablePrinterOf(HANDLE settings);
