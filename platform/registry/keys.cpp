// Opening, making, deleting and listing keys.
#include "registry/access.h"
#include "registry/hardware.h"
#include "registry/transactions.h"

#include "host/root.h"
#include "host/text.h"

#include <win32host/registry_control.h>
#include <winnt.h>

#include <cstring>

using namespace win32host;
using namespace win32host::registry;

namespace {

constexpr REGSAM kMaximumAllowed = 0x02000000;

// What a read-only key refuses: writing values, making subkeys and links, deleting it and changing
// its security.
constexpr REGSAM kWriteRights = KEY_ALL_ACCESS & ~REGSAM{KEY_READ};

// The rights to grant for `asked`; false if they are refused.
bool Grant(REGSAM asked, bool read_only, REGSAM& granted) {
    granted = asked & KEY_ALL_ACCESS;
    if (asked & (GENERIC_READ | GENERIC_EXECUTE)) granted |= KEY_READ;
    if (asked & GENERIC_WRITE) granted |= KEY_WRITE;
    if (asked & GENERIC_ALL) granted |= KEY_ALL_ACCESS;
    if (read_only && (granted & kWriteRights)) return false;
    if (asked & kMaximumAllowed) granted |= read_only ? KEY_READ : KEY_ALL_ACCESS;
    return true;
}

LSTATUS Open(Location location, const KeyFound& found, REGSAM access, PHKEY result) {
    OpenKey key{location, found.id, 0, RootGeneration()};
    if (!Grant(access, found.read_only, key.access)) return ERROR_ACCESS_DENIED;
    *result = NewKeyHandle(key);
    return ERROR_SUCCESS;
}

// Makes everything that the thread does in the key's registry from now on part of the transaction.
LSTATUS Join(HANDLE transaction, HKEY key, bool writing) {
    return Guarded([&]() -> LSTATUS {
        KeyInUse base;
        const LSTATUS status = Use(key, 0, base);
        return status == ERROR_SUCCESS ? Enlist(transaction, base.location, writing) : status;
    });
}

// Copies a name with its terminator. `size` is the room in characters and becomes the length.
LSTATUS CopyName(std::u16string_view name, LPWSTR buffer, DWORD& size) {
    if (name.size() >= size) return ERROR_MORE_DATA;
    std::memcpy(buffer, name.data(), name.size() * sizeof(WCHAR));
    buffer[name.size()] = 0;
    size = static_cast<DWORD>(name.size());
    return ERROR_SUCCESS;
}

void Answer(LPDWORD where, size_t number) {
    if (where) *where = static_cast<DWORD>(number);
}

// The registry stores no times.
void AnswerNoTime(LPFILETIME where) {
    if (where) *where = {};
}

} // namespace

LSTATUS WINAPI RegOpenKeyExW(HKEY key, LPCWSTR subkey, DWORD, REGSAM access, PHKEY result) {
    return Guarded([&]() -> LSTATUS {
        if (!result) return ERROR_INVALID_PARAMETER;
        *result = nullptr;
        KeyInUse base;
        LSTATUS status = Use(key, 0, base);
        if (status != ERROR_SUCCESS) return status;
        const std::u16string_view path = TextOf(subkey);
        if (key == HKEY_LOCAL_MACHINE) DescribeHardware(base.location, base.id, path);
        KeyFound found;
        status = base.store->Find(base.id, path, found);
        if (status != ERROR_SUCCESS) return status;
        if (found.id == 0) return ERROR_FILE_NOT_FOUND;
        if (base.root && path.empty()) {
            REGSAM granted = 0;
            if (!Grant(access, found.read_only, granted)) return ERROR_ACCESS_DENIED;
            *result = key;
            return ERROR_SUCCESS;
        }
        return Open(base.location, found, access, result);
    });
}

