#include "registry/oregistry_system.h"

#include "core/ostring.h"

namespace {

// Loads a library of the system by its full name, so that no other of that name is loaded.
HMODULE SystemLibrary(const char* name) {
    WCHAR folder[MAX_PATH] = {};
    const UINT length = GetSystemDirectoryW(folder, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return nullptr;
    return LoadLibraryW((OString(folder) << "\\" << name).wstring());
}

template <class Function>
bool Find(HMODULE library, const char* name, Function& function) {
    const FARPROC found = library ? GetProcAddress(library, name) : nullptr;
    function = reinterpret_cast<Function>(reinterpret_cast<void (*)()>(found));
    return function != nullptr;
}

} // namespace

const RegistryTransactions& RegistryTransactions::OfSystem() {
    static const RegistryTransactions system;
    return system;
}

RegistryTransactions::RegistryTransactions() {
    const HMODULE registry = SystemLibrary("advapi32.dll");
    const HMODULE manager = SystemLibrary("ktmw32.dll");
    const bool all = Find(manager, "CreateTransaction", create_) &&
                     Find(manager, "CommitTransaction", commit_) &&
                     Find(manager, "RollbackTransaction", rollback_) &&
                     Find(registry, "RegOpenKeyTransactedW", open_key_) &&
                     Find(registry, "RegCreateKeyTransactedW", create_key_) &&
                     Find(registry, "RegDeleteKeyTransactedW", delete_key_);
    if (!all) delete_key_ = nullptr;
}

HANDLE RegistryTransactions::Create() const {
    const HANDLE made = create_(nullptr, nullptr, 0, 0, 0, 0, nullptr);
    return made == INVALID_HANDLE_VALUE ? nullptr : made;
}

bool RegistryTransactions::Commit(HANDLE transaction) const {
    return commit_(transaction) != FALSE;
}

void RegistryTransactions::Rollback(HANDLE transaction) const {
    rollback_(transaction);
}

LONG RegistryTransactions::OpenKey(HKEY root, const WCHAR* path, REGSAM access, HKEY& key,
                                   HANDLE transaction) const {
    return transaction ? open_key_(root, path, 0, access, &key, transaction, nullptr)
                       : RegOpenKeyExW(root, path, 0, access, &key);
}

LONG RegistryTransactions::CreateKey(HKEY root, const WCHAR* path, REGSAM access,
                                     SECURITY_ATTRIBUTES* security, HKEY& key,
                                     HANDLE transaction) const {
    return transaction ? create_key_(root, path, 0, nullptr, REG_OPTION_NON_VOLATILE, access,
                                     security, &key, nullptr, transaction, nullptr)
                       : RegCreateKeyExW(root, path, 0, nullptr, REG_OPTION_NON_VOLATILE, access,
                                         security, &key, nullptr);
}

LONG RegistryTransactions::DeleteKey(HKEY key, const WCHAR* name, HANDLE transaction) const {
    return transaction ? delete_key_(key, name, 0, 0, transaction, nullptr)
                       : RegDeleteKeyW(key, name);
}
