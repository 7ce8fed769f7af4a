#include "platform/registry_support.h"
#include "support/host_test.h"
#include "support/wine.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

class RegistryKeys : public HostTest {};

TEST_F(RegistryKeys, CreatingAKeyMakesItsWholePathAndTellsWhetherItWasNew) {
    for (auto [path, expected] :
         {std::pair{TEXT("Software\\Maker\\Drivers"), REG_CREATED_NEW_KEY},
          {TEXT("SOFTWARE\\MAKER\\DRIVERS"), REG_OPENED_EXISTING_KEY},
          {TEXT("Software\\Maker"), REG_OPENED_EXISTING_KEY},
          {TEXT("Software\\\\Maker\\Drivers\\Printers\\"), REG_CREATED_NEW_KEY},
          {TEXT("Software\\Maker\\Drivers\\Printers"), REG_OPENED_EXISTING_KEY}}) {
        HKEY key = nullptr;
        DWORD disposition = 0;
        ASSERT_EQ(TryMake(HKEY_LOCAL_MACHINE, path, &key, &disposition), ERROR_SUCCESS);
        EXPECT_EQ(disposition, DWORD(expected));
        EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    }
}

TEST_F(RegistryKeys, APathThatCannotBeIsRefusedBothWhenOpeningAndWhenCreating) {
    SkipUnderWine("it makes keys whose names are longer than 255 units");
    Make(TEXT("A\\B"));
    const struct {
        Wide path;
        LSTATUS open, create;
    } cases[] = {
        {TEXT("A\\C"), ERROR_FILE_NOT_FOUND, ERROR_SUCCESS},
        {TEXT("\\A"), ERROR_BAD_PATHNAME, ERROR_BAD_PATHNAME},
        {TEXT("A\\\\B\\"), ERROR_SUCCESS, ERROR_SUCCESS},
        {Wide(255, TEXT('n')), ERROR_FILE_NOT_FOUND, ERROR_SUCCESS},
        {Wide(256, TEXT('n')), ERROR_INVALID_PARAMETER, ERROR_INVALID_PARAMETER},
        {TEXT("New\\") + Wide(10000, TEXT('n')), ERROR_INVALID_PARAMETER, ERROR_INVALID_PARAMETER},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(TryOpen(c.path), c.open);
        HKEY key = nullptr;
        EXPECT_EQ(TryMake(HKEY_LOCAL_MACHINE, c.path, &key), c.create);
        EXPECT_EQ(Key(key) != nullptr, c.create == ERROR_SUCCESS);
    }
    EXPECT_EQ(TryOpen(TEXT("New")), ERROR_FILE_NOT_FOUND) << "the good part of a bad path was made";
}

TEST_F(RegistryKeys, NamesMatchInAnyCaseAndShowAsFirstWritten) {
    const struct {
        const WCHAR *first, *second;
        bool same;
    } cases[] = {{TEXT("Paper Sizes"), TEXT("PAPER sizes"), true},
                 {TEXT("\u00C4rger\u00FF"), TEXT("\u00E4RGER\u0178"), true}, // Latin
                 {TEXT("\u03B1\u03AC"), TEXT("\u0391\u0386"), true},         // Greek
                 {TEXT("\u0436\u0451"), TEXT("\u0416\u0401"), true},         // Cyrillic
                 {TEXT("stra\u00DFe"), TEXT("STRASSE"), false},
                 {TEXT("caf\u00E9"), TEXT("cafe"), false}};
    for (const auto& c : cases) {
        Key parent = Make(TEXT("Names"));
        for (const WCHAR* name : {c.first, c.second}) Make(parent, name);
        std::vector<Wide> expected = {c.first, c.second};
        if (c.same) expected.pop_back();
        EXPECT_THAT(Subkeys(parent), testing::UnorderedElementsAreArray(expected));
        for (const WCHAR* name : {c.first, c.second}) RegDeleteKeyW(parent, name);
    }
}

TEST_F(RegistryKeys, WithSubkeysCannotBeDeletedAndTakeTheirValuesAlong) {
    Key top = Make(TEXT("Top"));
    Write(Make(top, TEXT("Middle")), TEXT("v"), "old");
    Make(top, TEXT("Middle\\Leaf"));
    EXPECT_EQ(RegDeleteKeyW(top, TEXT("Middle")), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteKeyW(top, TEXT("Middle\\Leaf")), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteKeyW(top, TEXT("Middle")), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteKeyW(top, TEXT("Middle")), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(Read(Make(top, TEXT("Middle")), TEXT("v")), "(none)");
    EXPECT_EQ(RegDeleteKeyW(HKEY_LOCAL_MACHINE, TEXT("")), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteKeyW(HKEY_LOCAL_MACHINE, nullptr), ERROR_INVALID_PARAMETER);
}

// Every function that takes a key, each with otherwise valid arguments.
std::vector<LSTATUS> AnswersOf(HKEY key) {
    HKEY opened = nullptr;
    WCHAR name[300];
    DWORD size = 300;
    BYTE byte = 0;
    std::vector<LSTATUS> answers = {
        RegOpenKeyExW(key, TEXT("x"), 0, KEY_READ, &opened),
        RegOpenKeyExW(key, nullptr, 0, KEY_READ, &opened),
        RegCreateKeyExW(key, TEXT("y"), 0, nullptr, 0, KEY_READ, nullptr, &opened, nullptr),
        RegQueryValueExW(key, TEXT("v"), nullptr, nullptr, nullptr, &size),
        RegSetValueExW(key, TEXT("v"), 0, REG_BINARY, &byte, 1),
        RegDeleteValueW(key, TEXT("v")),
        RegDeleteKeyW(key, TEXT("x")),
        RegEnumKeyW(key, 0, name, 300),
        RegEnumValueW(key, 0, name, &size, nullptr, nullptr, nullptr, nullptr),
        RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &size, nullptr, nullptr, nullptr, nullptr,
                         nullptr, nullptr, nullptr),
    };
    EXPECT_EQ(opened, nullptr);
    return answers;
}

