// The system's text formatter.
#include <windows.h>

#include "host/guarded.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace {

constexpr size_t kMaximum = 1024; // units, terminator included

// The part of a conversion between '%' and its letter.
struct Conversion {
    bool left = false;
    bool prefix = false;
    bool zeros = false;
    size_t width = 0;
    int precision = -1;
    bool narrow = false; // 'h'
    bool wide = false;   // 'l' or 'w'
    bool is_64 = false;  // "I64", or "I" where pointers have 64 bits
    WCHAR letter = 0;
};

size_t ReadNumber(LPCWSTR& at) {
    size_t number = 0;
    for (; *at >= u'0' && *at <= u'9'; ++at)
        number = std::min<size_t>(number * 10 + static_cast<size_t>(*at - u'0'), kMaximum);
    return number;
}

// Reads what follows the '%'. `at` ends up after the letter, or at the terminator.
Conversion ReadConversion(LPCWSTR& at) {
    Conversion c;
    for (;; ++at) {
        if (*at == u'-') {
            c.left = true;
        } else if (*at == u'#') {
            c.prefix = true;
        } else if (*at == u'0') {
            c.zeros = true;
        } else {
            break;
        }
    }
    c.width = ReadNumber(at);
    if (*at == u'.') c.precision = static_cast<int>(ReadNumber(++at));
    if (*at == u'h') {
        c.narrow = true;
        ++at;
    } else if (*at == u'l' || *at == u'w') {
        c.wide = true;
        ++at;
    } else if (*at == u'I') {
        ++at;
        if (at[0] == u'6' && at[1] == u'4') {
            c.is_64 = true;
            at += 2;
        } else if (at[0] == u'3' && at[1] == u'2') {
            at += 2;
        } else {
            c.is_64 = sizeof(void*) == 8;
        }
    }
    c.letter = *at;
    if (*at) ++at;
    return c;
}

std::u16string Digits(uint64_t number, unsigned base, bool capitals) {
    const char16_t* digits = capitals ? u"0123456789ABCDEF" : u"0123456789abcdef";
    std::u16string text;
    do {
        text += digits[number % base];
        number /= base;
    } while (number);
    std::reverse(text.begin(), text.end());
    return text;
}

class Output {
public:
    explicit Output(LPWSTR buffer)
        : buffer_(buffer) {}

    void Put(WCHAR unit) {
        if (used_ < kMaximum - 1) buffer_[used_++] = unit;
    }
    void Put(const std::u16string& text) {
        for (WCHAR unit : text) Put(unit);
    }
    void Fill(WCHAR unit, size_t count) {
        while (count-- > 0) Put(unit);
    }
    // Writes text in a field; `lead` (a sign, a prefix) goes before filling zeros.
    void Field(const Conversion& c, const std::u16string& lead, const std::u16string& text) {
        const size_t length = lead.size() + text.size();
        const size_t fill = c.width > length ? c.width - length : 0;
        if (!c.left && !c.zeros) Fill(u' ', fill);
        Put(lead);
        if (!c.left && c.zeros) Fill(u'0', fill);
        Put(text);
        if (c.left) Fill(u' ', fill);
    }
    int Finish() {
        buffer_[used_] = 0;
        return static_cast<int>(used_);
    }

private:
    LPWSTR buffer_;
    size_t used_ = 0;
};

std::u16string FromNarrow(LPCSTR text, size_t bytes) {
    std::u16string wide(bytes, u'\0');
    if (bytes == 0) return wide;
    const int units = MultiByteToWideChar(CP_ACP, 0, text, static_cast<int>(bytes), wide.data(),
                                          static_cast<int>(bytes));
    wide.resize(static_cast<size_t>(units));
    return wide;
}

// Reads at most `precision` units, and never more than the formatter can write.
std::u16string WideText(LPCWSTR text, int precision) {
    if (!text) text = u"(null)";
    const size_t limit = precision < 0 ? kMaximum : static_cast<size_t>(precision);
    size_t length = 0;
    while (length < limit && text[length]) ++length;
    return {text, length};
}

std::u16string NarrowText(LPCSTR text, int precision) {
    if (!text) text = "(null)";
    const size_t limit = precision < 0 ? kMaximum * 2 : static_cast<size_t>(precision);
    return FromNarrow(text, strnlen(text, limit));
}

int Write(LPWSTR buffer, LPCWSTR format, va_list arguments) {
    Output out(buffer);
    while (*format) {
        if (*format != u'%') {
            out.Put(*format++);
            continue;
        }
        ++format;
        const Conversion c = ReadConversion(format);
        std::u16string lead, text;
        switch (c.letter) {
        case u'c':
        case u'C': {
            const int value = va_arg(arguments, int);
            if (c.narrow || (c.letter == u'C' && !c.wide)) {
                const char byte = static_cast<char>(value);
                text = FromNarrow(&byte, 1);
            } else {
                text = static_cast<WCHAR>(value);
            }
            break;
        }
        case u's':
        case u'S':
            if (c.narrow || (c.letter == u'S' && !c.wide)) {
                text = NarrowText(va_arg(arguments, LPCSTR), c.precision);
            } else {
                text = WideText(va_arg(arguments, LPCWSTR), c.precision);
            }
            break;
        case u'd':
        case u'i': {
            const int64_t value =
                c.is_64 ? va_arg(arguments, int64_t) : int64_t{va_arg(arguments, int32_t)};
            uint64_t magnitude = static_cast<uint64_t>(value);
            if (value < 0) {
                lead = u"-";
                magnitude = 0 - magnitude;
            }
            text = Digits(magnitude, 10, false);
            break;
        }
        case u'u':
        case u'x':
        case u'X': {
            const uint64_t value =
                c.is_64 ? va_arg(arguments, uint64_t) : uint64_t{va_arg(arguments, uint32_t)};
            const bool capitals = c.letter == u'X';
            text = Digits(value, c.letter == u'u' ? 10 : 16, capitals);
            if (c.prefix && c.letter != u'u') lead = capitals ? u"0X" : u"0x";
            break;
        }
        case u'p':
            text = Digits(reinterpret_cast<uintptr_t>(va_arg(arguments, void*)), 16, true);
            text.insert(0, sizeof(void*) * 2 - text.size(), u'0');
            break;
        case 0:
            continue;
        default:
            out.Put(c.letter); // "%%" and unknown letters
            continue;
        }
        const bool number =
            c.letter != u'c' && c.letter != u'C' && c.letter != u's' && c.letter != u'S';
        if (number && c.precision > static_cast<int>(text.size()))
            text.insert(0, static_cast<size_t>(c.precision) - text.size(), u'0');
        out.Field(c, lead, text);
    }
    return out.Finish();
}

} // namespace

extern "C" {

int WINAPI wvsprintfW(LPWSTR buffer, LPCWSTR format, va_list arguments) {
    return win32host::Guarded(0, [&] { return Write(buffer, format, arguments); });
}

int wsprintfW(LPWSTR buffer, LPCWSTR format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = wvsprintfW(buffer, format, arguments);
    va_end(arguments);
    return length;
}

} // extern "C"
