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

    static std::vector<Found> GroupsOfToken() {
        HANDLE token = nullptr;
        EXPECT_TRUE(OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token));
        DWORD needed = 0;
        EXPECT_FALSE(GetTokenInformation(token, TokenGroups, nullptr, 0, &needed));
        EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
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

TEST_F(Security, TokenNamesItsUser) {
    SetAlice();
    HANDLE token = nullptr;
    ASSERT_TRUE(OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token));
    alignas(8) BYTE buffer[128];
    DWORD needed = 0;
    ASSERT_TRUE(GetTokenInformation(token, TokenUser, buffer, sizeof buffer, &needed));
    EXPECT_EQ(Lookup(reinterpret_cast<TOKEN_USER*>(buffer)->User.Sid),
              (Found{u"PACKING\\alice", SidTypeUser}));
    CloseHandle(token);
    EXPECT_FALSE(GetTokenInformation(token, TokenUser, buffer, sizeof buffer, &needed));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});
}

TEST_F(Security, TokenOpenedWithoutQueryAccessTellsNothing) {
    HANDLE token = nullptr;
    ASSERT_TRUE(OpenProcessToken(GetCurrentProcess(), 0, &token));
    DWORD needed = 0;
    EXPECT_FALSE(GetTokenInformation(token, TokenUser, nullptr, 0, &needed));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
    CloseHandle(token);
}

TEST_F(Security, AccountNamesAreFoundWithAndWithoutDomain) {
    SetAlice();
    for (const char16_t* name : {u"Alice", u"packing\\alice"}) {
        DWORD sid_size = 0, domain_size = 0;
        SID_NAME_USE use;
        EXPECT_FALSE(
            LookupAccountNameW(nullptr, name, nullptr, &sid_size, nullptr, &domain_size, &use));
        EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
        EXPECT_EQ(domain_size, 8u); // "PACKING" and its terminator
        std::vector<BYTE> sid(sid_size);
        WCHAR domain[8];
        ASSERT_TRUE(
            LookupAccountNameW(nullptr, name, sid.data(), &sid_size, domain, &domain_size, &use));
        EXPECT_EQ(std::u16string(domain), u"PACKING");
        EXPECT_EQ(domain_size, 7u);
        EXPECT_EQ(use, SidTypeUser);
        EXPECT_EQ(Lookup(sid.data()), (Found{u"PACKING\\alice", SidTypeUser}));
    }
    DWORD sid_size = 0, domain_size = 0;
    SID_NAME_USE use;
    EXPECT_FALSE(LookupAccountNameW(nullptr, u"nobody-here", nullptr, &sid_size, nullptr,
                                    &domain_size, &use));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_NONE_MAPPED});
    EXPECT_FALSE(
        LookupAccountNameW(u"\\\\FAR", u"alice", nullptr, &sid_size, nullptr, &domain_size, &use));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_RPC_SERVER_UNAVAILABLE});
}

TEST_F(Security, NamesOfUserAndComputerCountTheirTerminatorDifferently) {
    SetAlice();
    WCHAR text[16];
    DWORD size = 16;
    ASSERT_TRUE(GetUserNameW(text, &size));
    EXPECT_EQ(std::u16string(text), u"alice");
    EXPECT_EQ(size, 6u);
    size = 16;
    ASSERT_TRUE(GetComputerNameW(text, &size));
    EXPECT_EQ(std::u16string(text), u"DOCK3");
    EXPECT_EQ(size, 5u);
    size = 5;
    EXPECT_FALSE(GetUserNameW(text, &size));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
    EXPECT_EQ(size, 6u);
    size = 5;
    EXPECT_FALSE(GetComputerNameW(text, &size));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_BUFFER_OVERFLOW});
    EXPECT_EQ(size, 6u);
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

TEST_F(Security, DescriptorKeepsANullList) {
    SECURITY_DESCRIPTOR descriptor;
    EXPECT_FALSE(InitializeSecurityDescriptor(&descriptor, 2));
    ASSERT_TRUE(InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION));
    EXPECT_EQ(descriptor.Control, 0);
    ASSERT_TRUE(SetSecurityDescriptorDacl(&descriptor, TRUE, nullptr, FALSE));
    EXPECT_EQ(descriptor.Control, SE_DACL_PRESENT);
    EXPECT_EQ(descriptor.Dacl, nullptr);
}

} // namespace
