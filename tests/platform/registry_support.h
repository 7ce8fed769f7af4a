// Short forms of the registry calls for tests.
#pragma once

#include <windows.h>

#include "support/wide.h"

#include <string>
#include <string_view>
#include <vector>

// An open key that is closed with the object.
class Key {
public:
    explicit Key(HKEY handle = nullptr)
        : handle_(handle) {}
    ~Key() {
        if (handle_) RegCloseKey(handle_);
    }
    Key(Key&& other) noexcept
        : handle_(other.handle_) {
        other.handle_ = nullptr;
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;

    operator HKEY() const { return handle_; }

private:
    HKEY handle_;
};

// Paths without a base key are those of the machine.
inline LSTATUS TryMake(HKEY base, const Wide& path, HKEY* key, DWORD* disposition = nullptr,
                       DWORD options = 0, REGSAM access = KEY_ALL_ACCESS) {
    return RegCreateKeyExW(base, path.c_str(), 0, nullptr, options, access, nullptr, key,
                           disposition);
}

inline Key Make(HKEY base, const Wide& path, REGSAM access = KEY_ALL_ACCESS) {
    HKEY key = nullptr;
    TryMake(base, path, &key, nullptr, 0, access);
    return Key(key);
}
inline Key Make(const Wide& path, REGSAM access = KEY_ALL_ACCESS) {
    return Make(HKEY_LOCAL_MACHINE, path, access);
}

// Opens a key, closes it and returns the error code.
inline LSTATUS TryOpen(HKEY base, const Wide& path, REGSAM access = KEY_READ) {
    HKEY key = nullptr;
    const LSTATUS status = RegOpenKeyExW(base, path.c_str(), 0, access, &key);
    if (status == ERROR_SUCCESS) RegCloseKey(key);
    return status;
}
inline LSTATUS TryOpen(const Wide& path, REGSAM access = KEY_READ) {
    return TryOpen(HKEY_LOCAL_MACHINE, path, access);
}

inline LSTATUS Write(HKEY key, const Wide& name, std::string_view bytes, DWORD type = REG_BINARY) {
    return RegSetValueExW(key, name.c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                          static_cast<DWORD>(bytes.size()));
}

// The bytes of a value, or "(none)" if it cannot be read.
inline std::string Read(HKEY key, const Wide& name) {
    DWORD size = 0;
    std::string bytes;
    for (int pass = 0; pass < 2; ++pass) {
        bytes.resize(size);
        if (RegQueryValueExW(key, name.c_str(), nullptr, nullptr,
                             pass ? reinterpret_cast<BYTE*>(bytes.data()) : nullptr, &size))
            return "(none)";
    }
    return bytes;
}

inline std::vector<Wide> Subkeys(HKEY key) {
    std::vector<Wide> names;
    WCHAR name[256];
    for (DWORD i = 0; RegEnumKeyW(key, i, name, 256) == ERROR_SUCCESS; ++i) names.push_back(name);
    return names;
}

inline std::vector<Wide> ValueNames(HKEY key) {
    std::vector<Wide> names;
    std::vector<WCHAR> name(16384);
    for (DWORD i = 0;; ++i) {
        DWORD size = static_cast<DWORD>(name.size());
        if (RegEnumValueW(key, i, name.data(), &size, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            return names;
        names.push_back(name.data());
    }
}
