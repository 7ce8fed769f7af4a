// Texts in fixed fields of UTF-16 units.
#pragma once

#include <windows.h>

#include "core/ostring.h"

// Fills a field of `room` units with a text, truncated to leave room for a terminator, followed by
// zeros. The field need not be aligned.
void PutFixedText(void* field, const OString& text, int room);
