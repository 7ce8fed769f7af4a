#include "core/lz77.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <utility>

#include "core/text.h"

namespace {

std::string Container(const std::string& bytes) {
    OBuffer<char> buffer = Buffer(bytes);
    EXPECT_TRUE(LZ77::Encode(buffer));
    return Contents(buffer);
}

std::string WithField(std::string container, size_t offset, uint32_t value) {
    std::memcpy(container.data() + offset, &value, sizeof(value));
    return container;
}

uint32_t Field(const std::string& container, size_t offset) {
    uint32_t value;
    std::memcpy(&value, container.data() + offset, sizeof(value));
    return value;
}

TEST(CompressedContainer, IsRefusedWhenAnythingIsWrongWithIt) {
    const std::string good = Container("some text, some text, some text");
    const uint32_t length = Field(good, 4);
    const uint32_t stream = Field(good, 8);
    std::string damaged = good;
    damaged.back() = static_cast<char>(damaged.back() ^ 1);
    const std::pair<const char*, std::string> cases[] = {
        {"empty", ""},
        {"header cut short", good.substr(0, 11)},
        {"no stream", WithField(good.substr(0, 12), 8, 0)},
        {"wrong case", "zlib" + good.substr(4)},
        {"stream length one less", WithField(good, 8, stream - 1)},
        {"stream length one more", WithField(good, 8, stream + 1)},
        {"stream length wraps", WithField(good, 8, stream - 12)},
        {"one byte cut off", WithField(good.substr(0, good.size() - 1), 8, stream - 1)},
        {"claims one byte more", WithField(good, 4, length + 1)},
        {"claims one byte less", WithField(good, 4, length - 1)},
        {"claims far more than a stream can hold", WithField(good, 4, 0xFFFFFFFF)},
        {"wrong checksum", damaged}};
    for (const auto& [what, container] : cases) {
        OBuffer<char> buffer = Buffer(container);
        OBuffer<char> out = Buffer(std::string("before"));
        EXPECT_FALSE(LZ77::Decode(buffer, out)) << what;
        EXPECT_EQ(Contents(out), "before");
        EXPECT_FALSE(LZ77::Decode(buffer)) << what;
        EXPECT_EQ(Contents(buffer), container) << "what cannot be decoded stays";
    }
}

TEST(CompressedContainer, RespectsTheRoomThatTheCallerHas) {
    const std::string bytes(1000, 'x');
    const std::string container = Container(bytes);
    const uint32_t size = static_cast<uint32_t>(container.size());
    OBuffer<char> out(1000);
    uint32_t length = 999;
    EXPECT_FALSE(LZ77::Decode(container.data(), size, out.GetData(), &length));
    length = 5000;
    EXPECT_TRUE(LZ77::Decode(container.data(), size, out.GetData(), &length));
    EXPECT_EQ(length, 1000u);
    for (const uint32_t room : {0u, 11u, 12u, size - 1}) {
        length = room;
        OBuffer<char> small(room);
        EXPECT_FALSE(LZ77::Encode(bytes.data(), 1000, small.GetData(), &length)) << room;
    }
    length = size;
    EXPECT_TRUE(LZ77::Encode(bytes.data(), 1000, out.GetData(), &length));
    EXPECT_EQ(length, size);
}

} // namespace
