// Searching and editing of strings.
#include <algorithm>
#include <climits>
#include <cstring>
#include <string_view>

#include "core/locale_utility.h"
#include "core/memory.h"
#include "core/numbers.h"
#include "core/ostring.h"
#include "core/ostring_core.h"

namespace {

using WideView = std::basic_string_view<WCHAR>;

bool IsDigit(int c) {
    return c >= '0' && c <= '9';
}

// The length of a text, counting at most `limit` characters.
template <class C>
int LengthUpTo(const C* text, int limit) {
    int length = 0;
    while (length < limit && text[length] != 0) ++length;
    return length;
}

// Maps the characters first..last to those from `replacement` on.
template <class C>
void MapRange(C* text, char first, char last, char replacement) {
    for (; *text; ++text)
        if (*text >= static_cast<C>(first) && *text <= static_cast<C>(last))
            *text = static_cast<C>(*text - first + replacement);
}

// The value of a hexadecimal digit. Other characters count by their low bits.
int HexDigit(WCHAR c) {
    return IsDigit(c) ? c - '0' : (c & 15) + 9;
}

} // namespace

// ---- Searching ----------------------------------------------------------------------------------

int OString::Find(char c, int start) const {
    const char* text = nstring();
    start = std::max(start, 0);
    if (start >= nlen() || c == 0) return -1;
    const char* found = std::strchr(text + start, c);
    return found ? static_cast<int>(found - text) : -1;
}

int OString::Find(const char* text, int start) const {
    const char* whole = nstring();
    start = std::max(start, 0);
    if (!text || start >= nlen()) return -1;
    const char* found = std::strstr(whole + start, text);
    return found ? static_cast<int>(found - whole) : -1;
}

int OString::Find(const WCHAR* text, int start) const {
    const WCHAR* whole = wstring();
    start = std::max(start, 0);
    if (!text || start >= wlen()) return -1;
    const size_t found = WideView(whole, static_cast<size_t>(wlen()))
                             .find(WideView(text), static_cast<size_t>(start));
    return found == WideView::npos ? -1 : static_cast<int>(found);
}

int OString::ReverseFind(char c) const {
    const char* text = nstring();
    const char* found = std::strrchr(text, c);
    return found ? static_cast<int>(found - text) : -1;
}

int OString::FindOneOf(const char* set) const {
    const char* found = set ? std::strpbrk(nstring(), set) : nullptr;
    return found ? static_cast<int>(found - nstring()) : -1;
}

int OString::ReverseFindOneOf(const char* set) const {
    const char* text = nstring();
    if (!set) return -1;
    int at = nlen() - 1;
    while (at >= 0 && !std::strchr(set, text[at])) --at;
    return at;
}

bool OString::MatchPattern(const OString& pattern) const {
    const WCHAR* text = wstring();
    const WCHAR* wanted = pattern.wstring();
    // Only the last star can need a longer run: it can take whatever an earlier one could.
    const WCHAR* behind_star = nullptr;
    const WCHAR* run_end = nullptr;
    while (*text) {
        if (*wanted == '*') {
            behind_star = ++wanted;
            run_end = text;
        } else if (*wanted == '?' || *wanted == *text) {
            ++wanted;
            ++text;
        } else if (behind_star) {
            wanted = behind_star;
            text = ++run_end;
        } else {
            return false;
        }
    }
    while (*wanted == '*') ++wanted;
    return *wanted == 0;
}

// ---- Editing ------------------------------------------------------------------------------------

template <class C>
int OString::InsertText(int pos, const C* text, int count) {
    constexpr bool kWide = sizeof(C) == sizeof(WCHAR);
    count = text ? LengthUpTo(text, count) : 0;
    if (count <= 0 || !(kWide ? WriteW() : WriteN())) return GetLength();
    const uint32_t length = kWide ? core_->wlen() : core_->nlen();
    const uint32_t at = std::min(static_cast<uint32_t>(std::max(pos, 0)), length);
    const uint32_t extra = static_cast<uint32_t>(count);
    if (!core_->set_length(length + extra, true)) return GetLength();
    C* block;
    if constexpr (kWide)
        block = core_->alloc_w() ? core_->w() : nullptr;
    else
        block = core_->alloc_n() ? core_->n() : nullptr;
    if (!block) return 0;
    std::memmove(block + at + extra, block + at, (length - at) * sizeof(C));
    std::memcpy(block + at, text, extra * sizeof(C));
    if constexpr (kWide)
        core_->end_w(length + extra);
    else
        core_->end_n(length + extra);
    return GetLength();
}

