// A security identifier: one user or group.
#pragma once

#include <windows.h>

#include "core/ostring.h"

// A copy of a Windows security identifier. Its account is looked up on first use.
class SecuritySID {
public:
    // No identifier. It equals no other and has no account.
    SecuritySID() = default;

    // A copy of `sid`. An invalid or null one counts as none.
    explicit SecuritySID(PSID sid);

    // The built-in local group with this alias number (544 Administrators, 545 Users, 546 Guests,
    // 547 Power Users).
    static SecuritySID LocalGroup(uint32_t alias);

    bool operator==(const SecuritySID& other) const;

    // The account of the identifier. Empty, and type 0, if there is none.
    const OString& GetName() const;
    const OString& GetDomain() const;
    int GetType() const; // SID_NAME_USE: 1 user, 2 group, 4 alias (local group), 5 well known

private:
    PSID Get() const;
    void Lookup() const;

    // Large enough for the longest identifier: 8 bytes and 15 sub-authorities.
    alignas(4) unsigned char bytes_[68] = {};
    bool valid_ = false;
    mutable bool looked_up_ = false;
    mutable OString name_;
    mutable OString domain_;
    mutable int type_ = 0;
};
