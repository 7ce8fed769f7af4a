#include "keys/user_info.h"

#include <windows.h>

#include "core/obuffer.h"
#include "keys/security_token.h"
#include "spooler/platform_flags.h"

namespace {

constexpr DWORD kNameSize = 520;

constexpr struct {
    uint32_t alias;
    UserLevel level;
} kLevels[] = {
    {DOMAIN_ALIAS_RID_ADMINS, USER_LEVEL_ADMIN},
    {DOMAIN_ALIAS_RID_POWER_USERS, USER_LEVEL_POWER},
    {DOMAIN_ALIAS_RID_USERS, USER_LEVEL_USER},
    {DOMAIN_ALIAS_RID_GUESTS, USER_LEVEL_NONE},
};

OString AccountName(const OString& domain, const OString& name) {
    return OString() << domain << TEXT("\\") << name;
}

} // namespace

UserInfo::UserInfo() {
    if (!winNT) {
        level_ = USER_LEVEL_USER;
        return;
    }
    const SecurityToken token;
    for (const auto& level : kLevels) {
        if (!token.IsMemberOf(level.alias)) continue;
        level_ = level.level;
        break;
    }
}

void UserInfo::ReadNames() const {
    if (names_read_) return;
    names_read_ = true;
    WCHAR name[kNameSize] = {};
    DWORD size = kNameSize;
    if (GetUserNameW(name, &size)) user_name_ = name;
    size = kNameSize;
    name[0] = 0;
    if (GetComputerNameW(name, &size)) computer_name_ = name;

    if (winNT) {
        ReadDomain();
        ReadGroups();
    } else {
        groups_.Add(AccountName(computer_name_, "Users"));
    }
}

void UserInfo::ReadDomain() const {
    DWORD sid_size = 0;
    DWORD domain_size = 0;
    SID_NAME_USE use = SidTypeUnknown;
    LookupAccountNameW(nullptr, user_name_.wstring(), nullptr, &sid_size, nullptr, &domain_size,
                       &use);
    OBuffer<unsigned char> sid;
    OBuffer<WCHAR> domain;
    if (sid_size == 0 || domain_size == 0 || !sid.SetSize(sid_size) ||
        !domain.SetSize(domain_size)) {
        return;
    }
    if (LookupAccountNameW(nullptr, user_name_.wstring(), sid.GetData(), &sid_size,
                           domain.GetData(), &domain_size, &use)) {
        domain_ = domain.GetData();
    }
}

void UserInfo::ReadGroups() const {
    const SecurityToken token;
    OStringArray domain_groups;
    for (int i = 0; i < token.GetGroupCount(); ++i) {
        const SecuritySID group = token.GetGroup(i);
        if (group.GetName().IsEmpty() || group.GetDomain().IsEmpty()) continue;
        if (group.GetType() == SidTypeAlias) {
            groups_.Add(AccountName(computer_name_, group.GetName()));
        } else if (group.GetType() == SidTypeGroup) {
            domain_groups.Add(AccountName(group.GetDomain(), group.GetName()));
        }
    }
    groups_.Append(domain_groups);
}

const OString& UserInfo::GetUser() const {
    ReadNames();
    return user_name_;
}

const OString& UserInfo::GetDomain() const {
    ReadNames();
    return domain_;
}

const OString& UserInfo::GetComputer() const {
    ReadNames();
    return computer_name_;
}

const OStringArray& UserInfo::GetGroups() const {
    ReadNames();
    return groups_;
}
