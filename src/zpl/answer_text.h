// Bytes from a printer as texts in the system's code page.
#pragma once

#include <cstdint>

#include "core/ostring.h"

// The bytes as a text that ends at the first NUL or at their end.
OString AnswerText(const char* bytes, uint32_t size);

// Up to `count` characters of a text from column `start` on, counted in bytes; fewer or none if the
// text ends earlier. Empty for a negative count.
OString AnswerPart(const char* text, int start, int count);

// The bytes of a value of 32 or more. Each run of other bytes between them or at the end becomes
// one semicolon. Null stands for no bytes.
OString WithoutControls(const char* bytes, uint32_t size);
