// Whether the module fits the system that it was installed on.
#pragma once

#include <windows.h>

// There are two builds of the driver: one for version-3 driver directories, which fits every
// system, and one for older ones, which does not fit Windows XP and what came after it: major
// version 5 or more with a minor version other than 0. False when this is the wrong one.
bool CheckWindowsVersion();

// Tells the user so, in a message box.
void DisplayVersionWarning();

// Leaves a mark in the printer's data, by which the rendering module knows that it must not run.
// Needs the right to administer the printer.
void WriteVersionError(HANDLE printer);
