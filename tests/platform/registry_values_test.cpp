#include "platform/registry_support.h"
#include "support/host_test.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

class RegistryValues : public HostTest {
protected:
    Key key_ = Make(u"Values");
};

TEST_F(RegistryValues, AreEnumeratedInTheOrderOfCreationWhichRewritingKeeps) {
    for (const WCHAR* name : {u"z", u"A", u"m"}) Write(key_, name, "1");
    Write(key_, u"a", "22", REG_SZ);
    EXPECT_THAT(ValueNames(key_), ElementsAre(u"z", u"A", u"m"));
    RegDeleteValueW(key_, u"Z");
    Write(key_, u"z", "3");
    EXPECT_THAT(ValueNames(key_), ElementsAre(u"A", u"m", u"z"));

    WCHAR name[4];
    DWORD name_size = 4, type = 0, size = 0;
    EXPECT_EQ(RegEnumValueW(key_, 0, name, &name_size, nullptr, &type, nullptr, &size),
              ERROR_SUCCESS);
    EXPECT_EQ(type, DWORD{REG_SZ});
    EXPECT_EQ(size, 2u);
    EXPECT_EQ(name_size, 1u);
    name_size = 1;
    EXPECT_EQ(RegEnumValueW(key_, 0, name, &name_size, nullptr, nullptr, nullptr, nullptr),
              ERROR_MORE_DATA);
}

TEST_F(RegistryValues, MoreThanIsKeptAtHandAreStillAllThereAndInOrder) {
    // Some 12 MiB, read twice in turns.
    std::vector<std::u16string> names;
    const auto bytes = [](size_t i) { return std::string(200000, static_cast<char>(i)); };
    for (size_t i = 0; i < 60; ++i) {
        names.push_back({u'v', static_cast<char16_t>(0x4E00 + i * 7 % 60)});
        ASSERT_EQ(Write(key_, names[i], bytes(i)), ERROR_SUCCESS);
    }
    for (size_t i = 0; i < 2 * names.size(); ++i)
        ASSERT_TRUE(Read(key_, names[i % 60]) == bytes(i % 60)) << i;
    EXPECT_EQ(ValueNames(key_), names);
}

} // namespace