int OString::Insert(int pos, const char* text, int count) {
    const OString held(Owns(text) ? text : "");
    return InsertText(pos, held.IsEmpty() ? text : held.nstring(), count);
}

int OString::Insert(int pos, const WCHAR* text, int count) {
    const OString held(Owns(text) ? text : TEXT(""));
    return InsertText(pos, held.IsEmpty() ? text : held.wstring(), count);
}

int OString::Delete(int pos, int count) {
    const int length = GetLength();
    pos = std::clamp(pos, 0, length);
    count = std::min(count, length - pos);
    if (count <= 0) return length;
    ChangeCore();
    if (!core_) return 0;
    if (is_valid_n() && is_valid_w() && nlen() != wlen()) core_->invalidate_n();
    const size_t rest = static_cast<size_t>(length - pos - count);
    const uint32_t new_length = static_cast<uint32_t>(length - count);
    if (is_valid_n()) {
        std::memmove(core_->n() + pos, core_->n() + pos + count, rest);
        core_->end_n(new_length);
    }
    if (is_valid_w()) {
        std::memmove(core_->w() + pos, core_->w() + pos + count, rest * sizeof(WCHAR));
        core_->end_w(new_length);
    }
    return GetLength();
}

void OString::Truncate(int length) {
    const int kept = std::max(length, 0);
    if (kept < GetLength()) Delete(kept, GetLength() - kept);
}

int OString::Replace(char from, char to) {
    if (from == to || IsEmpty() || !WriteN()) return 0;
    char* text = core_->n();
    const uint32_t length = core_->nlen();
    int count = 0;
    for (uint32_t i = 0; i < length; ++i) {
        if (text[i] != from) continue;
        text[i] = to;
        ++count;
    }
    core_->end_n(to == 0 ? static_cast<uint32_t>(std::strlen(text)) : length);
    return count;
}

int OString::Replace(const char* from, const char* to) {
    if (!from || !*from || IsEmpty()) return 0;
    if (!to || !*to) return RemoveAll(from);
    const char* text = nstring();
    int count = 0;
    const size_t old_length = std::strlen(from);
    for (const char* at = text; (at = std::strstr(at, from)) != nullptr; at += old_length) ++count;
    if (count == 0) return 0;

    const size_t new_length = std::strlen(to);
    const int64_t size =
        nlen() + count * (static_cast<int64_t>(new_length) - static_cast<int64_t>(old_length));
    OString result;
    result.SetCodePage(GetCodePage());
    char* out = size > INT_MAX ? nullptr : result.GetBufferA(static_cast<int>(size));
    if (!out) return 0;
    while (const char* found = std::strstr(text, from)) {
        const size_t kept = static_cast<size_t>(found - text);
        std::memcpy(out, text, kept);
        std::memcpy(out + kept, to, new_length);
        out += kept + new_length;
        text = found + old_length;
    }
    std::memcpy(out, text, std::strlen(text) + 1);
    result.core_->end_n(static_cast<uint32_t>(size));
    *this = std::move(result);
    return count;
}

// Removes every occurrence of a non-empty text. Returns their number.
int OString::RemoveAll(const char* text) {
    if (!std::strstr(nstring(), text)) return 0;
    const OString wanted(text);
    const size_t length = static_cast<size_t>(wanted.nlen());
    ChangeCore();
    if (!core_) return 0;
    const bool both = is_valid_w() && wlen() == nlen();
    if (!both) core_->invalidate_w();
    char* n = core_->n();
    WCHAR* w = core_->w();
    size_t read = 0;
    size_t written = 0;
    const auto keep_up_to = [&](size_t end) {
        std::memmove(n + written, n + read, end - read);
        if (both) std::memmove(w + written, w + read, (end - read) * sizeof(WCHAR));
        written += end - read;
    };
    int count = 0;
    while (const char* found = std::strstr(n + read, wanted.nstring())) {
        const size_t at = static_cast<size_t>(found - n);
        keep_up_to(at);
        read = at + length;
        ++count;
    }
    keep_up_to(static_cast<size_t>(nlen()));
    core_->end_n(static_cast<uint32_t>(written));
    if (both) core_->end_w(static_cast<uint32_t>(written));
    return count;
}

int OString::Remove(char c) {
    const char text[] = {c, 0};
    return Replace(text, "");
}

void OString::TrimLeft(const char* set) {
    if (set) Delete(0, static_cast<int>(std::strspn(nstring(), set)));
}

