// The codecs and checksums as the driver's other modules call them.
#include "zplui.h"

#include "core/base64.h"
#include "core/crc.h"
#include "core/lz77.h"

void WINAPI X16_Base64_Encode(const void* in, uint32_t size, void* out, uint32_t* out_size) {
    if (out_size) Base64::Encode(in, out ? size : 0, out, out_size);
}

void WINAPI X16_Base64_Decode(const void* in, uint32_t size, void* out, uint32_t* out_size) {
    if (out_size) Base64::Decode(in, out ? size : 0, out, out_size);
}

BOOL WINAPI X16_LZ77_Encode(const void* in, uint32_t size, void* out, uint32_t* length) {
    return length && LZ77::Encode(in, size, out, length);
}

BOOL WINAPI X16_LZ77_Decode(const void* in, uint32_t size, void* out, uint32_t* length) {
    return length && LZ77::Decode(in, size, out, length);
}

uint16_t WINAPI X16_CRC16(const void* data, uint32_t size, uint16_t seed) {
    return CRC16(data, size, seed);
}

uint32_t WINAPI X16_CRC32(const void* data, uint32_t size, uint32_t seed) {
    return CRC32(data, size, seed);
}
