// What the rendering module remembers of a printer: values of the printer's data, which only some
// users may change.
#pragma once

#include <windows.h>

#include <cstddef>

// Reads a value into a buffer of `size` bytes. Answers how long it is; 0 if there is none or it is
// longer. `printer` is any handle of the printer.
[[nodiscard]] size_t ReadPrinterValue(HANDLE printer, const WCHAR* name, void* value, size_t size);

// Stores a value. A null pointer removes the value, if there is one. False if the user may not
// change the printer's data or they cannot be written.
[[nodiscard]] bool WritePrinterValue(const WCHAR* printer_name, const WCHAR* name,
                                     const void* value, size_t size);
