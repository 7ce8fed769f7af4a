#include "pages/advanced/escape_sequences.h"

#include <algorithm>

namespace {

constexpr int kNumberLength = 3; // the sign and two digits

// Appends a text with line breaks of one character.
void AddWithShortLineBreaks(const OString& text, OTypedArray<WCHAR>& units) {
    for (const WCHAR* unit = text.wstring(); *unit; ++unit)
        if (unit[0] != '\r' || unit[1] != '\n') units.Add(*unit);
}

// How many of `rest` characters of a line, the first of which follows the escape character, belong
// to its sequence.
int SequenceLength(const WCHAR* after, int rest) {
    if (rest == 0) return 0;
    switch (*after) {
    case '<': {
        const WCHAR* const end = after + rest;
        const WCHAR* const close = std::find(after, end, WCHAR{'>'});
        return close == end ? rest : static_cast<int>(close - after) + 1;
    }
    case '#':
        return std::min(rest, kNumberLength);
    case '?':
        return rest;
    default:
        return 1;
    }
}

} // namespace

const char* ControlCharName(char c) {
    static constexpr const char* kNames[] = {
        "NUL", "SOH", "STX", "ETX", "EOT", "ENQ", "ACK", "BEL", "BS",  "HT",  "LF",
        "VT",  "FF",  "CR",  "SO",  "SI",  "DLE", "DC1", "DC2", "DC3", "DC4", "NAK",
        "SYN", "ETB", "CAN", "EM",  "SUB", "ESC", "FS",  "GS",  "RS",  "US",  "SP"};
    constexpr unsigned char kDelete = 127;
    const auto code = static_cast<unsigned char>(c);
    if (code <= ' ') return kNames[code];
    return code == kDelete ? "DEL" : "";
}

void FindEscapeSequences(const OString& text, char escape, OTypedArray<TextRange>& ranges) {
    ranges.SetSize(0);
    if (escape == 0) return;
    OString escape_text;
    escape_text << escape;
    const WCHAR mark = *escape_text.wstring();
    OTypedArray<WCHAR> units;
    AddWithShortLineBreaks(text, units);
    const WCHAR* const first = units.GetData();
    const WCHAR* const last = first + units.GetSize();
    for (const WCHAR* at = std::find(first, last, mark); at != last;) {
        const WCHAR* const after = at + 1;
        const int rest = static_cast<int>(std::find(after, last, WCHAR{'\n'}) - after);
        const WCHAR* const end = after + SequenceLength(after, rest);
        ranges.Add({static_cast<int>(at - first), static_cast<int>(end - first)});
        at = std::find(end, last, mark);
    }
}
