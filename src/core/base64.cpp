#include "core/base64.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstring>

#include "core/lz77.h"

namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr char kPadding = '=';

// The two characters of every 12 bits.
constexpr auto kPairs = [] {
    std::array<std::array<char, 2>, 4096> pairs{};
    for (size_t i = 0; i < pairs.size(); ++i) pairs[i] = {kAlphabet[i >> 6], kAlphabet[i & 63]};
    return pairs;
}();

// The contribution of a character to the 24 bits of its group, in each of the four places. Padding
// is flagged where it ends the text.
constexpr uint32_t kEnd = 1u << 24;
constexpr auto kValues = [] {
    std::array<std::array<uint32_t, 256>, 4> values{};
    for (uint32_t i = 0; i < 64; ++i)
        for (size_t place = 0; place < 4; ++place)
            values[place][static_cast<unsigned char>(kAlphabet[i])] = i << (18 - 6 * place);
    values[2][static_cast<unsigned char>(kPadding)] = kEnd;
    values[3][static_cast<unsigned char>(kPadding)] = kEnd;
    return values;
}();

uint8_t* PutByte(uint8_t* to, uint32_t group, int shift) {
    *to = static_cast<uint8_t>(group >> shift);
    return to + 1;
}

} // namespace

uint32_t Base64::EncodeLength(uint32_t size) {
    const uint64_t length = (uint64_t{size} + 2) / 3 * 4;
    return static_cast<uint32_t>(std::min<uint64_t>(length, UINT32_MAX));
}

uint32_t Base64::DecodeLength(uint32_t size) {
    const uint32_t rest = size % 4;
    return size / 4 * 3 + (rest == 0 ? 0 : rest - 1);
}

void Base64::Encode(const void* in, uint32_t size, void* out, uint32_t* out_size) {
    const uint8_t* from = static_cast<const uint8_t*>(in);
    char* to = static_cast<char*>(out);
    uint32_t left = in ? size : 0;
    for (; left >= 3; left -= 3, from += 3, to += 4) {
        const uint32_t group = static_cast<uint32_t>(from[0] << 16 | from[1] << 8 | from[2]);
        std::memcpy(to, kPairs[group >> 12].data(), 2);
        std::memcpy(to + 2, kPairs[group & 0xFFF].data(), 2);
    }
    if (left != 0) {
        const uint32_t group =
            static_cast<uint32_t>(from[0] << 16 | (left == 2 ? from[1] << 8 : 0));
        std::memcpy(to, kPairs[group >> 12].data(), 2);
        to[2] = left == 2 ? kAlphabet[group >> 6 & 63] : kPadding;
        to[3] = kPadding;
        to += 4;
    }
    *out_size = static_cast<uint32_t>(to - static_cast<char*>(out));
}

void Base64::Decode(const void* in, uint32_t size, void* out, uint32_t* out_size) {
    const uint8_t* from = static_cast<const uint8_t*>(in);
    uint8_t* to = static_cast<uint8_t*>(out);
    uint32_t left = in ? size : 0;
    for (; left >= 4; left -= 4, from += 4, to += 3) {
        const uint32_t group =
            kValues[0][from[0]] | kValues[1][from[1]] | kValues[2][from[2]] | kValues[3][from[3]];
        if (group & kEnd) break;
        PutByte(to, group, 16);
        PutByte(to + 1, group, 8);
        PutByte(to + 2, group, 0);
    }
    // The last group, truncated or with padding.
    if (left >= 2) {
        uint32_t group = kValues[0][from[0]] | kValues[1][from[1]];
        to = PutByte(to, group, 16);
        if (left >= 3 && from[2] != kPadding) {
            group |= kValues[2][from[2]];
            to = PutByte(to, group, 8);
        }
    }
    *out_size = static_cast<uint32_t>(to - static_cast<uint8_t*>(out));
}

bool Base64::Encode(const OBuffer<char>& in, OBuffer<char>& out) {
    OBuffer<char> result;
    uint32_t length = EncodeLength(in.GetSize());
    if (length == UINT32_MAX || !result.SetSize(length)) return false;
    Encode(in.GetData(), in.GetSize(), result.GetData(), &length);
    out = std::move(result);
    return true;
}

bool Base64::Decode(const OBuffer<char>& in, OBuffer<char>& out) {
    OBuffer<char> result;
    uint32_t length = DecodeLength(in.GetSize());
    if (!result.SetSize(length)) return false;
    Decode(in.GetData(), in.GetSize(), result.GetData(), &length);
    if (!result.SetSize(length)) return false;
    out = std::move(result);
    return true;
}

bool Base64::Encode(OBuffer<char>& buffer) {
    return Encode(buffer, buffer);
}

bool Base64::Decode(OBuffer<char>& buffer) {
    return Decode(buffer, buffer);
}

bool Base64::BufferToString(const OBuffer<char>& in, OString& out) {
    OBuffer<char> packed;
    if (!LZ77::Encode(in, packed)) return false;
    uint32_t length = EncodeLength(packed.GetSize());
    if (length > INT_MAX) return false;
    char* text = out.GetBufferA(static_cast<int>(length));
    if (!text) return false;
    Encode(packed.GetData(), packed.GetSize(), text, &length);
    text[length] = 0;
    return true;
}

bool Base64::StringToBuffer(const OString& in, OBuffer<char>& out) {
    const char* text = in.nstring();
    const uint32_t size = static_cast<uint32_t>(in.nlen());
    uint32_t length = DecodeLength(size);
    if (!out.SetSize(length)) return false;
    Decode(text, size, out.GetData(), &length);
    return out.SetSize(length) && LZ77::Decode(out);
}
