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
using testing::IsEmpty;

class RegistryKeys : public HostTest {};

TEST_F(RegistryKeys, CreatingAKeyMakesItsWholePathAndTellsWhetherItWasNew) {
    const struct {
        const WCHAR* path;
        DWORD disposition;
    } cases[] = {{TEXT("Software\\Maker\\Drivers"), REG_CREATED_NEW_KEY},
                 {TEXT("SOFTWARE\\MAKER\\DRIVERS"), REG_OPENED_EXISTING_KEY},
                 {TEXT("Software\\Maker"), REG_OPENED_EXISTING_KEY},
                 {TEXT("Software\\\\Maker\\Drivers\\Printers\\"), REG_CREATED_NEW_KEY},
                 {TEXT("Software\\Maker\\Drivers\\Printers"), REG_OPENED_EXISTING_KEY}};
    for (const auto& c : cases) {
        HKEY key = nullptr;
        DWORD disposition = 0;
        ASSERT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, c.path, 0, nullptr, 0, KEY_READ, nullptr,
                                  &key, &disposition),
                  ERROR_SUCCESS);
        EXPECT_EQ(disposition, c.disposition);
        EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    }
}

TEST_F(RegistryKeys, APathThatCannotBeIsRefusedBothWhenOpeningAndWhenCreating) {
    Make(HKEY_LOCAL_MACHINE, TEXT("A\\B"));
    const struct {
        std::u16string path;
        LSTATUS open;
        LSTATUS create;
    } cases[] = {
        {TEXT("A\\C"), ERROR_FILE_NOT_FOUND, ERROR_SUCCESS},
        {TEXT("X\\B"), ERROR_FILE_NOT_FOUND, ERROR_SUCCESS},
        {TEXT("\\A"), ERROR_BAD_PATHNAME, ERROR_BAD_PATHNAME},
        {TEXT("A\\\\B\\"), ERROR_SUCCESS, ERROR_SUCCESS},
        {std::u16string(255, u'n'), ERROR_FILE_NOT_FOUND, ERROR_SUCCESS},
        {std::u16string(256, u'n'), ERROR_INVALID_PARAMETER, ERROR_INVALID_PARAMETER},
        {TEXT("New\\") + std::u16string(10000, u'n'), ERROR_INVALID_PARAMETER,
         ERROR_INVALID_PARAMETER},
        {std::u16string(40000, u'\\'), ERROR_INVALID_PARAMETER, ERROR_INVALID_PARAMETER},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(TryOpen(HKEY_LOCAL_MACHINE, c.path), c.open);
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, c.path.c_str(), 0, nullptr, 0, KEY_READ,
                                  nullptr, &key, nullptr),
                  c.create);
        Key closed(key);
        EXPECT_EQ(key != nullptr, c.create == ERROR_SUCCESS);
    }
    EXPECT_EQ(TryOpen(HKEY_LOCAL_MACHINE, TEXT("New")), ERROR_FILE_NOT_FOUND)
        << "the good part of a bad path was made";
}

TEST_F(RegistryKeys, NamesMatchInAnyCaseAndShowAsFirstWritten) {
    const struct {
        const WCHAR* first;
        const WCHAR* second;
        bool same;
    } cases[] = {{TEXT("Paper Sizes"), TEXT("PAPER sizes"), true},
                 {TEXT("\u00C4rger\u00FF"), TEXT("\u00E4RGER\u0178"), true}, // Latin
                 {TEXT("\u03B1\u03AC"), TEXT("\u0391\u0386"), true},         // Greek
                 {TEXT("\u0436\u0451"), TEXT("\u0416\u0401"), true},         // Cyrillic
                 {TEXT("\u0561"), TEXT("\u0531"), true},                     // Armenian
                 {TEXT("stra\u00DFe"), TEXT("STRASSE"), false},
                 {TEXT("caf\u00E9"), TEXT("cafe"), false}};
    for (const auto& c : cases) {
        Key parent = Make(HKEY_LOCAL_MACHINE, TEXT("Names"));
        Make(parent.get(), c.first);
        Make(parent.get(), c.second);
        if (c.same)
            EXPECT_THAT(Subkeys(parent.get()), ElementsAre(c.first));
        else
            EXPECT_THAT(Subkeys(parent.get()), ElementsAre(c.first, c.second));
        RegDeleteKeyW(parent.get(), c.first);
        RegDeleteKeyW(parent.get(), c.second);
    }
}

