// Short forms of the registry calls for tests.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

// An open key, closed when it goes.
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

    HKEY get() const { return handle_; }
    explicit operator bool() const { return handle_ != nullptr; }

private:
    HKEY handle_;
};

inline Key Make(HKEY base, const std::u16string& path, REGSAM access = KEY_ALL_ACCESS) {
    HKEY key = nullptr;
    RegCreateKeyExW(base, path.c_str(), 0, nullptr, 0, access, nullptr, &key, nullptr);
    return Key(key);
}

// Answers the error code of opening a key, and closes it.
inline LSTATUS TryOpen(HKEY base, const std::u16string& path, REGSAM access = KEY_READ) {
    HKEY key = nullptr;
    const LSTATUS status = RegOpenKeyExW(base, path.c_str(), 0, access, &key);
    if (status == ERROR_SUCCESS) RegCloseKey(key);
    return status;
}

inline LSTATUS Write(HKEY key, const std::u16string& name, std::string_view bytes,
                     DWORD type = REG_BINARY) {
    return RegSetValueExW(key, name.c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                          static_cast<DWORD>(bytes.size()));
}

// The bytes of a value, "(none)" when it cannot be read.
inline std::string Read(HKEY key, const std::u16string& name) {
    DWORD size = 0;
    if (RegQueryValueExW(key, name.c_str(), nullptr, nullptr, nullptr, &size) != ERROR_SUCCESS)
        return "(none)";
    std::string bytes(size, '\0');
    if (RegQueryValueExW(key, name.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(bytes.data()),
                         &size) != ERROR_SUCCESS)
        return "(none)";
    bytes.resize(size);
    return bytes;
}

inline std::vector<std::u16string> Subkeys(HKEY key) {
    std::vector<std::u16string> names;
    WCHAR name[256];
    for (DWORD i = 0; RegEnumKeyW(key, i, name, 256) == ERROR_SUCCESS; ++i) names.push_back(name);
    return names;
}

inline std::vector<std::u16string> ValueNames(HKEY key) {
    std::vector<std::u16string> names;
    std::vector<WCHAR> name(16384);
    for (DWORD i = 0;; ++i) {
        DWORD size = static_cast<DWORD>(name.size());
        if (RegEnumValueW(key, i, name.data(), &size, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            return names;
        names.push_back(name.data());
    }
}
