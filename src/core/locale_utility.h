// Character sets, code pages and UTF-8.
#pragma once

#include <windows.h>

#include <cstdint>

#include "core/obuffer.h"

class LocaleUtility {
public:
    // The code page of a Windows character set (0 ANSI, 128 Shift JIS, 238 East Europe, ...), or 0
    // if it is unknown. The symbol set, 2, has the pseudo code page 2.
    static uint32_t CharSetToCodePage(unsigned char charset);

    // The character set of a code page, or 255 (OEM) if it has none.
    static unsigned char CodePageToCharSet(uint32_t code_page);

    // Whether characters of the code page may take two bytes: 932, 936, 949, 950 and 1361.
    static bool IsMultiByteCodePage(uint32_t code_page);

    // UTF-16 to UTF-8 and back, by the system's own coder. Every UTF-16 unit is coded on its own,
    // in up to three bytes; the halves of a surrogate pair take three bytes each. On the way back,
    // continuation bytes count by their low six bits whatever they are, and every other byte at or
    // above 0x80 that does not begin a two-byte sequence begins one of three bytes.
    //
    // A text ends at its terminator or with its buffer. A sequence that is cut off by the end is
    // dropped. `out` becomes exactly the text with its terminator, and stays unchanged if there is
    // no memory.
    static void ConvertUTF8(const OBuffer<WCHAR>& in, OBuffer<char>& out);
    static void ConvertUTF8(const OBuffer<char>& in, OBuffer<WCHAR>& out);

    // The same for `length` characters before a terminator, which must not contain NUL. The caller
    // provides the room: three bytes for each unit, one unit for each byte. No terminator is
    // written. Returns the number of characters written.
    static uint32_t ConvertUTF8(const WCHAR* in, uint32_t length, char* out);
    static uint32_t ConvertUTF8(const char* in, uint32_t length, WCHAR* out);
};
