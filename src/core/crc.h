// Checksums.
#pragma once

#include <cstdint>

#include "core/ostring.h"

// The CCITT CRC-16: polynomial 0x1021, most significant bit first, the seed unchanged, no
// complement. Seed 0 makes the variant called XMODEM, seed 0xFFFF CCITT-FALSE. The checksum of one
// piece is the seed of the next. No bytes, or null, give the seed.
uint16_t CRC16(const void* data, uint32_t size, uint16_t seed);

// The CRC-32 called BZIP2: polynomial 0x04C11DB7, most significant bit first, the register
// complemented at both ends, so that the checksum of one piece is the seed of the next. With seed 0
// it is the fingerprint of names, records and lists. No bytes, or null, give the seed.
uint32_t CRC32(const void* data, uint32_t size, uint32_t seed);

// The checksum of a text's UTF-8 form, which loses no character, with its terminator.
uint32_t CRC32_UTF8(const OString& text, uint32_t seed);

// A running CRC32 over values one after the other. Every operation returns the value so far.
class CRC32_Calculator {
public:
    explicit CRC32_Calculator(uint32_t seed)
        : value_(seed) {}

    uint32_t GetValue() const { return value_; }

    uint32_t CRC32(const void* data, uint32_t size);
    // Integers, least significant byte first.
    uint32_t CRC32(char value);
    uint32_t CRC32(int16_t value);
    uint32_t CRC32(int32_t value);
    // The UTF-16 form with its terminator, least significant bytes first.
    uint32_t CRC32(const OString& text);

private:
    uint32_t value_;
};
