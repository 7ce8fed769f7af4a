#include "registry/oregistry_names.h"

#include <utility>

#include "registry/oregistry.h"

namespace {

const WCHAR kEmpty[] = {0};

bool IsHex(WCHAR c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

WCHAR Wide(char c) {
    return static_cast<WCHAR>(static_cast<unsigned char>(c));
}

WCHAR Fold(WCHAR c) {
    return c >= 'a' && c <= 'z' ? static_cast<WCHAR>(c - 'a' + 'A') : c;
}

} // namespace

bool WideText::Reserve(size_t length) {
    const size_t needed = length + 1; // with its terminator
    if (needed <= buffer_.GetSize()) return true;
    size_t capacity = buffer_.GetSize() ? buffer_.GetSize() : 128;
    while (capacity < needed) capacity *= 2;
    if (capacity > 0x7FFFFFFF) {
        NoteAllocationFailure();
        return false;
    }
    return buffer_.SetSize(static_cast<uint32_t>(capacity));
}

void WideText::Add(const WCHAR* text, size_t length) {
    if (length == 0 || !Reserve(length_ + length)) return;
    WCHAR* end = buffer_.GetData() + length_;
    for (size_t i = 0; i < length; ++i) end[i] = text[i];
    end[length] = 0;
    length_ += length;
}

void WideText::Add(const OString& text) {
    const WCHAR* wide = text.wstring();
    Add(wide, static_cast<size_t>(text.wlen()));
}

void WideText::AddAscii(const char* text) {
    for (; *text; ++text) Add(Wide(*text));
}

const WCHAR* WideText::Text() const {
    return length_ ? buffer_.GetData() : kEmpty;
}

bool BeginsNoCase(const WCHAR* text, const char* prefix) {
    for (; *prefix; ++prefix, ++text) {
        if (Fold(*text) != Fold(Wide(*prefix))) return false;
    }
    return true;
}

bool HasCharacter(const OString& text, char c) {
    const WCHAR* p = text.wstring();
    while (*p && *p != Wide(c)) ++p;
    return *p != 0;
}

OString ReplaceText(const OString& text, const char* from, const OString& to) {
    if (!HasCharacter(text, *from)) return text;
    WideText result;
    bool found = false;
    for (const WCHAR* p = text.wstring(); *p;) {
        size_t same = 0;
        while (from[same] && p[same] == Wide(from[same])) ++same;
        if (same > 0 && !from[same]) {
            result.Add(to);
            p += same;
            found = true;
        } else {
            result.Add(*p++);
        }
    }
    return found ? result.String() : text;
}

OString EscapeDoubled(const OString& path) {
    const WCHAR* p = path.wstring();
    while (*p && *p != '\\' && !(p[1] == *p && (*p == '%' || *p == '/' || *p == ':'))) ++p;
    if (!*p) return path;
    WideText result;
    p = path.wstring();
    while (*p) {
        const char* escape = nullptr;
        if (p[1] == p[0]) {
            if (*p == '%') escape = "%25";
            if (*p == '/') escape = "%2F";
            if (*p == ':') escape = "%3A";
        }
        if (escape) {
            result.AddAscii(escape);
            p += 2;
        } else {
            result.Add(*p == '\\' ? Wide('/') : *p);
            ++p;
        }
    }
    return result.String();
}

OString DecodeName(const OString& name) {
    if (!HasCharacter(name, '%')) return name;
    WideText result;
    const WCHAR* p = name.wstring();
    while (*p) {
        if (*p == '%' && IsHex(p[1]) && IsHex(p[2])) {
            const unsigned char code = xtohex2(p[1], p[2]);
            if (code) result.Add(static_cast<WCHAR>(code));
            p += 3;
        } else {
            result.Add(*p++);
        }
    }
    return result.String();
}

OString ORegistry::EncodeName(const OString& name) {
    WideText result;
    for (const WCHAR* p = name.wstring(); *p; ++p) {
        if (*p == '%') {
            result.AddAscii("%25");
        } else if (*p == '/') {
            result.AddAscii("%2F");
        } else if (*p == ':') {
            result.AddAscii("%3A");
        } else {
            result.Add(*p);
        }
    }
    return result.String();
}

bool SplitPath(const OString& path, OString& key, OString& name) {
    const WCHAR* text = path.wstring();
    int start = path.wlen();
    while (start > 0 && text[start - 1] != ':' && text[start - 1] != '/') --start;
    if (start == 0) return false;
    const int end = text[start - 1] == ':' ? start : start - 1;
    OString front = path.Left(end); // `path` may be one of the results
    name = OString(text + start);
    key = std::move(front);
    return true;
}

void SplitKeyPath(const OString& path, OString& parent, OString& name) {
    const WCHAR* text = path.wstring();
    int length = path.wlen();
    while (length > 0 && text[length - 1] == '/') --length;
    int start = length;
    while (start > 0 && text[start - 1] != '/') --start;
    int end = start - 1;
    if (start == 0) {
        while (start < length && text[start] != ':') ++start;
        if (start < length) ++start;
        end = start;
    }
    OString front = path.Left(end); // `path` may be one of the results
    name = path.Mid(start, length - start);
    parent = std::move(front);
}

OString JoinPath(const OString& key, const OString& name) {
    WideText path;
    path.Add(key);
    const WCHAR last = path.Length() ? path.Text()[path.Length() - 1] : Wide(':');
    if (last != ':' && last != '/') path.Add('/');
    path.Add(name);
    return path.String();
}

unsigned char xtohex2(WCHAR high, WCHAR low) {
    const auto digit = [](WCHAR c) { return c >= '0' && c <= '9' ? c - '0' : (c & 15) + 9; };
    return static_cast<unsigned char>(digit(high) * 16 + digit(low));
}
