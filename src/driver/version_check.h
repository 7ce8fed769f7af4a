// Whether the module fits the system that it was installed on.
#pragma once

#include <windows.h>

// There are two builds of the driver: one for version-3 driver directories, which fits every
// system, and one for older ones, which does not fit Windows XP and later: major version 5 or more
// with a minor version other than 0. False if this is the wrong one.
bool CheckWindowsVersion();

// Tells the user so, in a message box.
void DisplayVersionWarning();

// Leaves a mark in the printer's data that tells the rendering module not to run. Needs the right
// to administer the printer.
void WriteVersionError(HANDLE printer);
