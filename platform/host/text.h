// Names in UTF-8 and UTF-16, and their comparison without regard to case.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace win32host {

// Both directions keep every valid text. A lone surrogate becomes its three-byte UTF-8 pattern and
// comes back as it was, so that any UTF-16 name can be stored. Bytes that are not UTF-8 become
// U+FFFD.
std::string Utf8(std::u16string_view text);
std::u16string Utf16(std::string_view text);

// A text that a caller may leave out: null is empty.
std::u16string CopyOf(LPCWSTR text);

// The upper case of one UTF-16 unit, as used to compare names: the same in every locale, and always
// one unit.
char16_t UpperOf(char16_t unit);
// The lower case, in the same way.
char16_t LowerOf(char16_t unit);

bool SameName(std::u16string_view a, std::u16string_view b);

} // namespace win32host
