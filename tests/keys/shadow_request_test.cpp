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