TEST_F(RegistryKeys, OddNamesAreKeptUnitForUnit) {
    const std::vector<std::u16string> names = {TEXT("IP_10.0.0.1:9100/x"),
                                               TEXT("%2F*?\"'"),
                                               TEXT(" "),
                                               TEXT("\x01\x1F\n"),
                                               {0xFEFF, u'a'},
                                               {0xFFFE},
                                               {0xD800, u'x'},
                                               {0xDC00, 0xD83D, 0xDE00}};
    Key parent = Make(HKEY_LOCAL_MACHINE, TEXT("Odd"));
    for (const auto& name : names) {
        EXPECT_TRUE(Make(parent.get(), name));
        EXPECT_EQ(Write(parent.get(), name, "x"), ERROR_SUCCESS);
    }
    EXPECT_EQ(Subkeys(parent.get()), names);
    EXPECT_EQ(ValueNames(parent.get()), names);
    for (const auto& name : names) EXPECT_EQ(TryOpen(parent.get(), name), ERROR_SUCCESS);
}

TEST_F(RegistryKeys, AreEnumeratedInTheOrderOfTheirCreation) {
    Key parent = Make(HKEY_LOCAL_MACHINE, TEXT("Order"));
    for (const WCHAR* name : {TEXT("zebra"), TEXT("ant"), TEXT("Mouse"), TEXT("cat")})
        Make(parent.get(), name);
    EXPECT_THAT(Subkeys(parent.get()),
                ElementsAre(TEXT("zebra"), TEXT("ant"), TEXT("Mouse"), TEXT("cat")));
    RegDeleteKeyW(parent.get(), TEXT("ANT"));
    Make(parent.get(), TEXT("ant"));
    EXPECT_THAT(Subkeys(parent.get()),
                ElementsAre(TEXT("zebra"), TEXT("Mouse"), TEXT("cat"), TEXT("ant")));
}

TEST_F(RegistryKeys, ANameThatDoesNotFitIsReportedAndNotWritten) {
    Key parent = Make(HKEY_LOCAL_MACHINE, TEXT("Fit"));
    Make(parent.get(), TEXT("four"));
    WCHAR name[8] = TEXT("before");
    EXPECT_EQ(RegEnumKeyW(parent.get(), 0, name, 4), ERROR_MORE_DATA);
    EXPECT_EQ(name, std::u16string(TEXT("before")));
    DWORD size = 5;
    EXPECT_EQ(RegEnumKeyExW(parent.get(), 0, name, &size, nullptr, nullptr, nullptr, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(size, 4u);
    EXPECT_EQ(name, std::u16string(TEXT("four")));
    EXPECT_EQ(RegEnumKeyW(parent.get(), 1, name, 8), ERROR_NO_MORE_ITEMS);
}

TEST_F(RegistryKeys, WithSubkeysCannotBeDeletedAndTakeTheirValuesAlong) {
    Key top = Make(HKEY_LOCAL_MACHINE, TEXT("Top"));
    Write(Make(top.get(), TEXT("Middle")).get(), TEXT("v"), "old");
    Make(top.get(), TEXT("Middle\\Leaf"));
    EXPECT_EQ(RegDeleteKeyW(top.get(), TEXT("Middle")), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteKeyW(top.get(), TEXT("Middle\\Leaf")), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteKeyW(top.get(), TEXT("Middle")), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteKeyW(top.get(), TEXT("Middle")), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(Read(Make(top.get(), TEXT("Middle")).get(), TEXT("v")), "(none)");
    EXPECT_EQ(RegDeleteKeyW(HKEY_LOCAL_MACHINE, TEXT("")), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteKeyW(HKEY_LOCAL_MACHINE, nullptr), ERROR_INVALID_PARAMETER);
}

// Every function that takes a key, each with arguments that are good otherwise.
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
    Key key = Make(HKEY_LOCAL_MACHINE, TEXT("Gone"));
    Write(key.get(), TEXT("v"), "1");
    EXPECT_EQ(Read(key.get(), TEXT("v")), "1");
    EXPECT_EQ(RegDeleteKeyW(key.get(), TEXT("")), ERROR_SUCCESS);
    EXPECT_THAT(AnswersOf(key.get()), testing::Each(ERROR_KEY_DELETED));
    Key again = Make(HKEY_LOCAL_MACHINE, TEXT("Gone"));
    EXPECT_THAT(AnswersOf(key.get()), testing::Each(ERROR_KEY_DELETED));
}

TEST_F(RegistryKeys, ClosedAndMadeUpHandlesAreRefused) {
    HKEY closed = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, TEXT("K"), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                              &closed, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(closed), ERROR_SUCCESS);
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
        Key key = Make(HKEY_LOCAL_MACHINE, TEXT("K"));
        ASSERT_NE(key.get(), closed);
    }
}

