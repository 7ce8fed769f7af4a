#include "registry/access.h"

#include "host/root.h"
#include "host/text.h"
#include "host/user.h"

#include <algorithm>

namespace win32host::registry {
namespace {

constexpr REGSAM kWriting = KEY_SET_VALUE | KEY_CREATE_SUB_KEY;

LSTATUS UseRoot(HKEY handle, REGSAM needed, KeyInUse& key) {
    key.location = LocalLocation();
    key.store = &StoreOf(key.location);
    key.root = true;
    KeyFound found;
    bool created = false;
    LSTATUS status = ERROR_SUCCESS;
    if (handle == HKEY_CURRENT_USER) {
        status = key.store->Create(kUsersKey, CurrentUserKey(), {}, found, created);
    } else if (handle == HKEY_CLASSES_ROOT) {
        status = key.store->Create(kMachineKey, u"SOFTWARE\\Classes", {}, found, created);
    } else {
        found.id = handle == HKEY_LOCAL_MACHINE ? kMachineKey : kUsersKey;
        if (needed & kWriting) status = key.store->Find(found.id, {}, found);
    }
    if (status != ERROR_SUCCESS) return status;
    key.id = found.id;
    return (needed & kWriting) && found.read_only ? ERROR_ACCESS_DENIED : ERROR_SUCCESS;
}

} // namespace

std::u16string CurrentUserKey() {
    std::u16string name = Utf16(CurrentUserName());
    std::replace(name.begin(), name.end(), u'\\', u'_');
    if (name.empty()) return u"_";
    if (name.size() > kLongestKeyName) name.resize(kLongestKeyName);
    return name;
}

bool IsRootKey(HKEY handle) {
    return handle == HKEY_CLASSES_ROOT || handle == HKEY_CURRENT_USER ||
           handle == HKEY_LOCAL_MACHINE || handle == HKEY_USERS;
}

LSTATUS Use(HKEY handle, REGSAM needed, KeyInUse& key) {
    if (IsRootKey(handle)) return UseRoot(handle, needed, key);
    OpenKey open;
    if (!FindOpenKey(handle, open) || open.generation != RootGeneration())
        return ERROR_INVALID_HANDLE;
    if ((open.access & needed) != needed) return ERROR_ACCESS_DENIED;
    key.location = open.location;
    key.store = &StoreOf(open.location);
    key.id = open.id;
    return ERROR_SUCCESS;
}

} // namespace win32host::registry
