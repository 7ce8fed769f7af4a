// One open key of the registry.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace win32host {

// The destructor closes the key. Operations answer error codes, ERROR_SUCCESS among them.
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
    // Makes whatever is missing of the path.
    LSTATUS Create(HKEY parent, const std::u16string& path);
    void Close();

    HKEY get() const { return key_; }
    explicit operator bool() const { return key_ != nullptr; }

    // Current values; one that is missing or has another type is empty, or the fallback. This one
    // reads REG_SZ or REG_EXPAND_SZ, up to the first zero.
    std::u16string Text(const char16_t* name) const;
    // The texts of a REG_MULTI_SZ, up to the first empty one.
    std::vector<std::u16string> Texts(const char16_t* name) const;
    DWORD Number(const char16_t* name, DWORD fallback = 0) const;
    // REG_BINARY.
    std::vector<BYTE> Bytes(const char16_t* name) const;

    // True if something exists but could not be read, and was taken for missing.
    bool HasFailed() const { return failed_; }

    // Has the registry read all values at once. Call it before asking for many of them.
    void ReadAhead() const;

    bool Has(const std::u16string& value) const;
    std::vector<std::u16string> ValueNames() const;
    std::vector<std::u16string> SubkeyNames() const;

    LSTATUS SetText(const std::u16string& name, std::u16string_view text) const;
    LSTATUS SetTexts(const std::u16string& name, const std::vector<std::u16string>& texts) const;
    LSTATUS SetNumber(const std::u16string& name, DWORD number) const;
    LSTATUS SetBytes(const std::u16string& name, const void* bytes, size_t size) const;
    LSTATUS DeleteValue(const std::u16string& name) const;
    // Deletes the key with everything below it.
    LSTATUS DeleteTree(const std::u16string& subkey) const;

private:
    struct Value;

    HKEY Release();
    void Read(const char16_t* name, Value& value) const;

    HKEY key_ = nullptr;
    mutable bool failed_ = false;
};

} // namespace win32host
