// Compressed containers: whatever decodes must survive encoding and decoding.
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "core/lz77.h"
#include "target.h"

FUZZ_TARGET(lz77)(const uint8_t* data, size_t size) {
    OBuffer<char> buffer;
    buffer.Assign(reinterpret_cast<const char*>(data), static_cast<uint32_t>(size));
    OBuffer<char> content;
    if (!LZ77::Decode(buffer, content)) return 0;
    OBuffer<char> again(content);
    if (!LZ77::Encode(again) || !LZ77::Decode(again)) std::abort();
    if (again.GetSize() != content.GetSize()) std::abort();
    if (content.GetSize() != 0 &&
        std::memcmp(again.GetData(), content.GetData(), content.GetSize()) != 0)
        std::abort();
    return 0;
}
