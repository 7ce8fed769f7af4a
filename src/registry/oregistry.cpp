#include "registry/oregistry.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include "core/memory.h"
#include "core/open_to_all.h"
#include "registry/oregistry_names.h"
#include "registry/oregistry_system.h"

namespace {

constexpr uint32_t kMaxStringBytes = 8192;
constexpr uint32_t kMaxMultiStringBytes = 10000;

// The numbers of the registry's roots in a path.
HKEY RootKey(int number) {
    switch (number) {
    case 0:
        return HKEY_CLASSES_ROOT;
    case 1:
        return HKEY_CURRENT_USER;
    case 2:
        return HKEY_LOCAL_MACHINE;
    case 3:
        return HKEY_USERS;
    default:
        return nullptr;
    }
}

// Reads the number before the colon of a path. -1 if there is none.
int RootNumber(const WCHAR* text, const WCHAR* colon) {
    while (text < colon && (*text == ' ' || *text == '\t')) ++text;
    const bool negative = text < colon && *text == '-';
    if (negative || (text < colon && *text == '+')) ++text;
    if (text == colon) return -1;
    int number = 0;
    for (; text < colon; ++text) {
        if (*text < '0' || *text > '9') return -1;
        number = std::min(number * 10 + (*text - '0'), 1000);
    }
    return negative ? -number : number;
}

// Creates a key that every account can write later, the spooler's and other users' too.
LONG CreateOpenKey(HKEY root, const WCHAR* name, HKEY& key, HANDLE transaction) {
    OpenToAll security;
    return RegistryTransactions::OfSystem().CreateKey(root, name, KEY_READ | KEY_WRITE,
                                                      security.Get(), key, transaction);
}

// Whether an error means that there is nothing of that name, or more than was asked for.
bool IsAbsence(LONG error) {
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_INVALID_PARAMETER:
    case ERROR_BAD_PATHNAME:
    case ERROR_KEY_DELETED:
    case ERROR_MORE_DATA:
    case ERROR_NO_MORE_ITEMS:
        return true;
    default:
        return false;
    }
}

} // namespace

ORegistry::~ORegistry() {
    ReleaseKey();
}

void ORegistry::CloseKey(HKEY key) {
    RegCloseKey(key);
}

void ORegistry::ReleaseKey() {
    if (key_) CloseKey(key_);
    key_ = nullptr;
    path_ = OString();
}

void ORegistry::Substitute(OString& s, const char* from, const OString& to) {
    const char* from_end = from + std::strlen(from);
    const bool is_root = std::find(from, from_end, ':') != from_end;
    if (!is_root) {
        s = s.CompareNoCase(from) == 0 ? to : ReplaceText(s, from, to);
    } else if (BeginsNoCase(s.wstring(), from)) {
        const WCHAR* rest = s.wstring() + (from_end - from);
        s = *rest ? JoinPath(to, OString(rest)) : to;
    }
}

void ORegistry::SubstituteKey(OString& key) {
    static const struct {
        const char* from;
        const char* to;
    } roots[] = {
        {"CLASSES_ROOT:", "0:"},
        {"CURRENT_USER:", "1:"},
        {"LOCAL_MACHINE:", "2:"},
        {"USERS:", "3:"},
        {"USER:", "1:SOFTWARE/Valdrick/Drivers"},
        {"LOCAL:", "2:SOFTWARE/Valdrick/Drivers"},
        {"GLOBAL:", "2:SOFTWARE/Valdrick/Drivers/Global Settings"},
        {"PRINT:", "2:SYSTEM/CurrentControlSet/Control/Print"},
    };
    if (!HasCharacter(key, ':')) return;
    for (const auto& root : roots) {
        if (BeginsNoCase(key.wstring(), root.from)) Substitute(key, root.from, root.to);
    }
}

bool ORegistry::GetKeyAndValue(OString& key, OString& value) {
    const OString name = EscapeDoubled(value);
    const bool is_key = !*name.wstring();
    // A colon before everything is not a root.
    const WCHAR* colon = name.wstring();
    if (!is_key) ++colon;
    while (*colon && *colon != ':') ++colon;
    const bool rooted = !is_key && *colon;

    OString path = name;
    if (!rooted) {
        path = EscapeDoubled(key);
        const WCHAR* text = path.wstring();
        int length = path.wlen();
        while (length > 0 && text[length - 1] == '/') --length;
        path = path.Left(length);
        if (!is_key) path = JoinPath(path, name);
    }

    OString parent;
    OString last;
    if (!SplitPath(path, parent, last)) return false;
    if (!is_key) {
        value = DecodeName(last);
        path = parent;
    }
    key = path;
    SubstituteKey(key);
    return true;
}

