// The registry's functions of the system: keys below its roots, in a transaction or not.
#pragma once

#include <windows.h>

// The transactions of newer systems. The functions are looked up on first use, so that the module
// loads where they are missing.
class RegistryTransactions {
public:
    static const RegistryTransactions& OfSystem();

    bool IsThere() const { return delete_key_ != nullptr; }

    // Null on failure. To be closed with CloseHandle.
    HANDLE Create() const;
    bool Commit(HANDLE transaction) const;
    void Rollback(HANDLE transaction) const;

    // As RegOpenKeyExW, RegCreateKeyExW and RegDeleteKeyW, in the transaction unless that is null.
    LONG OpenKey(HKEY root, const WCHAR* path, REGSAM access, HKEY& key, HANDLE transaction) const;
    LONG CreateKey(HKEY root, const WCHAR* path, REGSAM access, SECURITY_ATTRIBUTES* security,
                   HKEY& key, HANDLE transaction) const;
    LONG DeleteKey(HKEY key, const WCHAR* name, HANDLE transaction) const;

private:
    using CreateFunction = HANDLE(WINAPI*)(SECURITY_ATTRIBUTES*, void*, DWORD, DWORD, DWORD, DWORD,
                                           WCHAR*);
    using EndFunction = BOOL(WINAPI*)(HANDLE);
    using OpenKeyFunction = LONG(WINAPI*)(HKEY, const WCHAR*, DWORD, REGSAM, HKEY*, HANDLE, void*);
    using CreateKeyFunction = LONG(WINAPI*)(HKEY, const WCHAR*, DWORD, WCHAR*, DWORD, REGSAM,
                                            const SECURITY_ATTRIBUTES*, HKEY*, DWORD*, HANDLE,
                                            void*);
    using DeleteKeyFunction = LONG(WINAPI*)(HKEY, const WCHAR*, REGSAM, DWORD, HANDLE, void*);

    RegistryTransactions();

    // Either all of them are found, or none.
    CreateFunction create_ = nullptr;
    EndFunction commit_ = nullptr;
    EndFunction rollback_ = nullptr;
    OpenKeyFunction open_key_ = nullptr;
    CreateKeyFunction create_key_ = nullptr;
    DeleteKeyFunction delete_key_ = nullptr;
};
