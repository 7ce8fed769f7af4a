// Texts in fixed fields of UTF-16 units.
#pragma once

#include <windows.h>

#include "core/ostring.h"

// Fills a field of `room` units with a text, cut to leave a terminator, and zeros behind it. The
// field need not be aligned.
void PutFixedText(void* field, const OString& text, int room);
