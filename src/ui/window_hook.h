// The driver's part in the system's General page of a printer.
#pragma once

class prtui;

// The page has a button that prints a test page. WindowHook_Install lets it print the driver's test
// label instead: a hook watches for the page and takes its commands over. The hook is one for the
// process and serves the UI object that installed it first. It goes as soon as it has found the
// page, or a sheet without one, and at the latest with WindowHook_Remove.
//
// While it is at it, it turns the sheet to its last page if the UI object asks for that.

// On the thread of the sheet. False if there is a hook already or none can be made.
bool WindowHook_Install(prtui* ui);

// Removes the hook of this UI object; a page that it found keeps its button. False if there is
// none.
bool WindowHook_Remove(const prtui* ui);
