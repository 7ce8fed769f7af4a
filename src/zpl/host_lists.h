// The lists that a ZPL II printer sends: its files and its configuration.
#pragma once

#include <cstdint>

#include "core/ostring_array.h"

// ^HW. Appends the files of a directory, one entry each: device, colon, name with extension, size
// in decimal and three characters of flags, separated by semicolons ("E:LOGO.GRF;1234;P"). A file
// on device Z, one built into the printer, hides those of the same name on other devices, whether
// they are in `files` already or come later. Directories of fewer than four lines are not read.
void ReadFileList(const char* answer, uint32_t size, OStringArray& files);

// ^HH. Appends the lines of the printer's configuration as label, "@" and value ("PRINT
// WIDTH@832"). Lines without a value are skipped.
void ReadConfigurationList(const char* answer, uint32_t size, OStringArray& configuration);
