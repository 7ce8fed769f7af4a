#include "security/accounts.h"

#include <win32host/control.h>

#include "host/text.h"
#include "host/user.h"

#include <algorithm>
#include <cstring>
#include <mutex>
#include <optional>

#include <grp.h>
#include <pwd.h>
#include <unistd.h>

namespace win32host {
namespace {

constexpr size_t kComputerNameUnits = 15;
// The numbers of accounts that the system did not make itself start here.
constexpr DWORD kFirstRid = 1000;

struct BuiltinGroup {
    DWORD rid;
    const char16_t* name;
};
constexpr BuiltinGroup kBuiltinGroups[] = {
    {DOMAIN_ALIAS_RID_ADMINS, u"Administrators"},
    {DOMAIN_ALIAS_RID_USERS, u"Users"},
    {DOMAIN_ALIAS_RID_GUESTS, u"Guests"},
    {DOMAIN_ALIAS_RID_POWER_USERS, u"Power Users"},
};

std::mutex g_accounts_lock;
std::optional<UserFacts> g_user; // what SetUser gave

std::u16string HostComputerName() {
    char host[256] = {};
    gethostname(host, sizeof host - 1);
    std::u16string name = Utf16(host);
    name.resize(std::min({name.size(), name.find(u'.'), kComputerNameUnits}));
    if (name.empty()) name = u"LOCALHOST";
    std::transform(name.begin(), name.end(), name.begin(), UpperOf);
    return name;
}

// The machine's users and groups share one range of numbers: users have even ones, groups odd ones.
DWORD RidOfUser(uid_t id) {
    return kFirstRid + id * 2;
}
DWORD RidOfGroup(gid_t id) {
    return kFirstRid + id * 2 + 1;
}

std::vector<gid_t> GroupsOfProcess() {
    std::vector<gid_t> groups(1, getegid());
    const int count = getgroups(0, nullptr);
    if (count > 0) {
        groups.resize(1 + static_cast<size_t>(count));
        const int read = getgroups(count, groups.data() + 1);
        groups.resize(1 + static_cast<size_t>(std::max(read, 0)));
    }
    std::sort(groups.begin(), groups.end());
    groups.erase(std::unique(groups.begin(), groups.end()), groups.end());
    return groups;
}

std::string NameOfGroup(gid_t id) {
    std::vector<char> text(65536);
    group record{};
    group* found = nullptr;
    if (getgrgid_r(id, &record, text.data(), text.size(), &found) == 0 && found)
        return found->gr_name;
    return {};
}

UserFacts HostUser() {
    UserFacts user;
    user.name = Utf16(ProcessOwnerName());
    user.computer_name = HostComputerName();
    user.domain = user.computer_name;
    user.rid = RidOfUser(geteuid());
    bool administrator = geteuid() == 0;
    for (gid_t id : GroupsOfProcess()) {
        const std::string name = NameOfGroup(id);
        if (name.empty()) continue;
        administrator |= name == "sudo" || name == "wheel" || name == "admin";
        user.groups.push_back({Group::Alias, Utf16(name), u"", RidOfGroup(id)});
    }
    if (administrator) user.groups.push_back({Group::Builtin, u"", u"", DOMAIN_ALIAS_RID_ADMINS});
    user.groups.push_back({Group::Builtin, u"", u"", DOMAIN_ALIAS_RID_USERS});
    return user;
}

UserFacts User() {
    {
        std::lock_guard guard(g_accounts_lock);
        if (g_user) return *g_user;
    }
    static const UserFacts* const host = new UserFacts(HostUser());
    return *host;
}

std::vector<BYTE> MakeSid(BYTE authority, const std::vector<DWORD>& numbers) {
    std::vector<BYTE> sid = {SID_REVISION, static_cast<BYTE>(numbers.size()), 0, 0, 0, 0, 0,
                             authority};
    sid.resize(8 + numbers.size() * sizeof(DWORD));
    std::memcpy(sid.data() + 8, numbers.data(), numbers.size() * sizeof(DWORD));
    return sid;
}

// The identifier of an account of a computer or domain. A computer or domain has three numbers of
// its own, which are made from its name here, so that they are always the same.
std::vector<BYTE> DomainSid(const std::u16string& domain, DWORD rid) {
    uint64_t hash = 14695981039346656037u;
    for (char16_t unit : domain) hash = (hash ^ UpperOf(unit)) * 1099511628211u;
    const DWORD low = static_cast<DWORD>(hash), high = static_cast<DWORD>(hash >> 32);
    return MakeSid(5, {SECURITY_NT_NON_UNIQUE, low, high, low ^ high, rid});
}

std::vector<BYTE> BuiltinSid(DWORD rid) {
    return MakeSid(5, {SECURITY_BUILTIN_DOMAIN_RID, rid});
}

} // namespace

void SetUser(const UserFacts& user) {
    std::lock_guard guard(g_accounts_lock);
    g_user = user;
}

void UseProcessUser() {
    std::lock_guard guard(g_accounts_lock);
    g_user.reset();
}

std::string CurrentUserName() {
    return Utf8(User().name);
}

std::u16string ComputerName() {
    return User().computer_name;
}

std::vector<Account> Accounts() {
    const UserFacts user = User();
    std::vector<Account> accounts;
    accounts.push_back({user.name, user.domain, DomainSid(user.domain, user.rid), SidTypeUser});
    accounts.push_back(
        {u"Everyone", u"", MakeSid(1, {SECURITY_WORLD_RID}), SidTypeWellKnownGroup, true});
    for (const BuiltinGroup& group : kBuiltinGroups) {
        const bool member =
            std::any_of(user.groups.begin(), user.groups.end(), [&](const Group& g) {
                return g.kind == Group::Builtin && g.rid == group.rid;
            });
        accounts.push_back({group.name, u"BUILTIN", BuiltinSid(group.rid), SidTypeAlias, member});
    }
    for (const Group& group : user.groups) {
        if (group.kind == Group::Builtin) continue;
        const bool local = group.kind == Group::Alias;
        const std::u16string& domain = local ? user.computer_name : group.domain;
        accounts.push_back({group.name, domain, DomainSid(domain, group.rid),
                            local ? SidTypeAlias : SidTypeGroup, true});
    }
    return accounts;
}

} // namespace win32host
