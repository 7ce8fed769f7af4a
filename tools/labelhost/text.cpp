#include "text.h"

#include <algorithm>

WideString ToWide(const std::string& utf8) {
    if (utf8.empty()) return {};
    const int size = static_cast<int>(utf8.size());
    const int count = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0);
    WideString text(static_cast<size_t>(std::max(count, 0)), 0);
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, text.data(), count);
    return text;
}

std::string ToUtf8(const WCHAR* text, size_t length) {
    if (length == 0) return {};
    const int size = static_cast<int>(length);
    const int count = WideCharToMultiByte(CP_UTF8, 0, text, size, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<size_t>(std::max(count, 0)), 0);
    WideCharToMultiByte(CP_UTF8, 0, text, size, utf8.data(), count, nullptr, nullptr);
    return utf8;
}

std::string ToUtf8(const WCHAR* text) {
    return text ? ToUtf8(text, std::char_traits<WCHAR>::length(text)) : std::string();
}

std::string FromSlot(const WCHAR* slot, size_t size) {
    return ToUtf8(slot, static_cast<size_t>(std::find(slot, slot + size, WCHAR(0)) - slot));
}

std::string ToHex(const std::vector<BYTE>& bytes) {
    static const char digits[] = "0123456789abcdef";
    std::string hex;
    for (const BYTE byte : bytes) {
        hex += digits[byte >> 4];
        hex += digits[byte & 15];
    }
    return hex;
}

namespace {

int DigitValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

bool FromHex(const std::string& hex, std::vector<BYTE>& bytes) {
    bytes.clear();
    for (size_t i = 0; i < hex.size();) {
        if (hex[i] == ' ' || hex[i] == ',') {
            ++i;
            continue;
        }
        const int high = DigitValue(hex[i]);
        const int low = i + 1 < hex.size() ? DigitValue(hex[i + 1]) : -1;
        if (high < 0 || low < 0) return false;
        bytes.push_back(static_cast<BYTE>(high * 16 + low));
        i += 2;
    }
    return true;
}

bool ToNumber(const std::string& text, int64_t& value) {
    const bool hex = text.rfind("0x", 0) == 0 || text.rfind("0X", 0) == 0;
    const bool negative = text.rfind('-', 0) == 0;
    const size_t first = hex ? 2 : negative ? 1 : 0;
    const size_t count = text.size() - first;
    if (count == 0 || count > (hex ? 15 : 18)) return false;
    value = 0;
    for (size_t i = first; i < text.size(); ++i) {
        const int digit = DigitValue(text[i]);
        if (digit < 0 || (!hex && digit > 9)) return false;
        value = value * (hex ? 16 : 10) + digit;
    }
    if (negative) value = -value;
    return true;
}

bool SameText(const std::string& a, const std::string& b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                              [](char x, char y) { return Lower(x) == Lower(y); });
}