LSTATUS WINAPI RegCreateKeyExW(HKEY key, LPCWSTR subkey, DWORD reserved, LPWSTR key_class,
                               DWORD options, REGSAM access, const SECURITY_ATTRIBUTES*,
                               PHKEY result, LPDWORD disposition) {
    return Guarded([&]() -> LSTATUS {
        if (!result || !subkey || reserved != 0) return ERROR_INVALID_PARAMETER;
        *result = nullptr;
        if (options & ~DWORD{REG_OPTION_BACKUP_RESTORE}) return ERROR_NOT_SUPPORTED;
        KeyInUse base;
        LSTATUS status = Use(key, 0, base);
        if (status != ERROR_SUCCESS) return status;
        KeyFound found;
        bool created = false;
        status = base.store->Create(base.id, TextOf(subkey), TextOf(key_class), found, created);
        if (status != ERROR_SUCCESS) return status;
        status = Open(base.location, found, access, result);
        if (status == ERROR_SUCCESS)
            Answer(disposition, created ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY);
        return status;
    });
}

LSTATUS WINAPI RegCloseKey(HKEY key) {
    if (IsRootKey(key)) return ERROR_SUCCESS;
    return Guarded(
        [&]() -> LSTATUS { return CloseKeyHandle(key) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE; });
}

LSTATUS WINAPI RegDeleteKeyW(HKEY key, LPCWSTR subkey) {
    return Guarded([&]() -> LSTATUS {
        if (!subkey) return ERROR_INVALID_PARAMETER;
        KeyInUse base;
        const LSTATUS status = Use(key, 0, base);
        if (status != ERROR_SUCCESS) return status;
        return base.store->Delete(base.id, TextOf(subkey));
    });
}

LSTATUS WINAPI RegOpenKeyTransactedW(HKEY key, LPCWSTR subkey, DWORD options, REGSAM access,
                                     PHKEY result, HANDLE transaction, PVOID) {
    constexpr REGSAM kReading = KEY_READ | GENERIC_READ | GENERIC_EXECUTE;
    const LSTATUS status = Join(transaction, key, (access & ~kReading) != 0);
    if (status == ERROR_SUCCESS) return RegOpenKeyExW(key, subkey, options, access, result);
    if (result) *result = nullptr;
    return status;
}

LSTATUS WINAPI RegCreateKeyTransactedW(HKEY key, LPCWSTR subkey, DWORD reserved, LPWSTR key_class,
                                       DWORD options, REGSAM access,
                                       const SECURITY_ATTRIBUTES* security, PHKEY result,
                                       LPDWORD disposition, HANDLE transaction, PVOID) {
    const LSTATUS status = Join(transaction, key, true);
    if (status == ERROR_SUCCESS)
        return RegCreateKeyExW(key, subkey, reserved, key_class, options, access, security, result,
                               disposition);
    if (result) *result = nullptr;
    return status;
}

LSTATUS WINAPI RegDeleteKeyTransactedW(HKEY key, LPCWSTR subkey, REGSAM, DWORD, HANDLE transaction,
                                       PVOID) {
    const LSTATUS status = Join(transaction, key, true);
    return status == ERROR_SUCCESS ? RegDeleteKeyW(key, subkey) : status;
}

LSTATUS WINAPI RegEnumKeyW(HKEY key, DWORD index, LPWSTR name, DWORD name_size) {
    return RegEnumKeyExW(key, index, name, &name_size, nullptr, nullptr, nullptr, nullptr);
}

LSTATUS WINAPI RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD name_size,
                             LPDWORD reserved, LPWSTR key_class, LPDWORD class_size,
                             LPFILETIME last_write_time) {
    return Guarded([&]() -> LSTATUS {
        if (!name || !name_size || reserved || (key_class && !class_size))
            return ERROR_INVALID_PARAMETER;
        KeyInUse base;
        LSTATUS status = Use(key, KEY_ENUMERATE_SUB_KEYS, base);
        if (status != ERROR_SUCCESS) return status;
        const NameList* names = nullptr;
        status = base.store->Subkeys(base.id, names);
        if (status != ERROR_SUCCESS) return status;
        if (index >= names->size()) return ERROR_NO_MORE_ITEMS;
        const std::u16string found = (*names)[index];
        if (class_size) {
            // The class comes from the subkey itself. One that was deleted meanwhile has none.
            KeyFound subkey;
            KeyInfo info;
            status = base.store->Find(base.id, found, subkey);
            if (status == ERROR_SUCCESS && subkey.id != 0) base.store->Info(subkey.id, info);
            if (key_class) {
                status = CopyName(info.key_class, key_class, *class_size);
                if (status != ERROR_SUCCESS) return status;
            } else {
                Answer(class_size, info.key_class.size());
            }
        }
        AnswerNoTime(last_write_time);
        return CopyName(found, name, *name_size);
    });
}

