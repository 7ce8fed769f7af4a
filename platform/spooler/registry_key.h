// One open key of the registry, and all its values read in one pass.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace win32host {

// A key's values as they were at one moment. Names are matched without regard to case; a value
// that is missing or has another type answers the fallback.
class RegistryValues {
public:
    void Add(std::u16string name, DWORD type, std::vector<BYTE> data);

    bool Has(std::u16string_view name) const { return Find(name) != nullptr; }
    bool empty() const { return values_.empty(); }
    std::vector<std::u16string> Names() const;

    // REG_SZ or REG_EXPAND_SZ, up to its first zero.
    std::u16string Text(std::u16string_view name) const;
    // The texts of a REG_MULTI_SZ, up to the first empty one.
    std::vector<std::u16string> Texts(std::u16string_view name) const;
    DWORD Number(std::u16string_view name, DWORD fallback = 0) const;
    // REG_BINARY.
    std::vector<BYTE> Bytes(std::u16string_view name) const;

private:
    struct Value {
        std::u16string name;
        DWORD type;
        std::vector<BYTE> data;
    };
    const Value* Find(std::u16string_view name) const;

    std::vector<Value> values_;
};

// Closes the key when it goes. Operations answer error codes, ERROR_SUCCESS among them.
class RegistryKey {
public:
    RegistryKey() = default;
    explicit RegistryKey(HKEY key)
        : key_(key) {} // takes it over
    ~RegistryKey() { Close(); }
    RegistryKey(RegistryKey&& other) noexcept
        : key_(other.Release()) {}
    RegistryKey& operator=(RegistryKey&& other) noexcept;

    LSTATUS Open(HKEY parent, const std::u16string& path, REGSAM access = KEY_READ);
    // Makes what is missing of the path.
    LSTATUS Create(HKEY parent, const std::u16string& path);
    void Close();

    HKEY get() const { return key_; }
    explicit operator bool() const { return key_ != nullptr; }

    RegistryValues ReadValues() const;
    std::vector<std::u16string> SubkeyNames() const;

    LSTATUS SetText(const std::u16string& name, std::u16string_view text) const;
    LSTATUS SetTexts(const std::u16string& name, const std::vector<std::u16string>& texts) const;
    LSTATUS SetNumber(const std::u16string& name, DWORD number) const;
    LSTATUS SetBytes(const std::u16string& name, const void* bytes, size_t size) const;
    LSTATUS DeleteValue(const std::u16string& name) const;
    // With everything below it.
    LSTATUS DeleteTree(const std::u16string& subkey) const;

private:
    HKEY Release();

    HKEY key_ = nullptr;
};

} // namespace win32host
