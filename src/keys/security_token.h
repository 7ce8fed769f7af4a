// The access token of the running process.
#pragma once

#include <windows.h>

#include "core/obuffer.h"
#include "keys/security_sid.h"

// The process token, opened for queries, with its groups, which are read on first use.
class SecurityToken {
public:
    SecurityToken();
    ~SecurityToken();
    SecurityToken(const SecurityToken&) = delete;
    SecurityToken& operator=(const SecurityToken&) = delete;

    // The number of groups of the token, or 0 if they cannot be read.
    int GetGroupCount() const;

    // One of the groups, or no identifier if the index is out of range.
    SecuritySID GetGroup(int index) const;

    // True if the token holds the built-in local group with this alias number.
    bool IsMemberOf(uint32_t alias) const;

private:
    const TOKEN_GROUPS* Groups() const;

    HANDLE token_ = nullptr;
    mutable bool read_ = false;
    mutable OBuffer<unsigned char> groups_;
};
