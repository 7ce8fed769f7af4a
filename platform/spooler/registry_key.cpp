#include "spooler/registry_key.h"

#include "host/text.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace win32host {
namespace {

std::u16string Units(const std::vector<BYTE>& data) {
    std::u16string text(data.size() / sizeof(WCHAR), u'\0');
    if (!text.empty()) std::memcpy(text.data(), data.data(), text.size() * sizeof(WCHAR));
    return text;
}

} // namespace

void RegistryValues::Add(std::u16string name, DWORD type, std::vector<BYTE> data) {
    values_.push_back({std::move(name), type, std::move(data)});
}

std::vector<std::u16string> RegistryValues::Names() const {
    std::vector<std::u16string> names;
    for (const Value& value : values_) names.push_back(value.name);
    return names;
}

const RegistryValues::Value* RegistryValues::Find(std::u16string_view name) const {
    for (const Value& value : values_) {
        if (SameName(value.name, name)) return &value;
    }
    return nullptr;
}

std::u16string RegistryValues::Text(std::u16string_view name) const {
    const Value* value = Find(name);
    if (!value || (value->type != REG_SZ && value->type != REG_EXPAND_SZ)) return {};
    std::u16string text = Units(value->data);
    if (const size_t end = text.find(u'\0'); end != std::u16string::npos) text.resize(end);
    return text;
}

std::vector<std::u16string> RegistryValues::Texts(std::u16string_view name) const {
    const Value* value = Find(name);
    if (!value || value->type != REG_MULTI_SZ) return {};
    std::vector<std::u16string> texts;
    const std::u16string all = Units(value->data);
    for (size_t start = 0; start < all.size() && all[start];) {
        const size_t end = std::min(all.find(u'\0', start), all.size());
        texts.push_back(all.substr(start, end - start));
        start = end + 1;
    }
    return texts;
}

DWORD RegistryValues::Number(std::u16string_view name, DWORD fallback) const {
    const Value* value = Find(name);
    DWORD number = fallback;
    if (value && value->type == REG_DWORD && value->data.size() == sizeof number)
        std::memcpy(&number, value->data.data(), sizeof number);
    return number;
}

std::vector<BYTE> RegistryValues::Bytes(std::u16string_view name) const {
    const Value* value = Find(name);
    return value && value->type == REG_BINARY ? value->data : std::vector<BYTE>();
}

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

RegistryValues RegistryKey::ReadValues() const {
    RegistryValues values;
    std::u16string name(64, u'\0');
    std::vector<BYTE> data(1024);
    for (DWORD index = 0;;) {
        DWORD name_size = static_cast<DWORD>(name.size()), type = REG_NONE;
        DWORD size = static_cast<DWORD>(data.size());
        const LSTATUS status =
            RegEnumValueW(key_, index, name.data(), &name_size, nullptr, &type, data.data(), &size);
        if (status == ERROR_MORE_DATA) { // the name's or the value's buffer, or both
            if (size > data.size())
                data.resize(size);
            else
                name.resize(name.size() * 2);
            continue;
        }
        if (status != ERROR_SUCCESS) return values;
        values.Add(name.substr(0, name_size), type, {data.begin(), data.begin() + size});
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
    {
        RegistryKey key;
        if (const LSTATUS status = key.Open(key_, subkey, KEY_ALL_ACCESS); status != ERROR_SUCCESS)
            return status;
        for (const std::u16string& name : key.SubkeyNames()) key.DeleteTree(name);
    }
    return RegDeleteKeyW(key_, subkey.c_str());
}

} // namespace win32host
