#include "core/crc.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "core/crc32_fold.h"

namespace {

// The checksums by their definitions, bit by bit and step by step.
uint32_t DefinedCRC32(const uint8_t* data, size_t size, uint32_t seed) {
    uint32_t r = ~seed;
    for (size_t i = 0; i < size; ++i) {
        for (int bit = 7; bit >= 0; --bit) {
            const bool differs = ((data[i] >> bit) & 1u) != (r >> 31);
            r = (r << 1) ^ (differs ? 0x04C11DB7u : 0u);
        }
    }
    return ~r;
}

uint16_t DefinedCRC16(const uint8_t* data, size_t size, uint16_t seed) {
    uint32_t r = seed;
    for (size_t i = 0; i < size; ++i) {
        r = ((r >> 8) | (r << 8)) & 0xFFFF;
        r ^= data[i];
        r ^= (r & 0xFF) >> 4;
        r = (r ^ (r << 12)) & 0xFFFF;
        r = (r ^ ((r & 0xFF) << 5)) & 0xFFFF;
    }
    return static_cast<uint16_t>(r);
}

std::vector<uint8_t> RandomBytes(size_t size, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<uint8_t> bytes(size);
    for (uint8_t& byte : bytes) byte = static_cast<uint8_t>(random());
    return bytes;
}

TEST(Checksum, HasItsPublishedCheckValuesAndOfNothingIsTheSeed) {
    EXPECT_EQ(CRC16("123456789", 9, 0), 0x31C3);
    EXPECT_EQ(CRC16("123456789", 9, 0xFFFF), 0x29B1);
    EXPECT_EQ(CRC32("123456789", 9, 0), 0xFC891918u);
    EXPECT_EQ(CRC32("6789", 4, CRC32("12345", 5, 0)), 0xFC891918u);
    EXPECT_EQ(CRC16(nullptr, 0, 0x1234), 0x1234);
    EXPECT_EQ(CRC32(nullptr, 5, 0x12345678), 0x12345678u);
}

TEST(Checksum, IsTheDefinedOneForEveryLengthAlignmentAndSeed) {
    std::mt19937 random(1);
    const std::vector<uint8_t> bytes = RandomBytes(400, 2);
    for (size_t size = 0; size <= 300; ++size) {
        for (int repeat = 0; repeat < 4; ++repeat) {
            const uint8_t* data = bytes.data() + random() % 64;
            const uint32_t seed = repeat == 0 ? 0 : static_cast<uint32_t>(random());
            const uint16_t seed16 = static_cast<uint16_t>(seed);
            const uint32_t length = static_cast<uint32_t>(size);
            ASSERT_EQ(CRC32(data, length, seed), DefinedCRC32(data, size, seed)) << size;
            ASSERT_EQ(~AdvanceCRC32(~seed, data, size), DefinedCRC32(data, size, seed)) << size;
            ASSERT_EQ(CRC16(data, length, seed16), DefinedCRC16(data, size, seed16)) << size;
        }
    }
}

} // namespace
