// Base64 (RFC 4648), and the text form of binary blobs.
#pragma once

#include <cstdint>

#include "core/obuffer.h"
#include "core/ostring.h"

namespace Base64 {

// The number of bytes that encoding `size` bytes takes, and the most that decoding `size`
// characters can give (padding is ignored).
uint32_t EncodeLength(uint32_t size);
uint32_t DecodeLength(uint32_t size);

// Encodes with padding, without line breaks or terminator. `out` has room for EncodeLength(size)
// bytes; `out_size` receives the bytes written.
void Encode(const void* in, uint32_t size, void* out, uint32_t* out_size);

// Decodes up to the first padding in third or fourth place of a group of four characters, or to the
// end. It cannot fail: nothing is skipped, and a character that is not in the alphabet counts as 0.
// A group of two or three characters at the end gives one or two bytes, a single character none.
// `out` has room for DecodeLength(size) bytes; `out_size` receives the bytes written.
void Decode(const void* in, uint32_t size, void* out, uint32_t* out_size);

// The same for buffers. `out` becomes exactly the result and may be `in`. False, with `out`
// unchanged, only if there is no memory.
bool Encode(const OBuffer<char>& in, OBuffer<char>& out);
bool Decode(const OBuffer<char>& in, OBuffer<char>& out);
bool Encode(OBuffer<char>& buffer);
bool Decode(OBuffer<char>& buffer);

// The text form of a blob: compressed (LZ77), then encoded. `out` receives it as 8-bit text and
// keeps its code page. False, with `out` unchanged or empty, if there is no memory.
bool BufferToString(const OBuffer<char>& in, OString& out);

// The reverse. False if the text is not the form of a blob; `out` then has the decoded bytes.
bool StringToBuffer(const OString& in, OBuffer<char>& out);

} // namespace Base64
