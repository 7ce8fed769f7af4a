#include "keys/security_sid.h"

#include <cstring>

namespace {
constexpr DWORD kMaxAccountName = 260; // longer than the system allows
}

SecuritySID::SecuritySID(PSID sid) {
    if (!sid || !IsValidSid(sid) || GetLengthSid(sid) > sizeof bytes_) return;
    valid_ = CopySid(sizeof bytes_, bytes_, sid) != FALSE;
}

SecuritySID SecuritySID::LocalGroup(uint32_t alias) {
    SID_IDENTIFIER_AUTHORITY authority = {SECURITY_NT_AUTHORITY};
    PSID sid = nullptr;
    if (!AllocateAndInitializeSid(&authority, 2, SECURITY_BUILTIN_DOMAIN_RID, alias, 0, 0, 0, 0, 0,
                                  0, &sid)) {
        return SecuritySID();
    }
    const SecuritySID group(sid);
    FreeSid(sid);
    return group;
}

// The system's functions take the identifier without const but do not change it.
PSID SecuritySID::Get() const {
    return const_cast<unsigned char*>(bytes_);
}

bool SecuritySID::operator==(const SecuritySID& other) const {
    return valid_ && other.valid_ && EqualSid(Get(), other.Get());
}

void SecuritySID::Lookup() const {
    if (looked_up_) return;
    looked_up_ = true;
    if (!valid_) return;
    WCHAR name[kMaxAccountName] = {};
    WCHAR domain[kMaxAccountName] = {};
    DWORD name_size = kMaxAccountName;
    DWORD domain_size = kMaxAccountName;
    SID_NAME_USE use = SidTypeUnknown;
    if (!LookupAccountSidW(nullptr, Get(), name, &name_size, domain, &domain_size, &use)) return;
    name_ = name;
    domain_ = domain;
    type_ = use;
}

const OString& SecuritySID::GetName() const {
    Lookup();
    return name_;
}

const OString& SecuritySID::GetDomain() const {
    Lookup();
    return domain_;
}

int SecuritySID::GetType() const {
    Lookup();
    return type_;
}
