// Bytes that a printer has sent, as texts in the system's code page.
#pragma once

#include <cstdint>

#include "core/ostring.h"

// The bytes as a text that ends at the first NUL, or with them.
OString AnswerText(const char* bytes, uint32_t size);

// Up to `count` characters of a text from the column `start` on, counted in bytes; fewer, or none,
// when the text ends before. Empty for a negative count.
OString AnswerPart(const char* text, int start, int count);

// The bytes of a value of 32 or more; each run of others between them, and one at the end, becomes
// a semicolon. Null is no bytes.
OString WithoutControls(const char* bytes, uint32_t size);
