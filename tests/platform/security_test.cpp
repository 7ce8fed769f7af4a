#include "platform/error_of.h"
#include "support/host_test.h"

#include <win32host/control.h>
#include <windows.h>

#include <algorithm>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

using win32host::Group;

struct Found {
    std::u16string name;
    SID_NAME_USE use;
    bool operator==(const Found&) const = default;
};

class Security : public HostTest {
protected:
    static void SetAlice() {
        win32host::SetUser({u"alice",
                            u"PACKING",
                            u"DOCK3",
                            {{Group::Builtin, u"", u"", DOMAIN_ALIAS_RID_POWER_USERS},
                             {Group::Builtin, u"", u"", DOMAIN_ALIAS_RID_USERS},
                             {Group::Alias, u"Label Editors", u"", 1001},
                             {Group::DomainGroup, u"Shipping", u"PACKING", 1201}}});
    }

    static Found Lookup(PSID sid) {
        WCHAR name[64], domain[64];
        DWORD name_size = 64, domain_size = 64;
        SID_NAME_USE use;
        if (!LookupAccountSidW(nullptr, sid, name, &name_size, domain, &domain_size, &use))
            return {u"", SidTypeInvalid};
        EXPECT_EQ(name_size, std::u16string(name).size());
        return {std::u16string(domain) + u"\\" + name, use};
    }

    static HANDLE Token(DWORD access = TOKEN_QUERY) {
        HANDLE token = nullptr;
        EXPECT_TRUE(OpenProcessToken(GetCurrentProcess(), access, &token));
        return token;
    }

    static std::vector<Found> GroupsOfToken() {
        const HANDLE token = Token();
        DWORD needed = 0;
        EXPECT_EQ(ErrorOf(GetTokenInformation(token, TokenGroups, nullptr, 0, &needed)),
                  ERROR_INSUFFICIENT_BUFFER);
        std::vector<uint64_t> buffer(needed / 8 + 1);
        EXPECT_TRUE(GetTokenInformation(token, TokenGroups, buffer.data(), needed, &needed));
        EXPECT_TRUE(CloseHandle(token));
        std::vector<Found> found;
        auto* groups = reinterpret_cast<TOKEN_GROUPS*>(buffer.data());
        for (DWORD i = 0; i < groups->GroupCount; ++i)
            found.push_back(Lookup((&groups->Groups[0] + i)->Sid));
        return found;
    }

    static PSID BuiltinSid(DWORD rid) {
        SID_IDENTIFIER_AUTHORITY authority = {SECURITY_NT_AUTHORITY};
        PSID sid = nullptr;
        EXPECT_TRUE(AllocateAndInitializeSid(&authority, 2, SECURITY_BUILTIN_DOMAIN_RID, rid, 0, 0,
                                             0, 0, 0, 0, &sid));
        return sid;
    }
};

TEST_F(Security, TokenListsTheGroupsOfTheUser) {
    SetAlice();
    EXPECT_EQ(GroupsOfToken(), (std::vector<Found>{{u"\\Everyone", SidTypeWellKnownGroup},
                                                   {u"BUILTIN\\Users", SidTypeAlias},
                                                   {u"BUILTIN\\Power Users", SidTypeAlias},
                                                   {u"DOCK3\\Label Editors", SidTypeAlias},
                                                   {u"PACKING\\Shipping", SidTypeGroup}}));
}

TEST_F(Security, TheMachinesOwnUserIsInUsersAndRootAdministers) {
    const std::vector<Found> groups = GroupsOfToken();
    const auto member = [&](const char16_t* name) {
        return std::find(groups.begin(), groups.end(), Found{name, SidTypeAlias}) != groups.end();
    };
    EXPECT_TRUE(member(u"BUILTIN\\Users"));
    if (geteuid() == 0) {
        EXPECT_TRUE(member(u"BUILTIN\\Administrators"));
    }
}

