// The accounts that this computer knows: the user, the groups of the user's token, the built-in
// groups and Everyone.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace win32host {

struct Account {
    std::u16string name;
    std::u16string domain;
    std::vector<BYTE> sid; // a complete SID
    SID_NAME_USE use;
    bool in_token = false; // a group that the user belongs to
};

// The user first.
std::vector<Account> Accounts();

std::u16string ComputerName();

} // namespace win32host
