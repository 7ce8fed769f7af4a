#include "model/code_page_list.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(CodePageList, ListsWesternFirstAndEastAsianLast) {
    CodePageList list;
    list.Enumerate();
    std::string names, multi_byte;
    for (ONode* node = list.GetHead(); node; node = node->GetNext()) {
        const auto& code_page = static_cast<const CodePage&>(*node);
        names += code_page.name.nstring() + std::string(" ");
        EXPECT_EQ(code_page.name, OString(std::to_string(code_page.code_page).c_str()));
        EXPECT_FALSE(code_page.utf8);
        if (code_page.multi_byte) multi_byte += code_page.name.nstring() + std::string(" ");
    }
    EXPECT_EQ(names, "1252 1250 1251 1253 1254 1255 1256 1257 1258 874 932 936 950 949 1361 ");
    EXPECT_EQ(multi_byte, "932 936 950 949 1361 ");
    EXPECT_TRUE(CodePage(1208).utf8);
    EXPECT_FALSE(CodePage(1208).multi_byte);
}

} // namespace
