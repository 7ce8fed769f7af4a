// Two facts about the installation that decide how the module works.
#pragma once

#include "core/ostring.h"

// Set once when the module is attached, before any other thread can call it, and read everywhere.

// The module runs from a numbered version folder of the spooler's driver directory. False on the
// 16-bit (Windows 9x) installation, where the 32-bit pages live inside the 16-bit driver's sheets.
extern bool winNT;

// That version is 3 or higher: a user-mode driver. Never set without winNT.
extern bool win2000;

// Derives both flags from the folder that the module was loaded from (no trailing separator):
// "...\drivers\w32x86\3" sets both, "...\w32x86\2" only winNT, "...\SYSTEM" neither.
void SetPlatformFlags(const OString& driver_directory);
