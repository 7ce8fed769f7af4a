// Text between the command line (UTF-8) and Win32 (UTF-16).
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "common/trim.h"

using WideString = std::basic_string<WCHAR>;

WideString ToWide(const std::string& utf8);
std::string ToUtf8(const WCHAR* text, size_t length);
// Null becomes the empty text.
std::string ToUtf8(const WCHAR* text);

// The text in a fixed slot of `size` units, which need not be terminated.
std::string FromSlot(const WCHAR* slot, size_t size);

std::string ToHex(const std::vector<BYTE>& bytes);
// False unless `hex` is an even number of hexadecimal digits (blanks and commas between bytes are
// skipped).
bool FromHex(const std::string& hex, std::vector<BYTE>& bytes);

// False unless the text is a whole number of at most 18 digits: decimal, with or without a minus
// sign, or hexadecimal after 0x.
bool ToNumber(const std::string& text, int64_t& value);

// Compares without regard to the case of the letters a to z.
bool SameText(const std::string& a, const std::string& b);
