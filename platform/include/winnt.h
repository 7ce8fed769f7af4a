// Kernel types and security: identifiers, tokens, descriptors and account names.
#pragma once

#include <windef.h>

typedef DWORD ACCESS_MASK;

#define DELETE 0x00010000
#define READ_CONTROL 0x00020000
#define WRITE_DAC 0x00040000
#define WRITE_OWNER 0x00080000
#define SYNCHRONIZE 0x00100000
#define STANDARD_RIGHTS_REQUIRED 0x000F0000
#define STANDARD_RIGHTS_READ READ_CONTROL
#define STANDARD_RIGHTS_WRITE READ_CONTROL
#define STANDARD_RIGHTS_EXECUTE READ_CONTROL
#define STANDARD_RIGHTS_ALL 0x001F0000
#define GENERIC_READ 0x80000000
#define GENERIC_WRITE 0x40000000
#define GENERIC_EXECUTE 0x20000000
#define GENERIC_ALL 0x10000000

// ---- Security identifiers -----------------------------------------------------------------------

typedef PVOID PSID;
typedef PVOID PSECURITY_DESCRIPTOR;
typedef WORD SECURITY_DESCRIPTOR_CONTROL;

typedef struct SID_IDENTIFIER_AUTHORITY {
    BYTE Value[6]; // big-endian
} SID_IDENTIFIER_AUTHORITY;
typedef SID_IDENTIFIER_AUTHORITY* PSID_IDENTIFIER_AUTHORITY;

#define SID_REVISION 1
#define SID_MAX_SUB_AUTHORITIES 15

typedef struct SID {
    BYTE Revision;
    BYTE SubAuthorityCount;
    SID_IDENTIFIER_AUTHORITY IdentifierAuthority;
    DWORD SubAuthority[1]; // SubAuthorityCount of them
} SID;
static_assert(sizeof(SID) == 12, "layout");

#define SECURITY_WORLD_SID_AUTHORITY                                                               \
    { 0, 0, 0, 0, 0, 1 }
#define SECURITY_NT_AUTHORITY                                                                      \
    { 0, 0, 0, 0, 0, 5 }
#define SECURITY_WORLD_RID 0x00000000
#define SECURITY_NT_NON_UNIQUE 0x00000015
#define SECURITY_BUILTIN_DOMAIN_RID 0x00000020
#define DOMAIN_ALIAS_RID_ADMINS 0x00000220
#define DOMAIN_ALIAS_RID_USERS 0x00000221
#define DOMAIN_ALIAS_RID_GUESTS 0x00000222
#define DOMAIN_ALIAS_RID_POWER_USERS 0x00000223

typedef enum SID_NAME_USE {
    SidTypeUser = 1,
    SidTypeGroup,
    SidTypeDomain,
    SidTypeAlias,
    SidTypeWellKnownGroup,
    SidTypeDeletedAccount,
    SidTypeInvalid,
    SidTypeUnknown,
    SidTypeComputer
} SID_NAME_USE;
typedef SID_NAME_USE* PSID_NAME_USE;

typedef struct SID_AND_ATTRIBUTES {
    PSID Sid;
    DWORD Attributes;
} SID_AND_ATTRIBUTES;

#define SE_GROUP_MANDATORY 0x00000001
#define SE_GROUP_ENABLED_BY_DEFAULT 0x00000002
#define SE_GROUP_ENABLED 0x00000004

// ---- Tokens -------------------------------------------------------------------------------------

#define TOKEN_QUERY 0x0008

typedef enum TOKEN_INFORMATION_CLASS { TokenUser = 1, TokenGroups } TOKEN_INFORMATION_CLASS;

typedef struct TOKEN_USER {
    SID_AND_ATTRIBUTES User;
} TOKEN_USER;
typedef TOKEN_USER* PTOKEN_USER;

typedef struct TOKEN_GROUPS {
    DWORD GroupCount;
    SID_AND_ATTRIBUTES Groups[1]; // GroupCount of them
} TOKEN_GROUPS;
typedef TOKEN_GROUPS* PTOKEN_GROUPS;

