#include "host/text.h"

#include <algorithm>

#include <clocale>
#include <cwctype>

namespace win32host {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char16_t unit) {
    return (unit & 0xFC00) == 0xD800;
}

bool IsLowSurrogate(char16_t unit) {
    return (unit & 0xFC00) == 0xDC00;
}

void AppendUtf8(std::string& bytes, char32_t c) {
    auto put = [&](char32_t byte) { bytes += static_cast<char>(static_cast<unsigned char>(byte)); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | (c >> 6));
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | (c >> 12));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | (c >> 18));
        put(0x80 | ((c >> 12) & 0x3F));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    }
}

// Takes one character off the front of `text`. A byte that cannot start one counts as kReplacement.
char32_t TakeCharacter(std::string_view& text) {
    const auto byte = [&](size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byte(0);
    const size_t length = first < 0x80   ? 1
                          : first < 0xC2 ? 0
                          : first < 0xE0 ? 2
                          : first < 0xF0 ? 3
                          : first < 0xF5 ? 4
                                         : 0;
    char32_t c = length <= 1 ? first : first & (0x7Fu >> length);
    bool good = length > 0 && length <= text.size();
    for (size_t i = 1; good && i < length; ++i) {
        good = (byte(i) & 0xC0) == 0x80;
        c = (c << 6) | (byte(i) & 0x3Fu);
    }
    static constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (!good || c < smallest[length] || c > 0x10FFFF) {
        text.remove_prefix(1);
        return kReplacement;
    }
    text.remove_prefix(length);
    return c;
}

} // namespace

std::string Utf8(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if (IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            c = 0x10000 + ((c & 0x3FF) << 10) + (text[i + 1] & 0x3FFu);
            ++i;
        }
        AppendUtf8(bytes, c);
    }
    return bytes;
}

std::u16string CopyOf(LPCWSTR text) {
    return text ? text : u"";
}

std::u16string Utf16(std::string_view text) {
    std::u16string units;
    units.reserve(text.size());
    while (!text.empty()) {
        const char32_t c = TakeCharacter(text);
        if (c >= 0x10000) {
            units += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
            units += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
        } else {
            units += static_cast<char16_t>(c);
        }
    }
    return units;
}

// The letters of all languages.
static locale_t LetterLocale() {
    static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return locale;
}

char16_t UpperOf(char16_t unit) {
    if (unit < 0x80)
        return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 0x20) : unit;
    if (!LetterLocale()) return unit;
    const wint_t upper = towupper_l(unit, LetterLocale());
    return upper < 0x10000 ? static_cast<char16_t>(upper) : unit;
}

char16_t LowerOf(char16_t unit) {
    if (unit < 0x80)
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 0x20) : unit;
    if (!LetterLocale()) return unit;
    const wint_t lower = towlower_l(unit, LetterLocale());
    return lower < 0x10000 ? static_cast<char16_t>(lower) : unit;
}

bool SameName(std::u16string_view a, std::u16string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char16_t x, char16_t y) { return x == y || UpperOf(x) == UpperOf(y); });
}

} // namespace win32host
