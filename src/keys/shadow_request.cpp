#include "keys/shadow_request.h"

#include <cstring>
#include <string_view>

#include "core/obuffer.h"
#include "registry/oregistry_names.h"

namespace {

constexpr std::string_view kStart = "<xpml><registry action='";
constexpr std::string_view kExport = "export";
constexpr std::string_view kImport = "import";
constexpr std::string_view kName = "' name='";
constexpr std::string_view kTick = "' tick='";
constexpr std::string_view kTickEnd = "'>";
constexpr std::string_view kKeyEnd = "\",";
constexpr std::string_view kEnd = "</registry></xpml>";
constexpr size_t kDigits = 2 * sizeof(uint32_t);

bool Take(std::string_view& text, std::string_view start) {
    if (!text.starts_with(start)) return false;
    text.remove_prefix(start.size());
    return true;
}

OString StringOf(std::string_view text) {
    OBuffer<char> buffer(static_cast<uint32_t>(text.size()) + 1);
    if (buffer.GetSize() == 0) return OString();
    MemoryHeap::Copy(buffer.GetData(), text.data(), text.size());
    buffer[static_cast<uint32_t>(text.size())] = 0;
    return OString(buffer.GetData());
}

// Takes a number as a tick count is written, and the text after it.
bool TakeTick(std::string_view& text, int32_t& tick) {
    std::string_view rest = text;
    const bool negative = Take(rest, "-");
    const size_t digits = rest.find_first_not_of("0123456789");
    if (digits == 0 || digits == std::string_view::npos || digits > 10) return false;
    uint32_t value = 0;
    for (const char digit : rest.substr(0, digits))
        value = value * 10 + static_cast<uint32_t>(digit - '0');
    rest.remove_prefix(digits);
    if (!Take(rest, kTickEnd)) return false;
    tick = static_cast<int32_t>(negative ? 0 - value : value);
    text = rest;
    return true;
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

// Eight digits and a semicolon.
bool TakeChecksum(std::string_view& text, uint32_t& checksum) {
    if (text.size() <= kDigits || text[kDigits] != ';') return false;
    checksum = 0;
    for (size_t i = 0; i < kDigits; i += 2) {
        const int high = HexDigit(text[i]);
        const int low = HexDigit(text[i + 1]);
        if (high < 0 || low < 0) return false;
        checksum |= static_cast<uint32_t>(high * 16 + low) << (i * 4);
    }
    text.remove_prefix(kDigits + 1);
    return true;
}

// Takes the text before the first `mark` that is followed by something that `what` takes.
template <class TakeWhat>
bool TakeUpTo(std::string_view& text, std::string_view mark, OString& before, TakeWhat what) {
    for (size_t at = text.find(mark); at != std::string_view::npos; at = text.find(mark, at + 1)) {
        std::string_view rest = text.substr(at + mark.size());
        if (!what(rest)) continue;
        before = StringOf(text.substr(0, at));
        text = rest;
        return true;
    }
    return false;
}

} // namespace

void ShadowRequest::Add(const OString& key, uint32_t checksum) {
    if (checksums.Add(checksum) >= 0 && keys.Add(key) < 0) checksums.RemoveAt(keys.GetSize(), 1);
}

OString ShadowRequest::Text() const {
    WideText text;
    const auto add = [&](std::string_view literal) { text.Add(StringOf(literal)); };
    add(kStart);
    add(action == EXPORT ? kExport : kImport);
    add(kName);
    text.Add(printer);
    add(kTick);
    text.Add(FormatInt(tick));
    add(kTickEnd);
    for (int i = 0; i < keys.GetSize(); ++i) {
        unsigned char bytes[sizeof(uint32_t)];
        for (size_t b = 0; b < sizeof bytes; ++b)
            bytes[b] = static_cast<unsigned char>(checksums[i] >> (8 * b));
        OString digits;
        digits.Hex(bytes, sizeof bytes);
        add("\"");
        text.Add(keys[i]);
        add(kKeyEnd);
        text.Add(digits);
        add(";");
    }
    add(kEnd);
    return text.String();
}

bool ShadowRequest::Parse(const char* text, size_t size) {
    keys.SetSize(0);
    checksums.SetSize(0);
    if (!text || size > INT32_MAX) return false;
    std::string_view rest(text, strnlen(text, size));
    if (!Take(rest, kStart)) return false;
    if (Take(rest, kExport))
        action = EXPORT;
    else if (Take(rest, kImport))
        action = IMPORT;
    else
        return false;
    if (!Take(rest, kName) ||
        !TakeUpTo(rest, kTick, printer, [&](auto& behind) { return TakeTick(behind, tick); }))
        return false;
    while (rest != kEnd) {
        OString key;
        uint32_t checksum = 0;
        if (!Take(rest, "\"") || !TakeUpTo(rest, kKeyEnd, key, [&](auto& behind) {
                return TakeChecksum(behind, checksum);
            }))
            return false;
        Add(key, checksum);
    }
    return true;
}
