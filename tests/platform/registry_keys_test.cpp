#include "platform/registry_support.h"
#include "support/host_test.h"

#include <win32host/control.h>
#include <win32host/registry_control.h>

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class RegistryKeys : public HostTest {};

TEST_F(RegistryKeys, CreatingAKeyMakesItsWholePathAndTellsWhetherItWasNew) {
    for (auto [path, expected] :
         {std::pair{u"Software\\Maker\\Drivers", REG_CREATED_NEW_KEY},
          {u"SOFTWARE\\MAKER\\DRIVERS", REG_OPENED_EXISTING_KEY},
          {u"Software\\Maker", REG_OPENED_EXISTING_KEY},
          {u"Software\\\\Maker\\Drivers\\Printers\\", REG_CREATED_NEW_KEY},
          {u"Software\\Maker\\Drivers\\Printers", REG_OPENED_EXISTING_KEY}}) {
        HKEY key = nullptr;
        DWORD disposition = 0;
        ASSERT_EQ(TryMake(HKEY_LOCAL_MACHINE, path, &key, &disposition), ERROR_SUCCESS);
        EXPECT_EQ(disposition, DWORD(expected));
        EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    }
    HKEY key = nullptr;
    for (DWORD option : {REG_OPTION_VOLATILE, REG_OPTION_CREATE_LINK})
        EXPECT_EQ(TryMake(HKEY_LOCAL_MACHINE, u"V", &key, nullptr, option), ERROR_NOT_SUPPORTED);
    EXPECT_EQ(TryOpen(u"V"), ERROR_FILE_NOT_FOUND);
}

TEST_F(RegistryKeys, APathThatCannotBeIsRefusedBothWhenOpeningAndWhenCreating) {
    Make(u"A\\B");
    const struct {
        std::u16string path;
        LSTATUS open, create;
    } cases[] = {
        {u"A\\C", ERROR_FILE_NOT_FOUND, ERROR_SUCCESS},
        {u"X\\B", ERROR_FILE_NOT_FOUND, ERROR_SUCCESS},
        {u"\\A", ERROR_BAD_PATHNAME, ERROR_BAD_PATHNAME},
        {u"A\\\\B\\", ERROR_SUCCESS, ERROR_SUCCESS},
        {std::u16string(255, u'n'), ERROR_FILE_NOT_FOUND, ERROR_SUCCESS},
        {std::u16string(256, u'n'), ERROR_INVALID_PARAMETER, ERROR_INVALID_PARAMETER},
        {u"New\\" + std::u16string(10000, u'n'), ERROR_INVALID_PARAMETER, ERROR_INVALID_PARAMETER},
        {std::u16string(40000, u'\\'), ERROR_INVALID_PARAMETER, ERROR_INVALID_PARAMETER},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(TryOpen(c.path), c.open);
        HKEY key = nullptr;
        EXPECT_EQ(TryMake(HKEY_LOCAL_MACHINE, c.path, &key), c.create);
        EXPECT_EQ(Key(key) != nullptr, c.create == ERROR_SUCCESS);
    }
    EXPECT_EQ(TryOpen(u"New"), ERROR_FILE_NOT_FOUND) << "the good part of a bad path was made";
}

TEST_F(RegistryKeys, NamesMatchInAnyCaseAndShowAsFirstWritten) {
    const struct {
        const WCHAR *first, *second;
        bool same;
    } cases[] = {{u"Paper Sizes", u"PAPER sizes", true},
                 {u"\u00C4rger\u00FF", u"\u00E4RGER\u0178", true}, // Latin
                 {u"\u03B1\u03AC", u"\u0391\u0386", true},         // Greek
                 {u"\u0436\u0451", u"\u0416\u0401", true},         // Cyrillic
                 {u"\u0561", u"\u0531", true},                     // Armenian
                 {u"stra\u00DFe", u"STRASSE", false},
                 {u"caf\u00E9", u"cafe", false}};
    for (const auto& c : cases) {
        Key parent = Make(u"Names");
        for (const WCHAR* name : {c.first, c.second}) Make(parent, name);
        std::vector<std::u16string> expected = {c.first, c.second};
        if (c.same) expected.pop_back();
        EXPECT_EQ(Subkeys(parent), expected);
        for (const WCHAR* name : {c.first, c.second}) RegDeleteKeyW(parent, name);
    }
}