TEST_F(Security, TokenNamesItsUserToThoseWhoMayAsk) {
    SetAlice();
    const HANDLE token = Token(), mute = Token(0);
    alignas(8) BYTE buffer[128];
    DWORD needed = 0;
    ASSERT_TRUE(GetTokenInformation(token, TokenUser, buffer, sizeof buffer, &needed));
    EXPECT_EQ(Lookup(reinterpret_cast<TOKEN_USER*>(buffer)->User.Sid),
              (Found{u"PACKING\\alice", SidTypeUser}));
    EXPECT_EQ(ErrorOf(GetTokenInformation(mute, TokenUser, buffer, sizeof buffer, &needed)),
              ERROR_ACCESS_DENIED);
    CloseHandle(mute);
    CloseHandle(token);
    EXPECT_EQ(ErrorOf(GetTokenInformation(token, TokenUser, buffer, sizeof buffer, &needed)),
              ERROR_INVALID_HANDLE);
}

TEST_F(Security, AccountNamesAreFoundWithAndWithoutDomain) {
    SetAlice();
    BYTE sid[64];
    WCHAR domain[8];
    DWORD sid_size = 0, domain_size = 0;
    SID_NAME_USE use;
    const auto look_up = [&](LPCWSTR server, LPCWSTR name) {
        return ErrorOf(LookupAccountNameW(server, name, sid_size ? sid : nullptr, &sid_size,
                                          domain_size ? domain : nullptr, &domain_size, &use));
    };
    for (LPCWSTR name : {u"Alice", u"packing\\alice"}) {
        sid_size = domain_size = 0;
        EXPECT_EQ(look_up(nullptr, name), ERROR_INSUFFICIENT_BUFFER);
        EXPECT_EQ(domain_size, 8u); // "PACKING" and its terminator
        ASSERT_LE(sid_size, sizeof sid);
        ASSERT_EQ(look_up(nullptr, name), 0);
        EXPECT_EQ(std::u16string(domain, domain_size), u"PACKING");
        EXPECT_EQ(use, SidTypeUser);
        EXPECT_EQ(Lookup(sid), (Found{u"PACKING\\alice", SidTypeUser}));
    }
    EXPECT_EQ(look_up(nullptr, u"nobody-here"), ERROR_NONE_MAPPED);
    EXPECT_EQ(look_up(u"\\\\FAR", u"alice"), ERROR_RPC_SERVER_UNAVAILABLE);
}

TEST_F(Security, NamesOfUserAndComputerCountTheirTerminatorDifferently) {
    SetAlice();
    const struct {
        BOOL (*get)(LPWSTR, LPDWORD);
        std::u16string name;
        DWORD length;
        int error;
    } cases[] = {{&GetUserNameW, u"alice", 6, ERROR_INSUFFICIENT_BUFFER},
                 {&GetComputerNameW, u"DOCK3", 5, ERROR_BUFFER_OVERFLOW}};
    for (const auto& c : cases) {
        WCHAR text[16];
        DWORD size = 5;
        EXPECT_EQ(ErrorOf(c.get(text, &size)), c.error);
        EXPECT_EQ(size, 6u);
        ASSERT_TRUE(c.get(text, &size));
        EXPECT_EQ(text, c.name);
        EXPECT_EQ(size, c.length);
    }
}

TEST_F(Security, IdentifiersAreComparedWhole) {
    PSID users = BuiltinSid(DOMAIN_ALIAS_RID_USERS), guests = BuiltinSid(DOMAIN_ALIAS_RID_GUESTS);
    EXPECT_EQ(Lookup(users), (Found{u"BUILTIN\\Users", SidTypeAlias}));
    EXPECT_FALSE(EqualSid(users, guests));
    EXPECT_EQ(GetLengthSid(users), 16u);
    BYTE copy[16] = {};
    EXPECT_FALSE(CopySid(15, copy, users));
    EXPECT_FALSE(IsValidSid(copy));
    ASSERT_TRUE(CopySid(16, copy, users));
    EXPECT_TRUE(EqualSid(users, copy));
    FreeSid(users);
    FreeSid(guests);
}

} // namespace
