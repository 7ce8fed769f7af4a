// MultiByteToWideChar and WideCharToMultiByte.
#include "host/guarded.h"
#include "locale/code_page.h"
#include "locale/facts.h"

#include <cstddef>

namespace win32host {
namespace {

// Where a conversion writes. Counts if there is no buffer, else stops at its end.
template <class Unit>
class Sink {
public:
    Sink(Unit* buffer, int size)
        : buffer_(size > 0 ? buffer : nullptr)
        , size_(static_cast<size_t>(size)) {}

    // All `count` units of a character are written, or none.
    bool Put(const Unit* units, size_t count) {
        if (buffer_) {
            if (count > size_ - used_) return false;
            for (size_t i = 0; i < count; ++i) buffer_[used_ + i] = units[i];
        }
        used_ += count;
        return true;
    }
    bool Put(Unit unit) { return Put(&unit, 1); }

    // The answer for the caller.
    int Finish(bool complete) const {
        if (complete) return static_cast<int>(used_);
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }

private:
    Unit* buffer_;
    size_t size_;
    size_t used_ = 0;
};

// ---- UTF-8 --------------------------------------------------------------------------------------

constexpr char16_t kReplacementCharacter = 0xFFFD;

// Decodes the character at the front of `text`. Answers the number of bytes it takes. For malformed
// input `c` is kReplacementCharacter, `good` is false, and the answer is the length of the longest
// beginning of a valid sequence (at least one byte).
size_t DecodeUtf8(const BYTE* text, size_t left, char32_t& c, bool& good) {
    const BYTE first = text[0];
    size_t length = 1;
    BYTE low = 0x80, high = 0xBF; // of the second byte
    if (first < 0x80) {
        c = first;
        good = true;
        return 1;
    }
    if (first >= 0xC2 && first <= 0xDF) {
        length = 2;
    } else if (first >= 0xE0 && first <= 0xEF) {
        length = 3;
        if (first == 0xE0) low = 0xA0;
        if (first == 0xED) high = 0x9F;
    } else if (first >= 0xF0 && first <= 0xF4) {
        length = 4;
        if (first == 0xF0) low = 0x90;
        if (first == 0xF4) high = 0x8F;
    }
    good = false;
    c = kReplacementCharacter;
    if (length == 1) return 1;
    char32_t value = first & (0x7Fu >> length);
    for (size_t i = 1; i < length; ++i) {
        if (i >= left || text[i] < low || text[i] > high) return i;
        value = (value << 6) | (text[i] & 0x3Fu);
        low = 0x80;
        high = 0xBF;
    }
    c = value;
    good = true;
    return length;
}

int FromUtf8(DWORD flags, const BYTE* text, size_t bytes, Sink<WCHAR> sink) {
    for (size_t at = 0; at < bytes;) {
        char32_t c;
        bool good;
        at += DecodeUtf8(text + at, bytes - at, c, good);
        if (!good && (flags & MB_ERR_INVALID_CHARS)) return Fail(ERROR_NO_UNICODE_TRANSLATION);
        bool room;
        if (c < 0x10000) {
            room = sink.Put(static_cast<WCHAR>(c));
        } else {
            const WCHAR pair[] = {static_cast<WCHAR>(0xD800 + ((c - 0x10000) >> 10)),
                                  static_cast<WCHAR>(0xDC00 + (c & 0x3FF))};
            room = sink.Put(pair, 2);
        }
        if (!room) return sink.Finish(false);
    }
    return sink.Finish(true);
}

int ToUtf8(DWORD flags, LPCWSTR text, size_t units, Sink<char> sink) {
    for (size_t at = 0; at < units; ++at) {
        char32_t c = text[at];
        if ((c & 0xFC00) == 0xD800 && at + 1 < units && (text[at + 1] & 0xFC00) == 0xDC00) {
            c = 0x10000 + ((c & 0x3FF) << 10) + (text[++at] & 0x3FFu);
        } else if ((c & 0xF800) == 0xD800) {
            if (flags & WC_ERR_INVALID_CHARS) return Fail(ERROR_NO_UNICODE_TRANSLATION);
            c = kReplacementCharacter;
        }
        if (c < 0x80) {
            if (!sink.Put(static_cast<char>(c))) return sink.Finish(false);
            continue;
        }
        char out[4];
        size_t count;
        const auto tail = [&](unsigned shift) {
            return static_cast<char>(0x80 | ((c >> shift) & 0x3F));
        };
        if (c < 0x800) {
            out[0] = static_cast<char>(0xC0 | (c >> 6));
            out[1] = tail(0);
            count = 2;
        } else if (c < 0x10000) {
            out[0] = static_cast<char>(0xE0 | (c >> 12));
            out[1] = tail(6);
            out[2] = tail(0);
            count = 3;
        } else {
            out[0] = static_cast<char>(0xF0 | (c >> 18));
            out[1] = tail(12);
            out[2] = tail(6);
            out[3] = tail(0);
            count = 4;
        }
        if (!sink.Put(out, count)) return sink.Finish(false);
    }
    return sink.Finish(true);
}

// ---- Code pages with tables ---------------------------------------------------------------------

int FromTable(const CodePageTable& table, DWORD flags, const BYTE* text, size_t bytes,
              Sink<WCHAR> sink) {
    const CodePageInfo& info = table.info();
    for (size_t at = 0; at < bytes; ++at) {
        WCHAR unit = table.FromByte(text[at]);
        if (unit == CodePageTable::kUndefined) {
            // A terminator is never the second half of a character.
            if (info.IsLeadByte(text[at]) && at + 1 < bytes && text[at + 1] != 0) {
                unit = table.FromPair(text[at], text[at + 1]);
                ++at;
            }
            if (unit == CodePageTable::kUndefined) {
                if (flags & MB_ERR_INVALID_CHARS) return Fail(ERROR_NO_UNICODE_TRANSLATION);
                unit = info.default_unicode;
            }
        }
        // Single bytes in this part of the private use area have no meaning.
        if ((flags & MB_ERR_INVALID_CHARS) && unit >= 0xF880 && unit <= 0xF8FF)
            return Fail(ERROR_NO_UNICODE_TRANSLATION);
        if (!sink.Put(unit)) return sink.Finish(false);
    }
    return sink.Finish(true);
}

int ToTable(const CodePageTable& table, DWORD flags, LPCWSTR text, size_t units, Sink<char> sink,
            LPCSTR default_char, LPBOOL used_default) {
    char substitute[2] = {'?', 0};
    size_t substitute_size = 1;
    if (default_char) {
        substitute[0] = default_char[0];
        if (table.info().IsLeadByte(static_cast<BYTE>(default_char[0])) && default_char[1]) {
            substitute[1] = default_char[1];
            substitute_size = 2;
        }
    }
    for (size_t at = 0; at < units; ++at) {
        const WCHAR unit = text[at];
        const WORD bytes = table.ToBytes(unit);
        bool room;
        if ((bytes == 0 && unit != 0) ||
            ((flags & WC_NO_BEST_FIT_CHARS) && table.IsBestFit(unit))) {
            if (used_default) *used_default = TRUE;
            room = sink.Put(substitute, substitute_size);
        } else if (bytes < 0x100) {
            room = sink.Put(static_cast<char>(bytes));
        } else {
            const char pair[] = {static_cast<char>(bytes >> 8), static_cast<char>(bytes & 0xFF)};
            room = sink.Put(pair, 2);
        }
        if (!room) return sink.Finish(false);
    }
    return sink.Finish(true);
}

// The checks that both directions share. `length` becomes the full length of the text.
template <class From, class To>
bool CheckBuffers(const From* text, int given, const To* buffer, int size, size_t& length) {
    if (!text || given == 0 || size < 0 || (size > 0 && !buffer)) return false;
    if (static_cast<const void*>(text) == static_cast<const void*>(buffer)) return false;
    if (given > 0) {
        length = static_cast<size_t>(given);
    } else {
        length = 1;
        while (text[length - 1]) ++length;
    }
    return true;
}

} // namespace
} // namespace win32host

