// Security identifiers and descriptors.
#include <windows.h>

#include "host/guarded.h"

#include <cstring>
#include <new>

namespace {

constexpr size_t kHeader = offsetof(SID, SubAuthority);

} // namespace

using win32host::Fail;

extern "C" {

BOOL WINAPI AllocateAndInitializeSid(PSID_IDENTIFIER_AUTHORITY authority, BYTE count, DWORD first,
                                     DWORD second, DWORD third, DWORD fourth, DWORD fifth,
                                     DWORD sixth, DWORD seventh, DWORD eighth, PSID* sid) {
    const DWORD numbers[] = {first, second, third, fourth, fifth, sixth, seventh, eighth};
    if (!authority || !sid) return Fail(ERROR_INVALID_PARAMETER);
    if (count > 8) return Fail(ERROR_INVALID_SID);
    BYTE* memory = new (std::nothrow) BYTE[kHeader + sizeof numbers]();
    if (!memory) return Fail(ERROR_NOT_ENOUGH_MEMORY);
    memory[0] = SID_REVISION;
    memory[1] = count;
    std::memcpy(memory + offsetof(SID, IdentifierAuthority), authority, sizeof *authority);
    std::memcpy(memory + kHeader, numbers, count * sizeof(DWORD));
    *sid = memory;
    return TRUE;
}

PVOID WINAPI FreeSid(PSID sid) {
    delete[] static_cast<BYTE*>(sid);
    return nullptr;
}

BOOL WINAPI IsValidSid(PSID sid) {
    const BYTE* bytes = static_cast<const BYTE*>(sid);
    return bytes && (bytes[0] & 0x0F) == SID_REVISION && bytes[1] <= SID_MAX_SUB_AUTHORITIES;
}

DWORD WINAPI GetLengthSid(PSID sid) {
    return static_cast<DWORD>(kHeader + static_cast<const BYTE*>(sid)[1] * sizeof(DWORD));
}

BOOL WINAPI EqualSid(PSID first, PSID second) {
    if (!IsValidSid(first) || !IsValidSid(second)) return Fail(ERROR_INVALID_SID);
    const DWORD length = GetLengthSid(first);
    return length == GetLengthSid(second) && std::memcmp(first, second, length) == 0;
}

BOOL WINAPI CopySid(DWORD size, PSID target, PSID source) {
    if (!IsValidSid(source)) return Fail(ERROR_INVALID_SID);
    const DWORD length = GetLengthSid(source);
    if (!target || size < length) return Fail(ERROR_INSUFFICIENT_BUFFER);
    std::memmove(target, source, length);
    return TRUE;
}

BOOL WINAPI InitializeSecurityDescriptor(PSECURITY_DESCRIPTOR descriptor, DWORD revision) {
    if (!descriptor) return Fail(ERROR_INVALID_PARAMETER);
    if (revision != SECURITY_DESCRIPTOR_REVISION) return Fail(ERROR_UNKNOWN_REVISION);
    SECURITY_DESCRIPTOR& record = *static_cast<SECURITY_DESCRIPTOR*>(descriptor);
    record = {};
    record.Revision = SECURITY_DESCRIPTOR_REVISION;
    return TRUE;
}

BOOL WINAPI SetSecurityDescriptorDacl(PSECURITY_DESCRIPTOR descriptor, BOOL present, PACL dacl,
                                      BOOL defaulted) {
    if (!descriptor) return Fail(ERROR_INVALID_PARAMETER);
    SECURITY_DESCRIPTOR& record = *static_cast<SECURITY_DESCRIPTOR*>(descriptor);
    if (record.Revision != SECURITY_DESCRIPTOR_REVISION) return Fail(ERROR_UNKNOWN_REVISION);
    const int control = record.Control & ~(SE_DACL_PRESENT | SE_DACL_DEFAULTED);
    const int bits = !present ? 0 : SE_DACL_PRESENT | (defaulted ? SE_DACL_DEFAULTED : 0);
    record.Control = static_cast<SECURITY_DESCRIPTOR_CONTROL>(control | bits);
    record.Dacl = present ? dacl : nullptr;
    return TRUE;
}

} // extern "C"
