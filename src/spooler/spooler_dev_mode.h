// DEVMODEs in the spooler's answers.
#pragma once

#include <windows.h>

#include "core/obuffer.h"

// Both take a DEVMODE of which `available` bytes may be read, and return a copy, a DEVMODEW of
// dmSize + dmDriverExtra bytes. The copy is empty if the DEVMODE ends before its sizes, claims less
// than these or more than is available, or if there is no memory.
OBuffer<unsigned char> CopyDevMode(const DEVMODEW* dev_mode, size_t available);

// The copy of an ANSI DEVMODE has its device and form name converted from the system's ANSI code
// page. All other members and the private part are the same. dmSize grows with the names.
OBuffer<unsigned char> CopyDevMode(const DEVMODEA* dev_mode, size_t available);
