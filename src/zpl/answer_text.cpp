#include "zpl/answer_text.h"

#include <algorithm>
#include <cstring>

namespace {

// No printer's answer is longer, and OString counts in signed 32 bits.
constexpr uint32_t kLongest = 0x7FFFFFF0;

} // namespace

OString AnswerText(const char* bytes, uint32_t size) {
    size = std::min(size, kLongest);
    const void* end = size ? std::memchr(bytes, 0, size) : nullptr;
    const uint32_t length =
        end ? static_cast<uint32_t>(static_cast<const char*>(end) - bytes) : size;
    OString text;
    text.Insert(0, bytes, static_cast<int>(length));
    return text;
}

OString AnswerPart(const char* text, int start, int count) {
    const int length = static_cast<int>(std::strlen(text));
    OString part;
    if (start < length && count > 0) part.Insert(0, text + start, std::min(count, length - start));
    return part;
}

OString WithoutControls(const char* bytes, uint32_t size) {
    OString text;
    if (!bytes || size == 0) return text;
    size = std::min(size, kLongest);
    char* out = text.GetBufferA(static_cast<int>(size));
    if (!out) return text;
    uint32_t kept = 0;
    for (uint32_t i = 0; i < size; ++i) {
        const bool control = static_cast<unsigned char>(bytes[i]) < 32;
        const bool in_run = i > 0 && static_cast<unsigned char>(bytes[i - 1]) < 32;
        if (!control)
            out[kept++] = bytes[i];
        else if (kept > 0 && !in_run)
            out[kept++] = ';';
    }
    std::memset(out + kept, 0, size + 1 - kept);
    return text;
}
