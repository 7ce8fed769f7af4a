#include "platform/registry_support.h"
#include "support/host_test.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

class RegistryValues : public HostTest {
protected:
    Key key_ = Make(u"Values");
};

TEST_F(RegistryValues, OfEveryTypeAndSizeComeBackAsTheyWereWritten) {
    std::string all(1 << 20, '\0');
    for (size_t i = 0; i < all.size(); ++i) all[i] = static_cast<char>(i * 7 + i / 251);
    for (DWORD type :
         {REG_NONE, REG_SZ, REG_EXPAND_SZ, REG_BINARY, REG_DWORD, REG_MULTI_SZ, REG_QWORD, 77}) {
        for (size_t size : {0u, 1u, 2u, 4u, 4095u, 300000u, 1u << 20}) {
            const std::string bytes = all.substr(0, size);
            ASSERT_EQ(Write(key_, u"v", bytes, type), ERROR_SUCCESS);
            DWORD found = 0;
            EXPECT_EQ(RegQueryValueExW(key_, u"V", nullptr, &found, nullptr, nullptr),
                      ERROR_SUCCESS);
            EXPECT_EQ(found, type);
            EXPECT_TRUE(Read(key_, u"v") == bytes) << size;
            EXPECT_TRUE(Read(key_, u"v") == bytes) << size << " read again";
        }
    }
}

TEST_F(RegistryValues, ANullNameAndAnEmptyOneAreTheDefaultValue) {
    const BYTE byte = 'd';
    EXPECT_EQ(RegSetValueExW(key_, nullptr, 0, REG_BINARY, &byte, 1), ERROR_SUCCESS);
    EXPECT_EQ(Read(key_, u""), "d");
    EXPECT_THAT(ValueNames(key_), ElementsAre(u""));
    EXPECT_EQ(RegDeleteValueW(key_, u""), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteValueW(key_, nullptr), ERROR_FILE_NOT_FOUND);
}

TEST_F(RegistryValues, ABufferGetsAllOrNothingAndTheSizeEitherWay) {
    Write(key_, u"v", "12345");
    const struct {
        DWORD room;
        LSTATUS status;
        std::string after;
    } cases[] = {{0, ERROR_MORE_DATA, "........"},
                 {4, ERROR_MORE_DATA, "........"},
                 {5, ERROR_SUCCESS, "12345..."},
                 {8, ERROR_SUCCESS, "12345..."}};
    for (const auto& c : cases) {
        for (bool enumerated : {false, true}) {
            std::string buffer(8, '.');
            auto* bytes = reinterpret_cast<BYTE*>(buffer.data());
            WCHAR name[4];
            DWORD name_size = 4, size = c.room, type = 0;
            EXPECT_EQ(enumerated
                          ? RegEnumValueW(key_, 0, name, &name_size, nullptr, &type, bytes, &size)
                          : RegQueryValueExW(key_, u"v", nullptr, &type, bytes, &size),
                      c.status);
            EXPECT_EQ(buffer, c.after) << c.room;
            EXPECT_EQ(size, 5u);
            EXPECT_EQ(type, DWORD{REG_BINARY});
        }
    }
    BYTE byte = 0;
    EXPECT_EQ(RegQueryValueExW(key_, u"v", nullptr, nullptr, &byte, nullptr),
              ERROR_INVALID_PARAMETER);
    EXPECT_EQ(RegSetValueExW(key_, u"v", 0, REG_BINARY, nullptr, 1), ERROR_NOACCESS);
    EXPECT_EQ(Read(key_, u"v"), "12345");
}

TEST_F(RegistryValues, ATextWithoutItsTerminatorGetsOneWhereThereIsRoom) {
    const std::string ab("a\0b\0", 4);
    const struct {
        std::string stored;
        DWORD type;
        DWORD room;
        std::string after;
    } cases[] = {{ab, REG_SZ, 4, ab + "...."},
                 {ab, REG_SZ, 5, ab + "...."},
                 {ab, REG_SZ, 6, ab + std::string("\0\0..", 4)},
                 {ab, REG_MULTI_SZ, 8, ab + std::string("\0\0..", 4)},
                 {ab, REG_BINARY, 8, ab + "...."},
                 {ab + std::string(2, '\0'), REG_SZ, 8, ab + std::string("\0\0..", 4)}};
    for (const auto& c : cases) {
        Write(key_, u"t", c.stored, c.type);
        std::string buffer(8, '.');
        DWORD size = c.room;
        EXPECT_EQ(RegQueryValueExW(key_, u"t", nullptr, nullptr,
                                   reinterpret_cast<BYTE*>(buffer.data()), &size),
                  ERROR_SUCCESS);
        EXPECT_EQ(buffer, c.after);
        EXPECT_EQ(size, c.stored.size());
    }
}

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

TEST_F(RegistryValues, NamesEndAtTheirLimit) {
    const std::u16string longest(16383, u'n');
    EXPECT_EQ(Write(key_, longest, "x"), ERROR_SUCCESS);
    EXPECT_EQ(Read(key_, longest), "x");
    EXPECT_THAT(ValueNames(key_), ElementsAre(longest));
    EXPECT_EQ(Write(key_, longest + u"n", "x"), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(Read(key_, longest + u"n"), "(none)");
    EXPECT_EQ(Write(key_, u"with\\backslash", "y"), ERROR_SUCCESS);
    EXPECT_EQ(Read(key_, u"WITH\\BACKSLASH"), "y");
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