TEST_F(RegistryKeys, ManyMayBeOpenAtOnceAndEachIsItself) {
    std::vector<Key> keys;
    for (char16_t i = 0; i < 3000; ++i) {
        keys.push_back(Make(HKEY_LOCAL_MACHINE, {u'k', static_cast<char16_t>(0x4E00 + i % 50)}));
        ASSERT_TRUE(keys.back());
    }
    for (size_t i = 0; i < 50; ++i) Write(keys[i].get(), TEXT("v"), std::to_string(i));
    for (size_t i = 0; i < keys.size(); ++i)
        ASSERT_EQ(Read(keys[i].get(), TEXT("v")), std::to_string(i % 50));
}

TEST_F(RegistryKeys, TheRightsOfAHandleDecideWhatItMayDo) {
    Make(HKEY_LOCAL_MACHINE, TEXT("R\\x"));
    const struct {
        REGSAM access;
        bool query;
        bool list;
        bool write;
    } cases[] = {{KEY_READ, true, true, false},         {KEY_WRITE, false, false, true},
                 {KEY_ALL_ACCESS, true, true, true},    {KEY_QUERY_VALUE, true, false, false},
                 {GENERIC_READ, true, true, false},     {GENERIC_ALL, true, true, true},
                 {0x02000000, true, true, true},        {0x2001F, true, true, true},
                 {KEY_READ | 0x0100, true, true, false}};
    for (const auto& c : cases) {
        Key key = Make(HKEY_LOCAL_MACHINE, TEXT("R"), c.access);
        WCHAR name[8];
        const LSTATUS missing = c.query ? ERROR_FILE_NOT_FOUND : ERROR_ACCESS_DENIED;
        EXPECT_EQ(RegQueryValueExW(key.get(), TEXT("v"), nullptr, nullptr, nullptr, nullptr),
                  missing);
        EXPECT_EQ(RegEnumKeyW(key.get(), 0, name, 8), c.list ? ERROR_SUCCESS : ERROR_ACCESS_DENIED);
        EXPECT_EQ(Write(key.get(), TEXT("w"), ""), c.write ? ERROR_SUCCESS : ERROR_ACCESS_DENIED);
        EXPECT_EQ(RegDeleteValueW(key.get(), TEXT("w")),
                  c.write ? ERROR_SUCCESS : ERROR_ACCESS_DENIED);
    }
}

