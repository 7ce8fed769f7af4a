#include <gtest/gtest.h>

#include <string>

#include "zplui.h"

namespace {

TEST(ExportedCodecs, BringTheirInputBack) {
    const std::string text = "label label label label label";
    const uint32_t size = static_cast<uint32_t>(text.size());
    char packed[100], encoded[200], decoded[200], unpacked[100];
    uint32_t packed_size = sizeof packed, encoded_size = 0, decoded_size = 0;
    uint32_t unpacked_size = sizeof unpacked;
    ASSERT_TRUE(X16_LZ77_Encode(text.data(), size, packed, &packed_size));
    X16_Base64_Encode(packed, packed_size, encoded, &encoded_size);
    X16_Base64_Decode(encoded, encoded_size, decoded, &decoded_size);
    ASSERT_TRUE(X16_LZ77_Decode(decoded, decoded_size, unpacked, &unpacked_size));
    EXPECT_EQ(std::string(unpacked, unpacked_size), text);
    EXPECT_EQ(X16_CRC16("123456789", 9, 0xFFFF), 0x29B1);
    EXPECT_EQ(X16_CRC32("6789", 4, X16_CRC32("12345", 5, 0)), 0xFC891918u);
}

TEST(ExportedHelpers, TolerateNullPointersOfNoLength) {
    uint32_t length = 7;
    X16_Base64_Encode(nullptr, 0, nullptr, &length);
    EXPECT_EQ(length, 0u);
    length = 7;
    X16_Base64_Decode(nullptr, 0, nullptr, &length);
    EXPECT_EQ(length, 0u);
    EXPECT_FALSE(X16_LZ77_Encode(nullptr, 0, nullptr, &length));
    EXPECT_FALSE(X16_LZ77_Decode(nullptr, 0, nullptr, &length));
    EXPECT_FALSE(X16_LZ77_Decode(nullptr, 0, nullptr, nullptr));
    char container[40];
    length = sizeof(container);
    uint32_t room = 0;
    EXPECT_TRUE(X16_LZ77_Encode(nullptr, 0, container, &length));
    EXPECT_TRUE(X16_LZ77_Decode(container, length, nullptr, &room));
    EXPECT_EQ(X16_CRC16(nullptr, 0, 3), 3);
    EXPECT_EQ(X16_CRC32(nullptr, 0, 3), 3u);
}

} // namespace
