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

TEST_F(RegistryKeys, AreNeitherVolatileNorLinks) {
    HKEY key = nullptr;
    for (DWORD option : {REG_OPTION_VOLATILE, REG_OPTION_CREATE_LINK})
        EXPECT_EQ(TryMake(HKEY_LOCAL_MACHINE, u"V", &key, nullptr, option), ERROR_NOT_SUPPORTED);
    EXPECT_EQ(TryOpen(u"V"), ERROR_FILE_NOT_FOUND);
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