TEST_F(RegistryKeys, MadeReadOnlyCanBeReadButNotChangedWithAllThatIsBelow) {
    Write(Make(HKEY_LOCAL_MACHINE, TEXT("Top\\Fixed\\Sub")).get(), TEXT("v"), "kept");
    ASSERT_TRUE(win32host::SetKeyReadOnly(HKEY_LOCAL_MACHINE, TEXT("Top\\Fixed"), true));
    Key fixed = Make(HKEY_LOCAL_MACHINE, TEXT("Top\\Fixed"), KEY_READ);
    for (const WCHAR* path :
         {TEXT("Top\\Fixed"), TEXT("Top\\Fixed\\Sub"), TEXT("TOP\\FIXED\\sub")}) {
        for (REGSAM access : {REGSAM{0x2001F}, REGSAM{KEY_SET_VALUE}, REGSAM{GENERIC_WRITE}})
            EXPECT_EQ(TryOpen(HKEY_LOCAL_MACHINE, path, access), ERROR_ACCESS_DENIED);
        EXPECT_EQ(TryOpen(HKEY_LOCAL_MACHINE, path, KEY_READ), ERROR_SUCCESS);
    }
    EXPECT_EQ(TryOpen(fixed.get(), TEXT("Sub"), KEY_WRITE), ERROR_ACCESS_DENIED);
    EXPECT_FALSE(Make(fixed.get(), TEXT("New"), KEY_READ));
    EXPECT_EQ(RegDeleteKeyW(fixed.get(), TEXT("Sub")), ERROR_ACCESS_DENIED);
    Key sub = Make(HKEY_LOCAL_MACHINE, TEXT("Top\\Fixed\\Sub"), 0x02000000); // what is allowed
    EXPECT_EQ(Read(sub.get(), TEXT("v")), "kept");
    EXPECT_EQ(Write(sub.get(), TEXT("v"), "new"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(TryOpen(HKEY_LOCAL_MACHINE, TEXT("Top"), KEY_WRITE), ERROR_SUCCESS);

    ASSERT_TRUE(win32host::SetKeyReadOnly(HKEY_LOCAL_MACHINE, TEXT("Top\\Fixed"), false));
    EXPECT_EQ(TryOpen(HKEY_LOCAL_MACHINE, TEXT("Top\\Fixed\\Sub"), KEY_WRITE), ERROR_SUCCESS);
    ASSERT_TRUE(win32host::SetKeyReadOnly(HKEY_LOCAL_MACHINE, TEXT(""), true));
    EXPECT_EQ(Write(HKEY_LOCAL_MACHINE, TEXT("v"), ""), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Write(HKEY_CURRENT_USER, TEXT("v"), ""), ERROR_SUCCESS);
}

TEST_F(RegistryKeys, TheRootsAreViewsOfOneTree) {
    EXPECT_TRUE(Make(HKEY_CLASSES_ROOT, TEXT(".kds")));
    EXPECT_EQ(TryOpen(HKEY_LOCAL_MACHINE, TEXT("software\\classes\\.KDS")), ERROR_SUCCESS);
    for (HKEY root : {HKEY_CLASSES_ROOT, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, HKEY_USERS}) {
        HKEY opened = nullptr;
        EXPECT_EQ(RegOpenKeyExW(root, nullptr, 0, KEY_ALL_ACCESS, &opened), ERROR_SUCCESS);
        EXPECT_EQ(opened, root);
        EXPECT_EQ(RegCloseKey(root), ERROR_SUCCESS);
    }
}

TEST_F(RegistryKeys, EveryUserHasATreeUnderHisName) {
    for (const WCHAR* name : {TEXT("alice"), TEXT("DOMAIN\\bob")}) {
        win32host::SetUser({name, TEXT("PACKING"), TEXT("DOCK3"), {}});
        EXPECT_EQ(Read(HKEY_CURRENT_USER, TEXT("v")), "(none)");
        EXPECT_EQ(Write(HKEY_CURRENT_USER, TEXT("v"), "mine"), ERROR_SUCCESS);
    }
    win32host::UseProcessUser();
    EXPECT_THAT(Subkeys(HKEY_USERS), ElementsAre(TEXT("alice"), TEXT("DOMAIN_bob")));
    EXPECT_EQ(Read(Make(HKEY_USERS, TEXT("Alice")).get(), TEXT("v")), "mine");
}

TEST_F(RegistryKeys, InformationCountsAndMeasuresWhatIsBelow) {
    WCHAR text[] = TEXT("Kind");
    HKEY made = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, TEXT("Info"), 0, text, 0, KEY_ALL_ACCESS, nullptr,
                              &made, nullptr),
              ERROR_SUCCESS);
    Key key(made);
    Make(key.get(), TEXT("a"));
    Make(key.get(), TEXT("\U0001F600abc"));
    Write(key.get(), TEXT("name"), "12345");
    Write(key.get(), TEXT(""), "");
    Write(key.get(), TEXT("n"), "1");
    WCHAR kind[5];
    DWORD kind_size = 5, subkeys = 9, subkey = 9, classes = 9, values = 9, name = 9, data = 9;
    FILETIME time = {1, 1};
    EXPECT_EQ(RegQueryInfoKeyW(key.get(), kind, &kind_size, nullptr, &subkeys, &subkey, &classes,
                               &values, &name, &data, nullptr, &time),
              ERROR_SUCCESS);
    EXPECT_EQ(kind, std::u16string(TEXT("Kind")));
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
    for (const WCHAR* name : {TEXT("\\\\SRV2"), TEXT("\\\\FILE"), TEXT("\\\\.."), TEXT("\\\\."),
                              TEXT("\\\\a/b"), TEXT("\\\\"), TEXT("\\\\SRV1\\x")})
        EXPECT_EQ(RegConnectRegistryW(name, HKEY_LOCAL_MACHINE, &key), ERROR_BAD_NETPATH);
    EXPECT_EQ(RegConnectRegistryW(TEXT("\\\\SRV1"), HKEY_CURRENT_USER, &key), ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegConnectRegistryW(nullptr, HKEY_USERS, &key), ERROR_SUCCESS);
    EXPECT_EQ(key, HKEY_USERS);

    ASSERT_EQ(RegConnectRegistryW(TEXT("\\\\srv1"), HKEY_LOCAL_MACHINE, &key), ERROR_SUCCESS);
    {
        Key server(key);
        Write(Make(server.get(), TEXT("Shared")).get(), TEXT("v"), "of the server");
        EXPECT_EQ(TryOpen(HKEY_LOCAL_MACHINE, TEXT("Shared")), ERROR_FILE_NOT_FOUND);
        EXPECT_EQ(RegFlushKey(server.get()), ERROR_SUCCESS);
    }
    win32host::SetRoot(root() + "/elsewhere");
    EXPECT_EQ(Read(Make(HKEY_LOCAL_MACHINE, TEXT("Shared")).get(), TEXT("v")), "of the server");
}