HKEY ORegistry::OpenKey(const OString& key, bool create) {
    const WCHAR* text = key.wstring();
    const WCHAR* colon = text;
    while (*colon && *colon != ':') ++colon;
    if (!*colon || colon == text) return nullptr;
    HKEY root = RootKey(RootNumber(text, colon));
    if (!root) return nullptr;

    OString name = DecodeName(ReplaceText(OString(colon + 1), "/", "\\"));
    const WCHAR* wide = name.wstring();
    int length = name.wlen();
    while (length > 0 && wide[length - 1] == '\\') --length;
    name.Truncate(length);
    return OpenKeyBelow(root, name, create);
}

HKEY ORegistry::OpenKeyBelow(HKEY root, const OString& path, bool create) {
    const RegistryTransactions& system = RegistryTransactions::OfSystem();
    const WCHAR* name = path.wstring();
    HKEY opened = nullptr;
    const REGSAM access = only_reads_ ? KEY_READ : KEY_READ | KEY_WRITE;
    LONG error = system.OpenKey(root, name, access, opened, transaction_);
    // Only an existing key is opened just for reading. Had it been missing, someone could create it
    // at this moment, and a writer would be left with a handle that cannot write.
    if (error != ERROR_SUCCESS && error != ERROR_FILE_NOT_FOUND)
        error = system.OpenKey(root, name, KEY_READ, opened, transaction_);
    if (error != ERROR_SUCCESS && create) error = CreateOpenKey(root, name, opened, transaction_);
    return Noted(error, create) == ERROR_SUCCESS ? opened : nullptr;
}

LONG ORegistry::Noted(LONG error, bool write) {
    if (error != ERROR_SUCCESS && (write || !IsAbsence(error))) failed_ = true;
    return error;
}

bool ORegistry::HasFailed() const {
    return failed_ || memory_.Failed();
}

void ORegistry::ForgetFailures() {
    failed_ = false;
    memory_ = AllocationWatch();
}

bool ORegistry::SetKey(const OString& path, bool create) {
    if (key_ && path_.CompareNoCase(path) == 0) return true;
    ReleaseKey();
    key_ = OpenKey(path, create);
    if (!key_) return false;
    path_ = path;
    return true;
}

template <typename Operation>
LONG ORegistry::OnValue(const OString& name, bool create, Operation operation) {
    const AllocationWatch memory;
    OString key = base_key_;
    OString value = name;
    if (!GetKeyAndValue(key, value)) return ERROR_FILE_NOT_FOUND;
    return OnKey(
        key, create, [&](HKEY opened) { return operation(opened, value); }, memory);
}

LONG ORegistry::SetData(HKEY key, const OString& name, const void* data, uint32_t size,
                        uint32_t type) {
    return RegSetValueExW(key, name.wstring(), 0, type, static_cast<const BYTE*>(data), size);
}

LONG ORegistry::GetData(HKEY key, const OString& name, void* buffer, uint32_t size,
                        uint32_t& count) {
    // The registry may leave anything in a buffer that turns out too small, so it does not get the
    // caller's. Nor is a buffer made just because the caller claims that his is large.
    BYTE small[256];
    std::unique_ptr<BYTE[]> large;
    BYTE* scratch = small;
    DWORD read = size;
    if (size > sizeof small) {
        uint32_t stored = 0;
        const LONG error = GetInfo(key, name, &stored, nullptr);
        if (error != ERROR_SUCCESS) return error;
        if (stored > size) return ERROR_MORE_DATA;
        read = sizeof small;
        if (stored > sizeof small) {
            large.reset(new (kCounted) BYTE[stored]);
            if (!large) return ERROR_OUTOFMEMORY;
            scratch = large.get();
            read = stored;
        }
    }
    const LONG error = RegQueryValueExW(key, name.wstring(), nullptr, nullptr, scratch, &read);
    if (error != ERROR_SUCCESS) return error;
    std::copy(scratch, scratch + read, static_cast<BYTE*>(buffer));
    count = read;
    return ERROR_SUCCESS;
}

int32_t ORegistry::SetData(const OString& name, const void* data, uint32_t size, uint32_t type) {
    if (size > INT32_MAX || (size > 0 && !data)) {
        failed_ = true;
        return -1;
    }
    const LONG error = OnValue(name, true, [&](HKEY key, const OString& value) {
        return SetData(key, value, data, size, type);
    });
    return error == ERROR_SUCCESS ? static_cast<int32_t>(size) : -1;
}

int32_t ORegistry::GetData(const OString& name, void* buffer, uint32_t size, uint32_t) {
    if (!buffer) return -1;
    uint32_t count = 0;
    const LONG error = OnValue(name, false, [&](HKEY key, const OString& value) {
        return GetData(key, value, buffer, size, count);
    });
    return error == ERROR_SUCCESS ? static_cast<int32_t>(count) : -1;
}

bool ORegistry::SetString(const OString& name, const OString& value) {
    const WCHAR* text = value.wstring();
    const auto length = static_cast<uint32_t>(value.wlen());
    if (length == 0 && !value.IsEmpty()) return false; // no memory for the UTF-16 form
    return SetData(name, text, (length + 1) * static_cast<uint32_t>(sizeof(WCHAR)), REG_SZ) >= 0;
}