LSTATUS WINAPI RegQueryInfoKeyW(HKEY key, LPWSTR key_class, LPDWORD class_size, LPDWORD reserved,
                                LPDWORD subkeys, LPDWORD longest_subkey, LPDWORD longest_class,
                                LPDWORD values, LPDWORD longest_value_name,
                                LPDWORD longest_value_data, LPDWORD security_descriptor_size,
                                LPFILETIME last_write_time) {
    return Guarded([&]() -> LSTATUS {
        if (reserved || (key_class && !class_size)) return ERROR_INVALID_PARAMETER;
        KeyInUse base;
        LSTATUS status = Use(key, KEY_QUERY_VALUE, base);
        if (status != ERROR_SUCCESS) return status;
        KeyInfo info;
        status = base.store->Info(base.id, info);
        if (status != ERROR_SUCCESS) return status;
        Answer(subkeys, info.subkeys);
        Answer(longest_subkey, info.longest_subkey);
        Answer(longest_class, info.longest_class);
        Answer(values, info.values);
        Answer(longest_value_name, info.longest_value_name);
        Answer(longest_value_data, info.longest_value_data);
        Answer(security_descriptor_size, 0);
        AnswerNoTime(last_write_time);
        if (key_class) return CopyName(info.key_class, key_class, *class_size);
        Answer(class_size, info.key_class.size());
        return ERROR_SUCCESS;
    });
}

LSTATUS WINAPI RegFlushKey(HKEY key) {
    return Guarded([&]() -> LSTATUS {
        KeyInUse base;
        const LSTATUS status = Use(key, 0, base);
        if (status != ERROR_SUCCESS) return status;
        base.store->Flush();
        return ERROR_SUCCESS;
    });
}

LSTATUS WINAPI RegConnectRegistryW(LPCWSTR machine, HKEY key, PHKEY result) {
    return Guarded([&]() -> LSTATUS {
        if (!result) return ERROR_INVALID_PARAMETER;
        *result = nullptr;
        std::u16string_view name = TextOf(machine);
        if (name.empty()) {
            if (!IsRootKey(key)) return ERROR_INVALID_HANDLE;
            *result = key;
            return ERROR_SUCCESS;
        }
        if (key != HKEY_LOCAL_MACHINE && key != HKEY_USERS) return ERROR_INVALID_HANDLE;
        if (name.starts_with(u"\\\\")) name.remove_prefix(2);
        const Location location = ServerLocation(name);
        if (!location) return ERROR_BAD_NETPATH;
        KeyFound found;
        const int64_t id = key == HKEY_LOCAL_MACHINE ? kMachineKey : kUsersKey;
        const LSTATUS status = StoreOf(location).Find(id, {}, found);
        if (status != ERROR_SUCCESS) return status;
        return Open(location, found, kMaximumAllowed, result);
    });
}

namespace win32host {

bool SetKeyReadOnly(HKEY root, const WCHAR* path, bool read_only) {
    return Guarded([&]() -> LSTATUS {
               KeyInUse base;
               LSTATUS status = Use(root, 0, base);
               if (status != ERROR_SUCCESS) return status;
               KeyFound found;
               bool created = false;
               status = base.store->Create(base.id, TextOf(path), {}, found, created);
               if (status != ERROR_SUCCESS) return status;
               return base.store->SetReadOnly(found.id, read_only);
           }) == ERROR_SUCCESS;
}

} // namespace win32host
