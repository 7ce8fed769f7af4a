// DEVMODEs as the spooler's answers hold them.
#pragma once

#include <windows.h>

#include "core/obuffer.h"

// Both take a DEVMODE of which `available` bytes may be read, and answer a copy: a DEVMODEW of
// dmSize + dmDriverExtra bytes. The copy is empty when the DEVMODE ends before its sizes, claims
// less than these or more than is available, and when the memory cannot be had.
OBuffer<unsigned char> CopyDevMode(const DEVMODEW* dev_mode, size_t available);

// The copy of an ANSI DEVMODE has its device and form name converted from the system's ANSI code
// page; all other members and the private part are the same. dmSize grows with the names.
OBuffer<unsigned char> CopyDevMode(const DEVMODEA* dev_mode, size_t available);