OString ORegistry::GetString(const OString& name, const OString& default_value) {
    WCHAR text[kMaxStringBytes / sizeof(WCHAR) + 1];
    const int32_t bytes = GetData(name, text, kMaxStringBytes, REG_SZ);
    if (bytes <= 0) return default_value;
    // Another program may have stored it without a terminator, or truncated within a character.
    text[static_cast<size_t>(bytes) / sizeof(WCHAR)] = 0;
    return OString(text);
}

bool ORegistry::CanStore(const OString& value) {
    value.wstring(); // the form that is stored
    return (static_cast<uint32_t>(value.wlen()) + 1) * sizeof(WCHAR) <= kMaxStringBytes;
}

bool ORegistry::SetMultiString(const OString& name, const OStringArray& values) {
    const AllocationWatch memory;
    OBuffer<WCHAR> packed;
    const uint32_t length = values.Pack(packed, OPACK_LIST);
    // Without memory there is nothing to replace the old value with.
    if (length != 0 && !memory.Failed())
        SetData(name, packed.GetData(), length * static_cast<uint32_t>(sizeof(WCHAR)),
                REG_MULTI_SZ);
    return true;
}

bool ORegistry::GetMultiString(const OString& name, OStringArray& values) {
    OBuffer<WCHAR> packed(kMaxMultiStringBytes / sizeof(WCHAR) + 2);
    if (!packed.GetData()) return false;
    const int32_t bytes = GetData(name, packed.GetData(), kMaxMultiStringBytes, REG_MULTI_SZ);
    if (bytes <= 0) return false;
    const size_t length = static_cast<size_t>(bytes) / sizeof(WCHAR);
    packed.GetData()[length] = packed.GetData()[length + 1] = 0;
    values.SetSize(0);
    values.Unpack(packed, OPACK_LIST);
    return true;
}

bool ORegistry::SetDWORD(const OString& name, uint32_t value) {
    return SetData(name, &value, sizeof value, REG_DWORD) >= 0;
}

uint32_t ORegistry::GetDWORD(const OString& name, uint32_t default_value) {
    uint32_t value = 0;
    return GetData(name, &value, sizeof value, REG_DWORD) == sizeof value ? value : default_value;
}

bool ORegistry::SetInt(const OString& name, int32_t value) {
    return SetData(name, &value, sizeof value, REG_BINARY) >= 0;
}

int32_t ORegistry::GetInt(const OString& name, int32_t default_value) {
    int32_t value = 0;
    return GetData(name, &value, sizeof value, REG_BINARY) == sizeof value ? value : default_value;
}

bool ORegistry::SetByte(const OString& name, unsigned char value) {
    return SetData(name, &value, sizeof value, REG_BINARY) >= 0;
}

unsigned char ORegistry::GetByte(const OString& name, unsigned char default_value) {
    unsigned char value = 0;
    return GetData(name, &value, sizeof value, REG_BINARY) == sizeof value ? value : default_value;
}

int32_t ORegistry::SetBinary(const OString& name, const void* data, uint32_t size) {
    return SetData(name, data, size, REG_BINARY);
}

int32_t ORegistry::GetBinary(const OString& name, void* buffer, uint32_t size) {
    return GetData(name, buffer, size, REG_BINARY);
}

LONG ORegistry::GetInfo(HKEY key, const OString& name, uint32_t* size, uint32_t* type) {
    DWORD value_size = 0;
    DWORD value_type = 0;
    const LONG error =
        RegQueryValueExW(key, name.wstring(), nullptr, &value_type, nullptr, &value_size);
    if (error != ERROR_SUCCESS) return error;
    if (size) *size = value_size;
    if (type) *type = value_type;
    return ERROR_SUCCESS;
}

bool ORegistry::GetInfo(const OString& name, uint32_t* size, uint32_t* type) {
    return OnValue(name, false, [&](HKEY key, const OString& value) {
               return GetInfo(key, value, size, type);
           }) == ERROR_SUCCESS;
}

int32_t ORegistry::GetSize(const OString& name) {
    uint32_t size = 0;
    return GetInfo(name, &size, nullptr) ? static_cast<int32_t>(size) : -1;
}

LONG ORegistry::GetKeyInfo(HKEY key, uint32_t* keys, uint32_t* values) {
    DWORD key_count = 0;
    DWORD value_count = 0;
    const LONG error = RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &key_count, nullptr,
                                        nullptr, &value_count, nullptr, nullptr, nullptr, nullptr);
    if (error != ERROR_SUCCESS) return error;
    if (keys) *keys = key_count;
    if (values) *values = value_count;
    return ERROR_SUCCESS;
}

bool ORegistry::GetKeyInfo(const OString& key, uint32_t* keys, uint32_t* values) {
    OString path = key;
    OString value;
    if (!GetKeyAndValue(path, value)) return false;
    return OnKey(path, false, [&](HKEY opened) { return GetKeyInfo(opened, keys, values); }) ==
           ERROR_SUCCESS;
}