void OString::TrimLeft(char c) {
    const char set[] = {c, 0};
    TrimLeft(set);
}

void OString::TrimRight(const char* set) {
    if (!set) return;
    const char* text = nstring();
    int kept = nlen();
    while (kept > 0 && std::strchr(set, text[kept - 1])) --kept;
    const int count = nlen() - kept;
    Delete(GetLength() - count, count);
}

void OString::TrimRight(char c) {
    const char set[] = {c, 0};
    TrimRight(set);
}

void OString::MapLetters(char first, char last, char replacement) {
    if (IsEmpty()) return;
    // In a double-byte code page a letter's code may be half of a character.
    const uint32_t code_page = GetCodePage();
    const bool multi_byte =
        LocaleUtility::IsMultiByteCodePage(code_page == 0 ? GetACP() : code_page);
    if (multi_byte) wstring();
    ChangeCore();
    if (!core_) return;
    if (multi_byte && is_valid_w()) core_->invalidate_n();
    if (is_valid_n()) MapRange(core_->n(), first, last, replacement);
    if (is_valid_w()) MapRange(core_->w(), first, last, replacement);
}

void OString::MakeUpper() {
    MapLetters('a', 'z', 'A');
}

void OString::MakeLower() {
    MapLetters('A', 'Z', 'a');
}

OString OString::Mid(int start, int count) const {
    const int length = GetLength();
    start = std::max(start, 0);
    count = std::min(std::max(count, 0), length - std::min(start, length));
    if (start == 0 && count == length) return *this;
    OString part;
    part.SetCodePage(GetCodePage());
    // A position in the 8-bit form may lie beyond the end of the UTF-16 form.
    const WCHAR* text = wstring();
    count = std::min(count, wlen() - std::min(start, wlen()));
    if (count > 0) part.Append(text + start, static_cast<uint32_t>(count));
    return part;
}

OString OString::Mid(int start) const {
    const int length = GetLength();
    return Mid(start, length - std::clamp(start, 0, length));
}

OString OString::Left(int count) const {
    return Mid(0, std::min(count, GetLength()));
}

// The parts are cut in the UTF-16 form: in a double-byte code page a backslash may be half of a
// character.
OString OString::PathPart() const {
    const size_t slash = WideView(wstring()).rfind('\\');
    if (slash == 0) return *this;
    return Mid(0, slash == WideView::npos ? 0 : static_cast<int>(slash));
}

OString OString::FilePart() const {
    const size_t slash = WideView(wstring()).rfind('\\');
    if (slash == 0 || slash == WideView::npos) return *this;
    return Mid(static_cast<int>(slash) + 1);
}

void OString::Hex(const void* data, int count) {
    const int64_t bytes = count < 0 ? -int64_t{count} : count;
    OString text;
    text.SetCodePage(GetCodePage());
    if (data && bytes <= INT_MAX / 2 && bytes > 0) {
        char* out = text.GetBufferA(static_cast<int>(2 * bytes));
        if (!out) return;
        const unsigned char* byte = static_cast<const unsigned char*>(data);
        for (int64_t i = 0; i < bytes; ++i) {
            const unsigned char value = byte[count < 0 ? bytes - 1 - i : i];
            *out++ = "0123456789ABCDEF"[value >> 4];
            *out++ = "0123456789ABCDEF"[value & 15];
        }
        text.core_->end_n(static_cast<uint32_t>(2 * bytes));
    }
    *this = std::move(text);
}

void OString::NextUnique(bool space) {
    const WCHAR* text = wstring();
    const int length = wlen();
    int digits = length;
    while (digits > 0 && IsDigit(text[digits - 1])) --digits;
    if (digits == length) {
        const bool blank = space && length > 0 && text[length - 1] != ' ';
        Insert(length, blank ? TEXT(" 2") : TEXT("2"), 2);
        return;
    }
    const OString next = FormatInt(xtol(text + digits) + 1);
    if (!WriteW()) return;
    core_->end_w(static_cast<uint32_t>(digits));
    Insert(digits, next.wstring(), next.GetLength());
}

OString& OString::URLDecode() {
    for (int i = 0; wstring(), i < wlen() - 2; ++i) {
        const WCHAR* text = wstring() + i;
        if (text[0] != '%') continue;
        const char byte[] = {static_cast<char>(HexDigit(text[1]) * 16 + HexDigit(text[2])), 0};
        Replace(Mid(i, 3).nstring(), byte);
    }
    return *this;
}

OString::operator int32_t() const {
    return xtol(nstring());
}
