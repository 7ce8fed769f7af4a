// Base64 and blob texts: no text leads the decoder beyond its buffers, and bytes survive encoding
// and decoding.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "core/base64.h"
#include "target.h"

FUZZ_TARGET(base64)(const uint8_t* data, size_t size) {
    OBuffer<char> bytes;
    bytes.Assign(reinterpret_cast<const char*>(data), static_cast<uint32_t>(size));

    OBuffer<char> decoded;
    Base64::Decode(bytes, decoded);
    if (decoded.GetSize() > Base64::DecodeLength(bytes.GetSize())) std::abort();

    OBuffer<char> encoded;
    Base64::Encode(bytes, encoded);
    Base64::Decode(encoded);
    if (encoded.GetSize() != bytes.GetSize() ||
        (size != 0 && std::memcmp(encoded.GetData(), data, size) != 0))
        std::abort();

    const std::string text(reinterpret_cast<const char*>(data), size);
    Base64::StringToBuffer(OString(text.c_str()), decoded);
    return 0;
}
