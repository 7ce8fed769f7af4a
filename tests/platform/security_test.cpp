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
using Names = std::vector<std::u16string>;

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

    // "DOMAIN\name use".
    static std::u16string Lookup(PSID sid) {
        WCHAR name[64], domain[64];
        DWORD name_size = 64, domain_size = 64;
        SID_NAME_USE use;
        if (!LookupAccountSidW(nullptr, sid, name, &name_size, domain, &domain_size, &use))
            return u"nobody";
        EXPECT_EQ(name_size, std::u16string(name).size());
        return std::u16string(domain) + u'\\' + name + u' ' + static_cast<WCHAR>(u'0' + use);
    }

    // What a token opened with that access tells about its user or groups.
    static Names InToken(TOKEN_INFORMATION_CLASS kind, DWORD access = TOKEN_QUERY) {
        HANDLE token = nullptr;
        EXPECT_TRUE(OpenProcessToken(GetCurrentProcess(), access, &token));
        alignas(8) BYTE buffer[1024];
        DWORD needed = 0;
        const bool told = GetTokenInformation(token, kind, buffer, sizeof buffer, &needed) != FALSE;
        EXPECT_TRUE(CloseHandle(token));
        if (!told) return {};
        if (kind == TokenUser) return {Lookup(reinterpret_cast<TOKEN_USER*>(buffer)->User.Sid)};
        Names names;
        auto* groups = reinterpret_cast<TOKEN_GROUPS*>(buffer);
        for (DWORD i = 0; i < groups->GroupCount; ++i)
            names.push_back(Lookup((&groups->Groups[0] + i)->Sid));
        return names;
    }
};

TEST_F(Security, TokensNameTheUserAndHisGroupsToThoseWhoMayAsk) {
    SetAlice();
    EXPECT_EQ(InToken(TokenUser), Names{u"PACKING\\alice 1"});
    EXPECT_EQ(InToken(TokenGroups),
              (Names{u"\\Everyone 5", u"BUILTIN\\Users 4", u"BUILTIN\\Power Users 4",
                     u"DOCK3\\Label Editors 4", u"PACKING\\Shipping 2"}));
    EXPECT_EQ(InToken(TokenUser, 0), Names());
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(Security, TheMachinesOwnUserIsInUsersAndRootAdministers) {
    const Names groups = InToken(TokenGroups);
    const auto member = [&](const char16_t* name) {
        return std::count(groups.begin(), groups.end(), name) == 1;
    };
    EXPECT_TRUE(member(u"BUILTIN\\Users 4"));
    EXPECT_TRUE(geteuid() != 0 || member(u"BUILTIN\\Administrators 4"));
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
        EXPECT_EQ(Lookup(sid), u"PACKING\\alice 1");
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

} // namespace
