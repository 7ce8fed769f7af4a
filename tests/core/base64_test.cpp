#include "core/base64.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "core/text.h"

namespace {

// Encodes into a block of exactly the promised size, so that a byte too many is noticed.
std::string Encoded(const std::string& bytes) {
    OBuffer<char> out(Base64::EncodeLength(static_cast<uint32_t>(bytes.size())));
    uint32_t length = 99;
    Base64::Encode(bytes.data(), static_cast<uint32_t>(bytes.size()), out.GetData(), &length);
    return std::string(out.GetData(), length);
}

std::string DecodedText(const std::string& text) {
    const OBuffer<char> in = Buffer(text);
    OBuffer<char> out(Base64::DecodeLength(in.GetSize()));
    uint32_t length = 99;
    Base64::Decode(in.GetData(), in.GetSize(), out.GetData(), &length);
    return std::string(out.GetData(), length);
}

TEST(Base64Text, IsTheStandardOne) {
    const std::pair<std::string, std::string> cases[] = {{"", ""},
                                                         {"M", "TQ=="},
                                                         {"Ma", "TWE="},
                                                         {"Man", "TWFu"},
                                                         {"foobar", "Zm9vYmFy"},
                                                         {std::string("\0\0\0\0", 4), "AAAAAA=="},
                                                         {"\xFB\xEF\xBE\xFF\xFF\xFF", "++++////"}};
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(Encoded(bytes), text);
        EXPECT_EQ(DecodedText(text), bytes);
        OBuffer<char> buffer = Buffer(bytes);
        ASSERT_TRUE(Base64::Encode(buffer));
        EXPECT_EQ(std::string(buffer.GetData(), buffer.GetSize()), text);
        ASSERT_TRUE(Base64::Decode(buffer));
        EXPECT_EQ(std::string(buffer.GetData(), buffer.GetSize()), bytes);
    }
}

TEST(Base64Text, EndsAtPaddingAndToleratesTheRest) {
    const std::pair<const char*, const char*> cases[] = {
        {"TQ==TWFu", "M"}, {"TWE=TWFu", "Ma"}, {"TWFuTQ", "ManM"}, {"TWFuTWE", "ManMa"},
        {"TWFuT", "Man"},  {"T", ""},          {"TQ=A", "M"},      {"TWFu\n", "Man"},
        {"TQ", "M"},       {"T===", "L"}};
    for (const auto& [text, bytes] : cases) EXPECT_EQ(DecodedText(text), bytes) << text;
    EXPECT_EQ(DecodedText("T\xFF"
                          "!u"),
              DecodedText("TAAu"))
        << "strangers count as zero";
    EXPECT_EQ(DecodedText("==Fu"), DecodedText("AAFu"))
        << "padding ends the text in its places only";
}

TEST(BlobText, IsRefusedWhenItIsNone) {
    OBuffer<char> out;
    for (const char* text : {"", "TWFu", "not a blob at all", "WkxJQgAAAAAAAAAA"})
        EXPECT_FALSE(Base64::StringToBuffer(OString(text), out)) << text;
}

} // namespace
