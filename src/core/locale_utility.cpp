#include "core/locale_utility.h"

namespace {

struct CodePageRow {
    uint16_t code_page;
    unsigned char charset;
};

constexpr CodePageRow kCodePages[] = {
    {874, 222},  {932, 128},  {936, 134},  {949, 129},  {950, 136},  {1250, 238},
    {1251, 204}, {1252, 0},   {1253, 161}, {1254, 162}, {1255, 177}, {1256, 178},
    {1257, 186}, {1258, 163}, {1361, 130}, {2, 2},
};

template <class C>
uint32_t TextLength(const OBuffer<C>& buffer) {
    uint32_t length = 0;
    while (length < buffer.GetSize() && buffer[length] != 0) ++length;
    return length;
}

// Converts a text into a buffer that gets exactly the size of the result with its terminator.
template <class From, class To>
void ConvertBuffer(const OBuffer<From>& in, OBuffer<To>& out, uint32_t growth) {
    const uint32_t length = TextLength(in);
    if (length > (UINT32_MAX - 1) / growth) return;
    OBuffer<To> result;
    if (!result.SetSize(length * growth + 1) || !result.GetData()) return;
    const uint32_t written = LocaleUtility::ConvertUTF8(in.GetData(), length, result.GetData());
    result[written] = 0;
    if (result.SetSize(written + 1)) out = std::move(result);
}

} // namespace

uint32_t LocaleUtility::CharSetToCodePage(unsigned char charset) {
    for (const CodePageRow& row : kCodePages)
        if (row.charset == charset) return row.code_page;
    return 0;
}

unsigned char LocaleUtility::CodePageToCharSet(uint32_t code_page) {
    for (const CodePageRow& row : kCodePages)
        if (row.code_page == code_page) return row.charset;
    return 255;
}

bool LocaleUtility::IsMultiByteCodePage(uint32_t code_page) {
    switch (code_page) {
    case 932:
    case 936:
    case 949:
    case 950:
    case 1361:
        return true;
    default:
        return false;
    }
}

void LocaleUtility::ConvertUTF8(const OBuffer<WCHAR>& in, OBuffer<char>& out) {
    ConvertBuffer(in, out, 3);
}

void LocaleUtility::ConvertUTF8(const OBuffer<char>& in, OBuffer<WCHAR>& out) {
    ConvertBuffer(in, out, 1);
}

uint32_t LocaleUtility::ConvertUTF8(const WCHAR* in, uint32_t length, char* out) {
    char* next = out;
    for (const WCHAR* end = in + length; in != end; ++in) {
        const uint32_t unit = *in;
        if (unit < 0x80) {
            *next++ = static_cast<char>(unit);
        } else if (unit < 0x800) {
            *next++ = static_cast<char>(0xC0 | (unit >> 6));
            *next++ = static_cast<char>(0x80 | (unit & 0x3F));
        } else {
            *next++ = static_cast<char>(0xE0 | (unit >> 12));
            *next++ = static_cast<char>(0x80 | ((unit >> 6) & 0x3F));
            *next++ = static_cast<char>(0x80 | (unit & 0x3F));
        }
    }
    return static_cast<uint32_t>(next - out);
}

uint32_t LocaleUtility::ConvertUTF8(const char* in, uint32_t length, WCHAR* out) {
    WCHAR* next = out;
    const auto byte = [in](uint32_t at) { return static_cast<unsigned char>(in[at]); };
    for (uint32_t at = 0; at < length;) {
        const uint32_t lead = byte(at);
        if (lead < 0x80) {
            *next++ = static_cast<WCHAR>(lead);
            at += 1;
        } else if ((lead & 0xE0) == 0xC0) {
            if (length - at < 2) break;
            *next++ = static_cast<WCHAR>(((lead & 0x1F) << 6) | (byte(at + 1) & 0x3F));
            at += 2;
        } else {
            if (length - at < 3) break;
            *next++ = static_cast<WCHAR>(((lead & 0x0F) << 12) | ((byte(at + 1) & 0x3Fu) << 6) |
                                         (byte(at + 2) & 0x3F));
            at += 3;
        }
    }
    return static_cast<uint32_t>(next - out);
}
