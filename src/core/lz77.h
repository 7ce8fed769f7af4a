// The compressed container: a 12-byte header over a zlib stream (RFC 1950).
//
//   offset 0   the four bytes "ZLIB"
//          4   uncompressed length, 32 bits, little-endian
//          8   length of the stream, 32 bits, little-endian
//         12   the stream, to the end
#pragma once

#include <cstdint>

#include "core/obuffer.h"

namespace LZ77 {

// Compresses `size` bytes into a container. `length` is the room in `out` and becomes the
// container's length; size + (size + 999) / 1000 + 24 bytes are always enough. False, with `out`
// and `length` undefined, if there is not enough room or memory.
bool Encode(const void* in, uint32_t size, void* out, uint32_t* length);

// Decompresses a container. `length` is the room in `out` and becomes the uncompressed length.
// False unless the container is valid, fits, and has exactly the lengths in its header.
bool Decode(const void* in, uint32_t size, void* out, uint32_t* length);

// The same for buffers. `out` becomes exactly the result and may be `in`. On failure it is
// unchanged. No more memory is taken than the stream could fill, and no result has more than
// `limit` bytes.
bool Encode(const OBuffer<char>& in, OBuffer<char>& out);
bool Decode(const OBuffer<char>& in, OBuffer<char>& out, uint32_t limit = UINT32_MAX);
bool Encode(OBuffer<char>& buffer);
bool Decode(OBuffer<char>& buffer);

} // namespace LZ77
