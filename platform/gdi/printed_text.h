// Text on printers.
#pragma once

#include "gdi/font.h"

#include <windows.h>

#include <string>

namespace win32host {

class DeviceContext;

// Prints a text with its top left corner at a pixel of the page, on a white ground. The rendering
// module only fills rectangles, so that is what the characters become. False if the font has no
// file, or if the printer fails as in PatBlt.
bool PrintText(DeviceContext& printer, Font& font, POINT at, const std::u16string& text);

} // namespace win32host
