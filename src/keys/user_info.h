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

// The level is read when it is built; the names when one is first asked for, for they may have to
// come from a domain controller.
class UserInfo {
public:
    UserInfo();

    const OString& GetUser() const;
    // The domain (or computer) that the account belongs to; empty when not on winNT.
    const OString& GetDomain() const;
    const OString& GetComputer() const;

    // The user's groups: the local ones as COMPUTER\group, then the domain ones as DOMAIN\group.
    const OStringArray& GetGroups() const;

    // A UserLevel: that of the most powerful group that the user belongs to.
    int GetLevel() const { return level_; }

private:
    void ReadNames() const;
    void ReadDomain() const;
    void ReadGroups() const;

    mutable bool names_read_ = false;
    mutable OString user_name_;
    mutable OString domain_;
    mutable OString computer_name_;
    mutable OStringArray groups_;
    int level_ = USER_LEVEL_NONE;
};
