// The sheets that the module shows for the 16-bit driver.
#pragma once

#include <windows.h>

class prtui;

// Both show a sheet with the pages in the UI object's `pages16`, which is empty afterwards, and run
// it until it is closed: IDOK or IDCANCEL. Pages without a template are left out.

// A sheet of the module's own over `parent`, which may be null.
int X16_CreatePropertySheet(prtui* ui, HWND parent);

// A sheet side by side with the 16-bit driver's, so that the user sees one. First publishes the
// templates from which the 16-bit driver makes tabs for the module's pages, then waits until its
// sheet has appeared. IDCANCEL, and no sheet, if the channel's window goes before that, or the
// thread is told to quit.
int X16_AppendPropertySheet(prtui* ui);
