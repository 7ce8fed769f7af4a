#include "keys/security_token.h"

SecurityToken::SecurityToken() {
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token_)) token_ = nullptr;
}

SecurityToken::~SecurityToken() {
    if (token_) CloseHandle(token_);
}

const TOKEN_GROUPS* SecurityToken::Groups() const {
    if (!read_ && token_) {
        DWORD needed = 0;
        GetTokenInformation(token_, TokenGroups, nullptr, 0, &needed);
        if (needed < sizeof(TOKEN_GROUPS) || !groups_.SetSize(needed) ||
            !GetTokenInformation(token_, TokenGroups, groups_.GetData(), needed, &needed)) {
            groups_.Clear();
        }
    }
    read_ = true;
    return reinterpret_cast<const TOKEN_GROUPS*>(groups_.GetData());
}

int SecurityToken::GetGroupCount() const {
    const TOKEN_GROUPS* groups = Groups();
    return groups ? static_cast<int>(groups->GroupCount) : 0;
}

SecuritySID SecurityToken::GetGroup(int index) const {
    if (index < 0 || index >= GetGroupCount()) return SecuritySID();
    return SecuritySID(Groups()->Groups[index].Sid);
}

bool SecurityToken::IsMemberOf(uint32_t alias) const {
    const SecuritySID group = SecuritySID::LocalGroup(alias);
    for (int i = 0; i < GetGroupCount(); ++i) {
        if (GetGroup(i) == group) return true;
    }
    return false;
}