TEST_F(RegistryKeys, HandlesOnADeletedKeySayThatItIsGoneEvenAfterANewOneHasItsName) {
    Key key = Make(TEXT("Gone"));
    Write(key, TEXT("v"), "1");
    EXPECT_EQ(Read(key, TEXT("v")), "1");
    EXPECT_EQ(RegDeleteKeyW(key, TEXT("")), ERROR_SUCCESS);
    EXPECT_THAT(AnswersOf(key), testing::Each(ERROR_KEY_DELETED));
    Key again = Make(TEXT("Gone"));
    EXPECT_THAT(AnswersOf(key), testing::Each(ERROR_KEY_DELETED));
}

TEST_F(RegistryKeys, ClosedAndMadeUpHandlesAreRefused) {
    SkipUnderWine("values of closed handles are used again there");
    const HKEY closed = Make(TEXT("K"));
    std::vector<HKEY> handles = {closed, nullptr};
    for (UINT_PTR value : {UINT_PTR{1}, UINT_PTR{0x7FFFFFFC}, ~UINT_PTR{0}})
        handles.push_back(reinterpret_cast<HKEY>(value));
    for (HKEY handle : handles) {
        EXPECT_THAT(AnswersOf(handle), testing::Each(ERROR_INVALID_HANDLE)) << handle;
        EXPECT_EQ(RegCloseKey(handle), ERROR_INVALID_HANDLE) << handle;
    }
    // A closed handle must not be given out again, as it would reach another key.
    for (int i = 0; i < 5000; ++i) {
        Key key = Make(TEXT("K"));
        ASSERT_NE(key, closed);
    }
}

TEST_F(RegistryKeys, TheRightsOfAHandleDecideWhatItMayDo) {
    Make(TEXT("R\\x"));
    const struct {
        REGSAM access;
        bool query, list, write;
    } cases[] = {{KEY_READ, true, true, false},         {KEY_WRITE, false, false, true},
                 {KEY_ALL_ACCESS, true, true, true},    {KEY_QUERY_VALUE, true, false, false},
                 {GENERIC_READ, true, true, false},     {0x02000000, true, true, true},
                 {KEY_READ | 0x0100, true, true, false}};
    for (const auto& c : cases) {
        Key key = Make(TEXT("R"), c.access);
        const auto expect = [](bool allowed, LSTATUS answer = ERROR_SUCCESS) {
            return allowed ? answer : ERROR_ACCESS_DENIED;
        };
        WCHAR name[8];
        EXPECT_EQ(RegQueryValueExW(key, TEXT("v"), nullptr, nullptr, nullptr, nullptr),
                  expect(c.query, ERROR_FILE_NOT_FOUND));
        EXPECT_EQ(RegEnumKeyW(key, 0, name, 8), expect(c.list));
        EXPECT_EQ(Write(key, TEXT("w"), ""), expect(c.write));
        EXPECT_EQ(RegDeleteValueW(key, TEXT("w")), expect(c.write));
    }
}

TEST_F(RegistryKeys, InformationCountsAndMeasuresWhatIsBelow) {
    Key key = Make(TEXT("Info"));
    Make(key, TEXT("a"));
    Make(key, TEXT("\U0001F600abc"));
    Write(key, TEXT("name"), "12345");
    Write(key, TEXT(""), "");
    Write(key, TEXT("n"), "1");
    DWORD subkeys = 9, subkey = 9, values = 9, name = 9, data = 9;
    EXPECT_EQ(RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &subkeys, &subkey, nullptr, &values,
                               &name, &data, nullptr, nullptr),
              ERROR_SUCCESS);
    EXPECT_THAT((std::vector<DWORD>{subkeys, subkey, values, name, data}),
                ElementsAre(2, 5, 3, 4, 5));
    // A name that does not fit is not written.
    WCHAR text[8] = TEXT("before");
    EXPECT_EQ(RegEnumKeyW(key, 1, text, 5), ERROR_MORE_DATA);
    EXPECT_EQ(text, Wide(TEXT("before")));
    EXPECT_EQ(RegEnumKeyW(key, 2, text, 8), ERROR_NO_MORE_ITEMS);
}

} // namespace
