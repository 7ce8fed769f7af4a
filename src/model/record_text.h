// Texts in fixed fields of binary records.
#pragma once

#include <cstddef>
#include <cstring>

#include "core/ostring.h"

// Writes the 8-bit form of a text into a field, truncated to leave a terminator, padded with zeros.
template <size_t N>
void SetRecordText(char (&field)[N], const OString& text) {
    const char* bytes = text.nstring();
    const size_t length = strnlen(bytes, N - 1);
    std::memcpy(field, bytes, length);
    std::memset(field + length, 0, N - length);
}
