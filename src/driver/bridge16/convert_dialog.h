// Dialog templates for 16-bit programs.
#pragma once

#include <cstdint>

// Converts the head of a dialog template, of either form, into the 16-bit layout: style, no
// controls, place and size, and the texts for menu, window class, title and font as 8-bit texts of
// the system's code page. The result is a dialog without controls.
//
// Returns the length of the result in bytes, of which at most `out_size` are written to `out`; null
// or 0 asks for the length only. 0 if `size` bytes do not hold the head of a template.
uint32_t ConvertDialog(const void* dialog_template, int size, void* out, int out_size);
