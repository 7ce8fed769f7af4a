#include "spooler/registry_key.h"

#include "registry/transactions.h"

#include <cstring>
#include <utility>

namespace win32host {

// One value as it was read. Most are short and need no memory of their own.
struct RegistryKey::Value {
    DWORD type = REG_NONE;
    DWORD size = 0;
    WCHAR small[128];
    std::vector<WCHAR> big;

    const WCHAR* Data() const { return big.empty() ? small : big.data(); }
    // As text, up to the first zero from `start` on.
    std::u16string_view TextAt(size_t start) const {
        const std::u16string_view all(Data(), size / sizeof(WCHAR));
        return all.substr(start, all.find(u'\0', start) - start);
    }
};

RegistryKey& RegistryKey::operator=(RegistryKey&& other) noexcept {
    if (this != &other) {
        Close();
        key_ = other.Release();
    }
    return *this;
}

LSTATUS RegistryKey::Open(HKEY parent, const std::u16string& path, REGSAM access) {
    Close();
    return RegOpenKeyExW(parent, path.c_str(), 0, access, &key_);
}

LSTATUS RegistryKey::Create(HKEY parent, const std::u16string& path) {
    Close();
    return RegCreateKeyExW(parent, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                           KEY_ALL_ACCESS, nullptr, &key_, nullptr);
}

void RegistryKey::Close() {
    if (HKEY key = Release()) RegCloseKey(key);
}

HKEY RegistryKey::Release() {
    return std::exchange(key_, nullptr);
}

void RegistryKey::Read(const char16_t* name, Value& value) const {
    value.size = sizeof value.small;
    auto* data = reinterpret_cast<BYTE*>(value.small);
    LSTATUS status;
    while ((status = RegQueryValueExW(key_, name, nullptr, &value.type, data, &value.size)) ==
           ERROR_MORE_DATA) {
        value.big.resize((value.size + sizeof(WCHAR) - 1) / sizeof(WCHAR));
        value.size = static_cast<DWORD>(value.big.size() * sizeof(WCHAR));
        data = reinterpret_cast<BYTE*>(value.big.data());
    }
    if (status != ERROR_SUCCESS) {
        if (status != ERROR_FILE_NOT_FOUND) failed_ = true;
        value.type = REG_NONE;
        value.size = 0;
    }
}

void RegistryKey::ReadAhead() const {
    // The registry does so when an enumeration of the values with their bytes starts.
    WCHAR name[1];
    DWORD length = 1, size = 0;
    RegEnumValueW(key_, 0, name, &length, nullptr, nullptr, nullptr, &size);
}

std::u16string RegistryKey::Text(const char16_t* name) const {
    Value value;
    Read(name, value);
    if (value.type != REG_SZ && value.type != REG_EXPAND_SZ) return {};
    return std::u16string(value.TextAt(0));
}

std::vector<std::u16string> RegistryKey::Texts(const char16_t* name) const {
    Value value;
    Read(name, value);
    std::vector<std::u16string> texts;
    if (value.type != REG_MULTI_SZ) return texts;
    const size_t end = value.size / sizeof(WCHAR);
    for (size_t start = 0; start < end && value.Data()[start]; start += texts.back().size() + 1)
        texts.emplace_back(value.TextAt(start));
    return texts;
}

DWORD RegistryKey::Number(const char16_t* name, DWORD fallback) const {
    Value value;
    Read(name, value);
    DWORD number = fallback;
    if (value.type == REG_DWORD && value.size == sizeof number)
        std::memcpy(&number, value.Data(), sizeof number);
    return number;
}

std::vector<BYTE> RegistryKey::Bytes(const char16_t* name) const {
    Value value;
    Read(name, value);
    if (value.type != REG_BINARY) return {};
    const auto* bytes = reinterpret_cast<const BYTE*>(value.Data());
    return {bytes, bytes + value.size};
}

bool RegistryKey::Has(const std::u16string& value) const {
    return RegQueryValueExW(key_, value.c_str(), nullptr, nullptr, nullptr, nullptr) ==
           ERROR_SUCCESS;
}

std::vector<std::u16string> RegistryKey::ValueNames() const {
    std::vector<std::u16string> names;
    std::u16string name(64, u'\0');
    for (DWORD index = 0;;) {
        DWORD size = static_cast<DWORD>(name.size());
        const LSTATUS status =
            RegEnumValueW(key_, index, name.data(), &size, nullptr, nullptr, nullptr, nullptr);
        if (status == ERROR_MORE_DATA) {
            name.resize(name.size() * 2);
            continue;
        }
        if (status != ERROR_SUCCESS) return names;
        names.push_back(name.substr(0, size));
        ++index;
    }
}

std::vector<std::u16string> RegistryKey::SubkeyNames() const {
    std::vector<std::u16string> names;
    std::u16string name(256, u'\0'); // no key's name is longer than 255
    for (DWORD index = 0;; ++index) {
        DWORD size = static_cast<DWORD>(name.size());
        if (RegEnumKeyExW(key_, index, name.data(), &size, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            return names;
        names.push_back(name.substr(0, size));
    }
}

LSTATUS RegistryKey::SetText(const std::u16string& name, std::u16string_view text) const {
    const std::u16string terminated(text);
    return RegSetValueExW(key_, name.c_str(), 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(terminated.c_str()),
                          static_cast<DWORD>((terminated.size() + 1) * sizeof(WCHAR)));
}

LSTATUS RegistryKey::SetTexts(const std::u16string& name,
                              const std::vector<std::u16string>& texts) const {
    std::u16string all;
    for (const std::u16string& text : texts) {
        all += text;
        all += u'\0';
    }
    return RegSetValueExW(key_, name.c_str(), 0, REG_MULTI_SZ,
                          reinterpret_cast<const BYTE*>(all.c_str()),
                          static_cast<DWORD>((all.size() + 1) * sizeof(WCHAR)));
}

LSTATUS RegistryKey::SetNumber(const std::u16string& name, DWORD number) const {
    return RegSetValueExW(key_, name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number),
                          sizeof number);
}

LSTATUS RegistryKey::SetBytes(const std::u16string& name, const void* bytes, size_t size) const {
    return RegSetValueExW(key_, name.c_str(), 0, REG_BINARY, static_cast<const BYTE*>(bytes),
                          static_cast<DWORD>(size));
}

LSTATUS RegistryKey::DeleteValue(const std::u16string& name) const {
    return RegDeleteValueW(key_, name.c_str());
}

LSTATUS RegistryKey::DeleteTree(const std::u16string& subkey) const {
    registry::KeyTransaction transaction(key_);
    LSTATUS status = ERROR_SUCCESS;
    {
        RegistryKey key;
        status = key.Open(key_, subkey, KEY_ALL_ACCESS);
        if (status != ERROR_SUCCESS) return status;
        for (const std::u16string& name : key.SubkeyNames())
            if (status == ERROR_SUCCESS) status = key.DeleteTree(name);
    }
    return transaction.Commit(status == ERROR_SUCCESS ? RegDeleteKeyW(key_, subkey.c_str())
                                                      : status);
}

} // namespace win32host
