#include "keys/shadow_request.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

const char kDocument[] = "<xpml><registry action='export' name='Dock3' tick='-1294967296'>"
                         "\"DATA:Settings\",0D0C0B0A;\"LOCAL:Paper Sizes\",FFFFFFFF;"
                         "</registry></xpml>";

bool Parses(const std::string& text) {
    ShadowRequest request;
    return request.Parse(text.data(), text.size());
}

} // namespace

TEST(ShadowRequest, WritesChecksumsAsTheyLieInMemory) {
    ShadowRequest request;
    request.printer = "Dock3";
    request.tick = static_cast<int32_t>(3000000000u);
    request.Add("DATA:Settings", 0x0A0B0C0D);
    request.Add("LOCAL:Paper Sizes", 0xFFFFFFFF);
    EXPECT_STREQ(request.Text().nstring(), kDocument);
}

TEST(ShadowRequest, ReadsWhatItWritesWhateverTheNames) {
    const struct {
        ShadowRequest::Action action;
        const char* printer;
        const char* key;
    } cases[] = {
        {ShadowRequest::EXPORT, "Dock3", "DATA:Settings"},
        {ShadowRequest::IMPORT, "Ann's tick='", "LOCAL:\",\"00000000;"},
        {ShadowRequest::IMPORT, "", "DATA:a%2Fb</registry></xpml>"},
    };
    for (const auto& c : cases) {
        ShadowRequest written;
        written.action = c.action;
        written.printer = c.printer;
        written.tick = -5;
        written.Add(c.key, 0x01020304);
        written.Add("DATA:Presets", 0);
        const OString text = written.Text();
        ShadowRequest read;
        ASSERT_TRUE(read.Parse(text.nstring(), std::strlen(text.nstring()))) << text.nstring();
        EXPECT_EQ(read.action, c.action);
        EXPECT_STREQ(read.printer.nstring(), c.printer);
        EXPECT_EQ(read.tick, -5);
        ASSERT_EQ(read.keys.GetSize(), 2);
        ASSERT_EQ(read.checksums.GetSize(), 2);
        EXPECT_STREQ(read.keys[0].nstring(), c.key);
        EXPECT_EQ(read.checksums[0], 0x01020304u);
    }
}

TEST(ShadowRequest, IsNoOtherText) {
    const std::string document = kDocument;
    EXPECT_TRUE(Parses(document));
    for (size_t length = 0; length < document.size(); ++length)
        EXPECT_FALSE(Parses(document.substr(0, length))) << length;
    const std::pair<const char*, const char*> changes[] = {
        {"export", "delete"},       {"-129", "x129"},           {"FFFFFFFF;", "FFFFFFF;"},
        {"FFFFFFFF;", "GFFFFFFF;"}, {"</xpml>", "</xpml>\r\n"}, {"tick='-1294967296'", "tick=''"},
    };
    for (const auto& [from, to] : changes) {
        std::string changed = document;
        changed.replace(changed.find(from), std::strlen(from), to);
        EXPECT_FALSE(Parses(changed)) << changed;
    }
}