TEST_F(RegistryKeys, MovingTheRootLeavesTheOldHandlesBehind) {
    Key old = Make(HKEY_LOCAL_MACHINE, TEXT("Old"));
    win32host::SetRoot(root() + "/new");
    EXPECT_EQ(Write(old.get(), TEXT("v"), "x"), ERROR_INVALID_HANDLE);
    EXPECT_EQ(TryOpen(HKEY_LOCAL_MACHINE, TEXT("Old")), ERROR_FILE_NOT_FOUND);
    win32host::SetRoot(root());
    EXPECT_EQ(TryOpen(HKEY_LOCAL_MACHINE, TEXT("Old")), ERROR_SUCCESS);
}

TEST_F(RegistryKeys, WhatIsNoRegistryIsReportedAndLeftAlone) {
    const std::string text(20000, 'x');
    std::ofstream(root() + "/registry.db") << text;
    EXPECT_EQ(TryOpen(HKEY_LOCAL_MACHINE, TEXT("Any")), ERROR_BADDB);
    EXPECT_FALSE(Make(HKEY_LOCAL_MACHINE, TEXT("Any")));
    EXPECT_EQ(fs::file_size(root() + "/registry.db"), text.size());
    win32host::SetRoot(root() + "/empty");
    fs::create_directory(root() + "/empty/registry.db");
    EXPECT_EQ(TryOpen(HKEY_LOCAL_MACHINE, TEXT("Any")), ERROR_CANTOPEN);
}

TEST_F(RegistryKeys, WhatIsNotOfferedIsRefused) {
    HKEY key = nullptr;
    for (DWORD option : {REG_OPTION_VOLATILE, REG_OPTION_CREATE_LINK})
        EXPECT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, TEXT("V"), 0, nullptr, option, KEY_READ,
                                  nullptr, &key, nullptr),
                  ERROR_NOT_SUPPORTED);
    EXPECT_THAT(Subkeys(Make(HKEY_LOCAL_MACHINE, TEXT("V")).get()), IsEmpty());
}

} // namespace
