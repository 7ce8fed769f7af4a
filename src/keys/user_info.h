// The current user and his level.
#pragma once

#include "core/ostring.h"
#include "core/ostring_array.h"

// The levels that access levels of printers are compared with.
enum UserLevel {
    USER_LEVEL_NONE = 0,  // guests, and members of no known group
    USER_LEVEL_USER = 1,  // Users; everybody if not on winNT
    USER_LEVEL_POWER = 2, // Power Users
    USER_LEVEL_ADMIN = 3, // Administrators
};

// Read once, when it is built.
class UserInfo {
public:
    UserInfo();

    const OString& GetUser() const { return user_name_; }
    // The domain (or computer) that the account belongs to; empty when not on winNT.
    const OString& GetDomain() const { return domain_; }
    const OString& GetComputer() const { return computer_name_; }

    // The user's groups: the local ones as COMPUTER\group, then the domain ones as DOMAIN\group.
    const OStringArray& GetGroups() const { return groups_; }

    // A UserLevel: that of the most powerful group that the user belongs to.
    int GetLevel() const { return level_; }

private:
    void ReadDomain();
    void ReadGroups();

    OString user_name_;
    OString domain_;
    OString computer_name_;
    OStringArray groups_;
    int level_ = USER_LEVEL_NONE;
};