TEST_F(RegistryKeys, OddNamesAreKeptUnitForUnitInTheOrderOfTheirCreation) {
    const std::vector<std::u16string> names = {
        u"IP_10.0.0.1:9100/x", u"%2F*?\"'",    u" ",     u"\x01\x1F\n",
        {0xFEFF, u'a'},        {0xD800, u'x'}, {0xFFFE}, {0xDC00, 0xD83D, 0xDE00}};
    Key parent = Make(u"Odd");
    for (const auto& name : names) {
        EXPECT_TRUE(Make(parent, name));
        EXPECT_EQ(Write(parent, name, "x"), ERROR_SUCCESS);
        EXPECT_EQ(TryOpen(parent, name), ERROR_SUCCESS);
    }
    EXPECT_EQ(Subkeys(parent), names);
    EXPECT_EQ(ValueNames(parent), names);
}

TEST_F(RegistryKeys, ANameThatDoesNotFitIsReportedAndNotWritten) {
    Key parent = Make(u"Fit");
    Make(parent, u"four");
    WCHAR name[8] = u"before";
    EXPECT_EQ(RegEnumKeyW(parent, 0, name, 4), ERROR_MORE_DATA);
    EXPECT_EQ(name, std::u16string(u"before"));
    DWORD size = 5;
    EXPECT_EQ(RegEnumKeyExW(parent, 0, name, &size, nullptr, nullptr, nullptr, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(size, 4u);
    EXPECT_EQ(name, std::u16string(u"four"));
    EXPECT_EQ(RegEnumKeyW(parent, 1, name, 8), ERROR_NO_MORE_ITEMS);
}

TEST_F(RegistryKeys, WithSubkeysCannotBeDeletedAndTakeTheirValuesAlong) {
    Key top = Make(u"Top");
    Write(Make(top, u"Middle"), u"v", "old");
    Make(top, u"Middle\\Leaf");
    EXPECT_EQ(RegDeleteKeyW(top, u"Middle"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteKeyW(top, u"Middle\\Leaf"), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteKeyW(top, u"Middle"), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteKeyW(top, u"Middle"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(Read(Make(top, u"Middle"), u"v"), "(none)");
    EXPECT_EQ(RegDeleteKeyW(HKEY_LOCAL_MACHINE, u""), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteKeyW(HKEY_LOCAL_MACHINE, nullptr), ERROR_INVALID_PARAMETER);
}

// Every function that takes a key, each with arguments that are good otherwise.
std::vector<LSTATUS> AnswersOf(HKEY key) {
    HKEY opened = nullptr;
    WCHAR name[300];
    DWORD size = 300;
    BYTE byte = 0;
    std::vector<LSTATUS> answers = {
        RegOpenKeyExW(key, u"x", 0, KEY_READ, &opened),
        RegOpenKeyExW(key, nullptr, 0, KEY_READ, &opened),
        RegCreateKeyExW(key, u"y", 0, nullptr, 0, KEY_READ, nullptr, &opened, nullptr),
        RegQueryValueExW(key, u"v", nullptr, nullptr, nullptr, &size),
        RegSetValueExW(key, u"v", 0, REG_BINARY, &byte, 1),
        RegDeleteValueW(key, u"v"),
        RegDeleteKeyW(key, u"x"),
        RegEnumKeyW(key, 0, name, 300),
        RegEnumValueW(key, 0, name, &size, nullptr, nullptr, nullptr, nullptr),
        RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &size, nullptr, nullptr, nullptr, nullptr,
                         nullptr, nullptr, nullptr),
    };
    EXPECT_EQ(opened, nullptr);
    return answers;
}

TEST_F(RegistryKeys, HandlesOnADeletedKeySayThatItIsGoneEvenAfterANewOneHasItsName) {
    Key key = Make(u"Gone");
    Write(key, u"v", "1");
    EXPECT_EQ(Read(key, u"v"), "1");
    EXPECT_EQ(RegDeleteKeyW(key, u""), ERROR_SUCCESS);
    EXPECT_THAT(AnswersOf(key), testing::Each(ERROR_KEY_DELETED));
    Key again = Make(u"Gone");
    EXPECT_THAT(AnswersOf(key), testing::Each(ERROR_KEY_DELETED));
}

TEST_F(RegistryKeys, ClosedAndMadeUpHandlesAreRefused) {
    const HKEY closed = Make(u"K");
    std::vector<HKEY> handles = {closed, nullptr};
    for (UINT_PTR value : {UINT_PTR{1}, UINT_PTR{4}, UINT_PTR{0x7FFFFFFC}, UINT_PTR{0x80000002},
                           ~UINT_PTR{0}, ~UINT_PTR{0} << 28})
        handles.push_back(reinterpret_cast<HKEY>(value));
    for (HKEY handle : handles) {
        if (handle == HKEY_LOCAL_MACHINE) continue; // on 32 bits
        EXPECT_THAT(AnswersOf(handle), testing::Each(ERROR_INVALID_HANDLE)) << handle;
        EXPECT_EQ(RegCloseKey(handle), ERROR_INVALID_HANDLE) << handle;
    }
    // A value that is open again for another key must not be reached through the old handle.
    for (int i = 0; i < 5000; ++i) {
        Key key = Make(u"K");
        ASSERT_NE(key, closed);
    }
}

TEST_F(RegistryKeys, ManyMayBeOpenAtOnceAndEachIsItself) {
    std::vector<Key> keys;
    for (char16_t i = 0; i < 3000; ++i) {
        keys.push_back(Make({u'k', static_cast<char16_t>(0x4E00 + i % 50)}));
        ASSERT_TRUE(keys.back());
    }
    for (size_t i = 0; i < 50; ++i) Write(keys[i], u"v", std::to_string(i));
    for (size_t i = 0; i < keys.size(); ++i) ASSERT_EQ(Read(keys[i], u"v"), std::to_string(i % 50));
}

TEST_F(RegistryKeys, TheRightsOfAHandleDecideWhatItMayDo) {
    Make(u"R\\x");
    const struct {
        REGSAM access;
        bool query, list, write;
    } cases[] = {{KEY_READ, true, true, false},         {KEY_WRITE, false, false, true},
                 {KEY_ALL_ACCESS, true, true, true},    {KEY_QUERY_VALUE, true, false, false},
                 {GENERIC_READ, true, true, false},     {GENERIC_ALL, true, true, true},
                 {0x02000000, true, true, true},        {0x2001F, true, true, true},
                 {KEY_READ | 0x0100, true, true, false}};
    for (const auto& c : cases) {
        Key key = Make(u"R", c.access);
        const auto expect = [](bool allowed, LSTATUS answer = ERROR_SUCCESS) {
            return allowed ? answer : ERROR_ACCESS_DENIED;
        };
        WCHAR name[8];
        EXPECT_EQ(RegQueryValueExW(key, u"v", nullptr, nullptr, nullptr, nullptr),
                  expect(c.query, ERROR_FILE_NOT_FOUND));
        EXPECT_EQ(RegEnumKeyW(key, 0, name, 8), expect(c.list));
        EXPECT_EQ(Write(key, u"w", ""), expect(c.write));
        EXPECT_EQ(RegDeleteValueW(key, u"w"), expect(c.write));
    }
}

TEST_F(RegistryKeys, MadeReadOnlyCanBeReadButNotChangedWithAllThatIsBelow) {
    Write(Make(u"Top\\Fixed\\Sub"), u"v", "kept");
    ASSERT_TRUE(win32host::SetKeyReadOnly(HKEY_LOCAL_MACHINE, u"Top\\Fixed", true));
    Key fixed = Make(u"Top\\Fixed", KEY_READ);
    for (const WCHAR* path : {u"Top\\Fixed", u"Top\\Fixed\\Sub", u"TOP\\FIXED\\sub"}) {
        for (REGSAM access : {REGSAM{0x2001F}, REGSAM{KEY_SET_VALUE}, REGSAM{GENERIC_WRITE}})
            EXPECT_EQ(TryOpen(path, access), ERROR_ACCESS_DENIED);
        EXPECT_EQ(TryOpen(path, KEY_READ), ERROR_SUCCESS);
    }
    EXPECT_EQ(TryOpen(fixed, u"Sub", KEY_WRITE), ERROR_ACCESS_DENIED);
    EXPECT_FALSE(Make(fixed, u"New", KEY_READ));
    EXPECT_EQ(RegDeleteKeyW(fixed, u"Sub"), ERROR_ACCESS_DENIED);
    Key sub = Make(u"Top\\Fixed\\Sub", 0x02000000); // what is allowed
    EXPECT_EQ(Read(sub, u"v"), "kept");
    EXPECT_EQ(Write(sub, u"v", "new"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(TryOpen(u"Top", KEY_WRITE), ERROR_SUCCESS);

    ASSERT_TRUE(win32host::SetKeyReadOnly(HKEY_LOCAL_MACHINE, u"Top\\Fixed", false));
    EXPECT_EQ(TryOpen(u"Top\\Fixed\\Sub", KEY_WRITE), ERROR_SUCCESS);
    ASSERT_TRUE(win32host::SetKeyReadOnly(HKEY_LOCAL_MACHINE, u"", true));
    EXPECT_EQ(Write(HKEY_LOCAL_MACHINE, u"v", ""), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Write(HKEY_CURRENT_USER, u"v", ""), ERROR_SUCCESS);
}

TEST_F(RegistryKeys, TheRootsAreViewsOfOneTree) {
    EXPECT_TRUE(Make(HKEY_CLASSES_ROOT, u".kds"));
    EXPECT_EQ(TryOpen(u"software\\classes\\.KDS"), ERROR_SUCCESS);
    HKEY opened = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_USERS, nullptr, 0, KEY_ALL_ACCESS, &opened), ERROR_SUCCESS);
    EXPECT_EQ(opened, HKEY_USERS);
    EXPECT_EQ(RegCloseKey(HKEY_USERS), ERROR_SUCCESS);
}

TEST_F(RegistryKeys, EveryUserHasATreeUnderHisName) {
    for (const WCHAR* name : {u"alice", u"DOMAIN\\bob"}) {
        win32host::SetUser({name, u"PACKING", u"DOCK3", {}});
        EXPECT_EQ(Read(HKEY_CURRENT_USER, u"v"), "(none)");
        EXPECT_EQ(Write(HKEY_CURRENT_USER, u"v", "mine"), ERROR_SUCCESS);
    }
    win32host::UseProcessUser();
    EXPECT_THAT(Subkeys(HKEY_USERS), ElementsAre(u"alice", u"DOMAIN_bob"));
    EXPECT_EQ(Read(Make(HKEY_USERS, u"Alice"), u"v"), "mine");
}

TEST_F(RegistryKeys, InformationCountsAndMeasuresWhatIsBelow) {
    WCHAR text[] = u"Kind";
    HKEY made = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, u"Info", 0, text, 0, KEY_ALL_ACCESS, nullptr,
                              &made, nullptr),
              ERROR_SUCCESS);
    Key key(made);
    Make(key, u"a");
    Make(key, u"\U0001F600abc");
    Write(key, u"name", "12345");
    Write(key, u"", "");
    Write(key, u"n", "1");
    WCHAR kind[5];
    DWORD kind_size = 5, subkeys = 9, subkey = 9, classes = 9, values = 9, name = 9, data = 9;
    FILETIME time = {1, 1};
    EXPECT_EQ(RegQueryInfoKeyW(key, kind, &kind_size, nullptr, &subkeys, &subkey, &classes, &values,
                               &name, &data, nullptr, &time),
              ERROR_SUCCESS);
    EXPECT_EQ(kind, std::u16string(u"Kind"));
    EXPECT_THAT((std::vector<DWORD>{kind_size, subkeys, subkey, classes, values, name, data}),
                ElementsAre(4, 2, 5, 0, 3, 4, 5));
    EXPECT_EQ(time.dwLowDateTime, 0u);
}

TEST_F(RegistryKeys, AServersRegistryIsTheOneThatItsFolderLeadsTo) {
    fs::create_directories(root() + "/servers");
    fs::create_directories(root() + "/elsewhere");
    fs::create_directory_symlink(root() + "/elsewhere", root() + "/servers/SRV1");
    std::ofstream(root() + "/servers/FILE") << "no folder";
    HKEY key = nullptr;
    for (const WCHAR* name :
         {u"\\\\SRV2", u"\\\\FILE", u"\\\\..", u"\\\\.", u"\\\\a/b", u"\\\\", u"\\\\SRV1\\x"})
        EXPECT_EQ(RegConnectRegistryW(name, HKEY_LOCAL_MACHINE, &key), ERROR_BAD_NETPATH);
    EXPECT_EQ(RegConnectRegistryW(u"\\\\SRV1", HKEY_CURRENT_USER, &key), ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegConnectRegistryW(nullptr, HKEY_USERS, &key), ERROR_SUCCESS);
    EXPECT_EQ(key, HKEY_USERS);

    ASSERT_EQ(RegConnectRegistryW(u"\\\\srv1", HKEY_LOCAL_MACHINE, &key), ERROR_SUCCESS);
    {
        Key server(key);
        Write(Make(server, u"Shared"), u"v", "of the server");
        EXPECT_EQ(TryOpen(u"Shared"), ERROR_FILE_NOT_FOUND);
        EXPECT_EQ(RegFlushKey(server), ERROR_SUCCESS);
    }
    win32host::SetRoot(root() + "/elsewhere");
    EXPECT_EQ(Read(Make(u"Shared"), u"v"), "of the server");
}

TEST_F(RegistryKeys, WhatIsNoRegistryIsReportedAndLeftAlone) {
    const std::string text(20000, 'x');
    std::ofstream(root() + "/registry.db") << text;
    EXPECT_EQ(TryOpen(u"Any"), ERROR_BADDB);
    EXPECT_FALSE(Make(u"Any"));
    EXPECT_EQ(fs::file_size(root() + "/registry.db"), text.size());
    win32host::SetRoot(root() + "/empty");
    fs::create_directory(root() + "/empty/registry.db");
    EXPECT_EQ(TryOpen(u"Any"), ERROR_CANTOPEN);
}

} // namespace
