// The promises of this registry alone: the order of names, rights, roots, other machines, its file.
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

class Registry : public HostTest {};

TEST_F(Registry, KeepsOddNamesUnitForUnitInTheOrderOfTheirCreation) {
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
    // Rewriting a value keeps its place and spelling; deleting it does not.
    Key key = Make(u"Values");
    for (const WCHAR* name : {u"z", u"A", u"m", u"a"}) Write(key, name, "1");
    EXPECT_THAT(ValueNames(key), ElementsAre(u"z", u"A", u"m"));
    RegDeleteValueW(key, u"Z");
    Write(key, u"z", "3");
    EXPECT_THAT(ValueNames(key), ElementsAre(u"A", u"m", u"z"));
}

TEST_F(Registry, KeepsMoreThanItHasAtHand) {
    // Some 12 MiB, read twice in alternation.
    Key key = Make(u"Values");
    std::vector<std::u16string> names;
    const auto bytes = [](size_t i) { return std::string(200000, static_cast<char>(i)); };
    for (size_t i = 0; i < 60; ++i) {
        names.push_back({u'v', static_cast<char16_t>(0x4E00 + i * 7 % 60)});
        ASSERT_EQ(Write(key, names[i], bytes(i)), ERROR_SUCCESS);
    }
    for (size_t i = 0; i < 2 * names.size(); ++i)
        ASSERT_TRUE(Read(key, names[i % 60]) == bytes(i % 60)) << i;
    EXPECT_EQ(ValueNames(key), names);
}

TEST_F(Registry, MayBeReadButNotChangedWhereItIsReadOnly) {
    Write(Make(u"Top\\Fixed\\Sub"), u"v", "kept");
    ASSERT_TRUE(win32host::SetKeyReadOnly(HKEY_LOCAL_MACHINE, u"Top\\Fixed", true));
    Key fixed = Make(u"Top\\Fixed", KEY_READ);
    for (const WCHAR* path : {u"Top\\Fixed", u"TOP\\FIXED\\sub"}) {
        for (REGSAM access : {REGSAM{0x2001F}, REGSAM{KEY_SET_VALUE}, REGSAM{GENERIC_WRITE}})
            EXPECT_EQ(TryOpen(path, access), ERROR_ACCESS_DENIED);
        EXPECT_EQ(TryOpen(path, KEY_READ), ERROR_SUCCESS);
    }
    EXPECT_FALSE(Make(fixed, u"New", KEY_READ));
    EXPECT_EQ(RegDeleteKeyW(fixed, u"Sub"), ERROR_ACCESS_DENIED);
    Key sub = Make(u"Top\\Fixed\\Sub", 0x02000000); // whatever is allowed
    EXPECT_EQ(Read(sub, u"v"), "kept");
    EXPECT_EQ(Write(sub, u"v", "new"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(TryOpen(u"Top", KEY_WRITE), ERROR_SUCCESS);

    ASSERT_TRUE(win32host::SetKeyReadOnly(HKEY_LOCAL_MACHINE, u"Top\\Fixed", false));
    EXPECT_EQ(TryOpen(u"Top\\Fixed\\Sub", KEY_WRITE), ERROR_SUCCESS);
    ASSERT_TRUE(win32host::SetKeyReadOnly(HKEY_LOCAL_MACHINE, u"", true));
    EXPECT_EQ(Write(HKEY_LOCAL_MACHINE, u"v", ""), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Write(HKEY_CURRENT_USER, u"v", ""), ERROR_SUCCESS);
}

TEST_F(Registry, IsOneTreeInWhichEveryUserHasHisOwn) {
    EXPECT_TRUE(Make(HKEY_CLASSES_ROOT, u".kds"));
    EXPECT_EQ(TryOpen(u"software\\classes\\.KDS"), ERROR_SUCCESS);
    HKEY key = nullptr;
    EXPECT_EQ(TryMake(HKEY_LOCAL_MACHINE, u"V", &key, nullptr, REG_OPTION_VOLATILE),
              ERROR_NOT_SUPPORTED);
    for (const WCHAR* name : {u"alice", u"DOMAIN\\bob"}) {
        win32host::SetUser({name, u"PACKING", u"DOCK3", {}});
        EXPECT_EQ(Read(HKEY_CURRENT_USER, u"v"), "(none)");
        EXPECT_EQ(Write(HKEY_CURRENT_USER, u"v", "mine"), ERROR_SUCCESS);
    }
    win32host::UseProcessUser();
    EXPECT_THAT(Subkeys(HKEY_USERS), ElementsAre(u"alice", u"DOMAIN_bob"));
    EXPECT_EQ(Read(Make(HKEY_USERS, u"Alice"), u"v"), "mine");
}

TEST_F(Registry, OfAServerIsTheOneThatItsFolderLeadsTo) {
    fs::create_directories(root() + "/servers");
    fs::create_directories(root() + "/elsewhere");
    fs::create_directory_symlink(root() + "/elsewhere", root() + "/servers/SRV1");
    std::ofstream(root() + "/servers/FILE") << "no folder";
    HKEY key = nullptr;
    for (const WCHAR* name : {u"\\\\SRV2", u"\\\\FILE", u"\\\\a/b", u"\\\\", u"\\\\SRV1\\x"})
        EXPECT_EQ(RegConnectRegistryW(name, HKEY_LOCAL_MACHINE, &key), ERROR_BAD_NETPATH);
    EXPECT_EQ(RegConnectRegistryW(u"\\\\SRV1", HKEY_CURRENT_USER, &key), ERROR_INVALID_HANDLE);

    ASSERT_EQ(RegConnectRegistryW(u"\\\\srv1", HKEY_LOCAL_MACHINE, &key), ERROR_SUCCESS);
    Write(Make(Key(key), u"Shared"), u"v", "of the server");
    EXPECT_EQ(TryOpen(u"Shared"), ERROR_FILE_NOT_FOUND);
    win32host::SetRoot(root() + "/elsewhere");
    EXPECT_EQ(Read(Make(u"Shared"), u"v"), "of the server");
}

TEST_F(Registry, ReportsAndLeavesAloneWhatIsNone) {
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