// ---- Security descriptors -----------------------------------------------------------------------

typedef struct ACL {
    BYTE AclRevision;
    BYTE Sbz1;
    WORD AclSize;
    WORD AceCount;
    WORD Sbz2;
} ACL;
typedef ACL* PACL;
static_assert(sizeof(ACL) == 8, "layout");

#define SECURITY_DESCRIPTOR_REVISION 1
#define SE_DACL_PRESENT 0x0004
#define SE_DACL_DEFAULTED 0x0008

typedef struct SECURITY_DESCRIPTOR {
    BYTE Revision;
    BYTE Sbz1;
    SECURITY_DESCRIPTOR_CONTROL Control;
    PSID Owner;
    PSID Group;
    PACL Sacl;
    PACL Dacl;
} SECURITY_DESCRIPTOR;

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

HANDLE WINAPI GetCurrentProcess(void);

// The access token of the process. `process` must be GetCurrentProcess(); the token is closed with
// CloseHandle.
BOOL WINAPI OpenProcessToken(HANDLE process, DWORD access, PHANDLE token);

// The token's user or groups, followed by their identifiers in the same buffer. Fails with
// ERROR_INSUFFICIENT_BUFFER if the buffer is too small; `needed` always receives the size.
BOOL WINAPI GetTokenInformation(HANDLE token, TOKEN_INFORMATION_CLASS information, LPVOID buffer,
                                DWORD size, PDWORD needed);

// Makes an identifier of up to eight sub-authorities, freed with FreeSid.
BOOL WINAPI AllocateAndInitializeSid(PSID_IDENTIFIER_AUTHORITY authority, BYTE count, DWORD first,
                                     DWORD second, DWORD third, DWORD fourth, DWORD fifth,
                                     DWORD sixth, DWORD seventh, DWORD eighth, PSID* sid);
PVOID WINAPI FreeSid(PSID sid); // null on success
BOOL WINAPI EqualSid(PSID first, PSID second);
BOOL WINAPI IsValidSid(PSID sid);
DWORD WINAPI GetLengthSid(PSID sid);
BOOL WINAPI CopySid(DWORD size, PSID target, PSID source);

// The host has no access control: descriptors are made and passed on, and have no effect.
BOOL WINAPI InitializeSecurityDescriptor(PSECURITY_DESCRIPTOR descriptor, DWORD revision);
BOOL WINAPI SetSecurityDescriptorDacl(PSECURITY_DESCRIPTOR descriptor, BOOL present, PACL dacl,
                                      BOOL defaulted);

// The identifier, domain and kind of the account `name`, which may be "DOMAIN\name". `system` must
// be null, empty or this computer. The sizes give the room (bytes of the identifier, units of the
// domain with terminator). If it is too small the error is ERROR_INSUFFICIENT_BUFFER and both sizes
// say what is needed. Otherwise the domain size becomes the units without terminator.
// ERROR_NONE_MAPPED for unknown names.
BOOL WINAPI LookupAccountNameW(LPCWSTR system, LPCWSTR name, PSID sid, LPDWORD sid_size,
                               LPWSTR domain, LPDWORD domain_size, PSID_NAME_USE use);

// The reverse: the name, domain and kind of an identifier. Sizes are in units, under the same
// rules.
BOOL WINAPI LookupAccountSidW(LPCWSTR system, PSID sid, LPWSTR name, LPDWORD name_size,
                              LPWSTR domain, LPDWORD domain_size, PSID_NAME_USE use);

// The user's name; `size` is the room in units and becomes the units with terminator.
// ERROR_INSUFFICIENT_BUFFER when it does not fit.
BOOL WINAPI GetUserNameW(LPWSTR buffer, LPDWORD size);

// The computer's name in capitals, at most 15 characters; `size` becomes the units without
// terminator. ERROR_BUFFER_OVERFLOW when it does not fit.
BOOL WINAPI GetComputerNameW(LPWSTR buffer, LPDWORD size);

WIN32HOST_END_C
#pragma GCC visibility pop