using namespace win32host;

extern "C" {

int WINAPI MultiByteToWideChar(UINT code_page, DWORD flags, LPCSTR text, int bytes, LPWSTR buffer,
                               int size) {
    size_t length;
    if (!CheckBuffers(text, bytes, buffer, size, length)) return Fail(ERROR_INVALID_PARAMETER);
    code_page = ResolveCodePage(code_page);
    const CodePageTable* table = nullptr;
    if (IsMissingCodePage(code_page) ||
        (code_page != CP_UTF8 && !(table = FindCodePageTable(code_page))))
        return Fail(ERROR_INVALID_PARAMETER);
    const DWORD known = table ? MB_PRECOMPOSED | MB_ERR_INVALID_CHARS : MB_ERR_INVALID_CHARS;
    if (flags & ~known) return Fail(ERROR_INVALID_FLAGS);

    const BYTE* source = reinterpret_cast<const BYTE*>(text);
    const Sink<WCHAR> sink(buffer, size);
    return table ? FromTable(*table, flags, source, length, sink)
                 : FromUtf8(flags, source, length, sink);
}

int WINAPI WideCharToMultiByte(UINT code_page, DWORD flags, LPCWSTR text, int units, LPSTR buffer,
                               int size, LPCSTR default_char, LPBOOL used_default) {
    size_t length;
    if (!CheckBuffers(text, units, buffer, size, length)) return Fail(ERROR_INVALID_PARAMETER);
    code_page = ResolveCodePage(code_page);
    const CodePageTable* table = nullptr;
    if (IsMissingCodePage(code_page) ||
        (code_page != CP_UTF8 && !(table = FindCodePageTable(code_page))) ||
        (code_page == CP_UTF8 && (default_char || used_default)))
        return Fail(ERROR_INVALID_PARAMETER);
    const DWORD known = table ? WC_NO_BEST_FIT_CHARS : WC_ERR_INVALID_CHARS;
    if (flags & ~known) return Fail(ERROR_INVALID_FLAGS);

    const Sink<char> sink(buffer, size);
    if (!table) return ToUtf8(flags, text, length, sink);
    if (used_default) *used_default = FALSE;
    return ToTable(*table, flags, text, length, sink, default_char, used_default);
}

} // extern "C"
