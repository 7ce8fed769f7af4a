#include "platform/registry_support.h"
#include "support/host_test.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

class RegistryValues : public HostTest {
protected:
    Key key_ = Make(TEXT("Values"));
};

TEST_F(RegistryValues, OfEveryTypeAndSizeComeBackAsTheyWereWritten) {
    // Longer than the longest value, as a text value includes a terminator that follows it.
    std::string all((1 << 20) + 2, '\0');
    for (size_t i = 0; i < all.size(); ++i) all[i] = static_cast<char>(i * 7 + i / 251);
    for (DWORD type :
         {REG_NONE, REG_SZ, REG_EXPAND_SZ, REG_BINARY, REG_DWORD, REG_MULTI_SZ, REG_QWORD, 77}) {
        for (size_t size : {0u, 1u, 4u, 4095u, 300000u, 1u << 20}) {
            const std::string_view bytes = std::string_view(all).substr(0, size);
            ASSERT_EQ(Write(key_, TEXT("v"), bytes, type), ERROR_SUCCESS);
            DWORD found = 0;
            EXPECT_EQ(RegQueryValueExW(key_, TEXT("V"), nullptr, &found, nullptr, nullptr),
                      ERROR_SUCCESS);
            EXPECT_EQ(found, type);
            EXPECT_TRUE(Read(key_, TEXT("v")) == bytes) << size;
            EXPECT_TRUE(Read(key_, TEXT("v")) == bytes) << size << " read again";
        }
    }
}

TEST_F(RegistryValues, ANullNameAndAnEmptyOneAreTheDefaultValue) {
    const BYTE byte = 'd';
    EXPECT_EQ(RegSetValueExW(key_, nullptr, 0, REG_BINARY, &byte, 1), ERROR_SUCCESS);
    EXPECT_EQ(Read(key_, TEXT("")), "d");
    EXPECT_THAT(ValueNames(key_), ElementsAre(TEXT("")));
    EXPECT_EQ(RegDeleteValueW(key_, TEXT("")), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteValueW(key_, nullptr), ERROR_FILE_NOT_FOUND);
}

TEST_F(RegistryValues, ABufferGetsAllOrNothingAndTheSizeEitherWay) {
    Write(key_, TEXT("v"), "12345");
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
                          : RegQueryValueExW(key_, TEXT("v"), nullptr, &type, bytes, &size),
                      c.status);
            EXPECT_EQ(buffer, c.after) << c.room;
            EXPECT_EQ(size, 5u);
            EXPECT_EQ(type, DWORD{REG_BINARY});
        }
    }
    BYTE byte = 0;
    EXPECT_EQ(RegQueryValueExW(key_, TEXT("v"), nullptr, nullptr, &byte, nullptr),
              ERROR_INVALID_PARAMETER);
    EXPECT_EQ(RegSetValueExW(key_, TEXT("v"), 0, REG_BINARY, nullptr, 1), ERROR_NOACCESS);
    EXPECT_EQ(Read(key_, TEXT("v")), "12345");
}

TEST_F(RegistryValues, ATextWithoutItsTerminatorGetsOneWhereThereIsRoom) {
    const std::string ab("a\0b\0", 4);
    const struct {
        std::string stored;
        DWORD type;
        DWORD room;
        std::string after;
    } cases[] = {{ab, REG_SZ, 5, ab + "...."},
                 {ab, REG_SZ, 6, ab + std::string("\0\0..", 4)},
                 {ab, REG_MULTI_SZ, 8, ab + std::string("\0\0..", 4)},
                 {ab, REG_BINARY, 8, ab + "...."},
                 {ab + std::string(2, '\0'), REG_SZ, 8, ab + std::string("\0\0..", 4)}};
    for (const auto& c : cases) {
        const std::string more = c.stored + "xx"; // no terminator follows
        Write(key_, TEXT("t"), std::string_view(more).substr(0, c.stored.size()), c.type);
        std::string buffer(8, '.');
        DWORD size = c.room;
        EXPECT_EQ(RegQueryValueExW(key_, TEXT("t"), nullptr, nullptr,
                                   reinterpret_cast<BYTE*>(buffer.data()), &size),
                  ERROR_SUCCESS);
        EXPECT_EQ(buffer, c.after);
        EXPECT_EQ(size, c.stored.size());
    }
}

TEST_F(RegistryValues, NamesEndAtTheirLimit) {
    const Wide longest(16383, TEXT('n'));
    EXPECT_EQ(Write(key_, longest, "x"), ERROR_SUCCESS);
    EXPECT_EQ(Read(key_, longest), "x");
    EXPECT_THAT(ValueNames(key_), ElementsAre(longest));
    EXPECT_EQ(Write(key_, longest + TEXT("n"), "x"), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(Read(key_, longest + TEXT("n")), "(none)");
    EXPECT_EQ(Write(key_, TEXT("with\\backslash"), "y"), ERROR_SUCCESS);
    EXPECT_EQ(Read(key_, TEXT("WITH\\BACKSLASH")), "y");
}

} // namespace
