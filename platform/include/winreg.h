// The registry: keys as a tree, values with a name, a type and bytes.
//
// The functions return an error code (ERROR_SUCCESS on success) and do not set the last error.
// Names are matched without regard to case and shown as they were first written. Keys and values
// are enumerated in the order of their creation.
#pragma once

#include <windef.h>

struct SECURITY_ATTRIBUTES;

typedef LONG LSTATUS;
typedef DWORD REGSAM;

// The roots. They are always open: closing one does nothing.
#define WIN32HOST_ROOT_KEY(number) ((HKEY)(ULONG_PTR)(LONG_PTR)(LONG)(number))
#define HKEY_CLASSES_ROOT WIN32HOST_ROOT_KEY(0x80000000)
#define HKEY_CURRENT_USER WIN32HOST_ROOT_KEY(0x80000001)
#define HKEY_LOCAL_MACHINE WIN32HOST_ROOT_KEY(0x80000002)
#define HKEY_USERS WIN32HOST_ROOT_KEY(0x80000003)

// Value types. The registry stores the bytes of every type as they are given.
#define REG_NONE 0
#define REG_SZ 1
#define REG_EXPAND_SZ 2
#define REG_BINARY 3
#define REG_DWORD 4
#define REG_DWORD_LITTLE_ENDIAN 4
#define REG_DWORD_BIG_ENDIAN 5
#define REG_LINK 6
#define REG_MULTI_SZ 7
#define REG_RESOURCE_LIST 8
#define REG_FULL_RESOURCE_DESCRIPTOR 9
#define REG_RESOURCE_REQUIREMENTS_LIST 10
#define REG_QWORD 11
#define REG_QWORD_LITTLE_ENDIAN 11

// Access rights of a key handle.
#define KEY_QUERY_VALUE 0x0001
#define KEY_SET_VALUE 0x0002
#define KEY_CREATE_SUB_KEY 0x0004
#define KEY_ENUMERATE_SUB_KEYS 0x0008
#define KEY_NOTIFY 0x0010
#define KEY_CREATE_LINK 0x0020
#define KEY_WOW64_64KEY 0x0100
#define KEY_WOW64_32KEY 0x0200
#define KEY_READ 0x20019
#define KEY_WRITE 0x20006
#define KEY_EXECUTE 0x20019
#define KEY_ALL_ACCESS 0xF003F

// Options and outcome of RegCreateKeyExW.
#define REG_OPTION_NON_VOLATILE 0x0000
#define REG_OPTION_VOLATILE 0x0001
#define REG_OPTION_CREATE_LINK 0x0002
#define REG_OPTION_BACKUP_RESTORE 0x0004
#define REG_OPTION_OPEN_LINK 0x0008
#define REG_CREATED_NEW_KEY 1
#define REG_OPENED_EXISTING_KEY 2

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// Opens the existing key `subkey`, a path of names separated by backslashes, below `key`. A null or
// empty path opens `key` itself once more. ERROR_FILE_NOT_FOUND if it does not exist,
// ERROR_ACCESS_DENIED if `access` is not granted. `*result` is null after a failure.
LSTATUS WINAPI RegOpenKeyExW(HKEY key, LPCWSTR subkey, DWORD options, REGSAM access, PHKEY result);

// Opens `subkey` like RegOpenKeyExW after making each key of the path that is missing, all of them
// or none. Names have up to 255 characters. Keys are always persistent and carry no security
// descriptor: `security` is accepted and ignored. `*disposition` (optional) says whether the key
// was made or existed.
LSTATUS WINAPI RegCreateKeyExW(HKEY key, LPCWSTR subkey, DWORD reserved, LPWSTR key_class,
                               DWORD options, REGSAM access,
                               const struct SECURITY_ATTRIBUTES* security, PHKEY result,
                               LPDWORD disposition);

// The same within a transaction (ktmw32.h). The handle remains valid when that ends.
LSTATUS WINAPI RegOpenKeyTransactedW(HKEY key, LPCWSTR subkey, DWORD options, REGSAM access,
                                     PHKEY result, HANDLE transaction, PVOID extended);
LSTATUS WINAPI RegCreateKeyTransactedW(HKEY key, LPCWSTR subkey, DWORD reserved, LPWSTR key_class,
                                       DWORD options, REGSAM access,
                                       const struct SECURITY_ATTRIBUTES* security, PHKEY result,
                                       LPDWORD disposition, HANDLE transaction, PVOID extended);

// Closes a key handle; ERROR_INVALID_HANDLE if it is not open.
LSTATUS WINAPI RegCloseKey(HKEY key);

// Reads a value; a null or empty name is the key's default value. `*size` holds the buffer's size
// in bytes and receives the value's. With a null buffer only type and size are answered; with one
// that is too small the error is ERROR_MORE_DATA, and `*size` receives the needed size.
LSTATUS WINAPI RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                                LPDWORD size);

// Writes a value. Once the function has returned, the value survives the process, however that
// ends, and every later read by any process sees it.
LSTATUS WINAPI RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data,
                              DWORD size);

// Deletes a value; ERROR_FILE_NOT_FOUND if there is no such value.
LSTATUS WINAPI RegDeleteValueW(HKEY key, LPCWSTR name);

// Deletes the key `subkey` with its values; ERROR_ACCESS_DENIED if it has subkeys. An empty path
// deletes `key` itself. From then on, handles that are still open on the key answer
// ERROR_KEY_DELETED.
LSTATUS WINAPI RegDeleteKeyW(HKEY key, LPCWSTR subkey);
// The same within a transaction.
LSTATUS WINAPI RegDeleteKeyTransactedW(HKEY key, LPCWSTR subkey, REGSAM access, DWORD reserved,
                                       HANDLE transaction, PVOID extended);

// The name of subkey number `index`, counted from 0; ERROR_NO_MORE_ITEMS after the last one. Sizes
// are in characters: given with the terminator, received without. ERROR_MORE_DATA if the name does
// not fit.
LSTATUS WINAPI RegEnumKeyW(HKEY key, DWORD index, LPWSTR name, DWORD name_size);
LSTATUS WINAPI RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD name_size,
                             LPDWORD reserved, LPWSTR key_class, LPDWORD class_size,
                             LPFILETIME last_write_time);

// Name, type and bytes of the value number `index`; sizes as in RegEnumKeyExW and RegQueryValueExW.
LSTATUS WINAPI RegEnumValueW(HKEY key, DWORD index, LPWSTR name, LPDWORD name_size,
                             LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size);

// The counts of a key's subkeys and values and the lengths of the longest (names in characters,
// data in bytes). Each pointer may be null. Times of the last write are not kept and are 0.
LSTATUS WINAPI RegQueryInfoKeyW(HKEY key, LPWSTR key_class, LPDWORD class_size, LPDWORD reserved,
                                LPDWORD subkeys, LPDWORD longest_subkey, LPDWORD longest_class,
                                LPDWORD values, LPDWORD longest_value_name,
                                LPDWORD longest_value_data, LPDWORD security_descriptor_size,
                                LPFILETIME last_write_time);

// Returns when everything written so far is on the disk.
LSTATUS WINAPI RegFlushKey(HKEY key);

// Opens HKEY_LOCAL_MACHINE or HKEY_USERS of another machine, "\\SERVER": the registry in the root
// folder that servers/SERVER of the current root leads to. ERROR_BAD_NETPATH if there is no such
// folder. A null or empty name is this machine.
LSTATUS WINAPI RegConnectRegistryW(LPCWSTR machine, HKEY key, PHKEY result);

WIN32HOST_END_C
#pragma GCC visibility pop
