// Complete keys: enumeration, deletion, and the conversion to and from text.

#include "registry/oregistry.h"

#include <cstring>

#include "core/obuffer.h"
#include "registry/oregistry_names.h"
#include "registry/oregistry_system.h"
#include "registry/oregistry_text.h"
#include "registry/oregistry_transaction.h"

namespace {

constexpr uint32_t kMaxKeyName = 260;
constexpr uint32_t kMaxValueName = 16384; // the registry's own limit, with its terminator
constexpr uint32_t kUsualValueSize = 2048;

bool HasWildcard(const OString& name) {
    return HasCharacter(name, '*') || HasCharacter(name, '?');
}

const struct {
    const char* standard;
    const char* windows;
} kRoots[] = {
    {"0:", "HKEY_CLASSES_ROOT"},
    {"1:", "HKEY_CURRENT_USER"},
    {"2:", "HKEY_LOCAL_MACHINE"},
    {"3:", "HKEY_USERS"},
};

} // namespace

LONG ORegistry::EnumKey(HKEY key, uint32_t index, OBuffer<WCHAR>& name) {
    return RegEnumKeyW(key, index, name.GetData(), name.GetSize());
}

LONG ORegistry::EnumValue(HKEY key, uint32_t index, OBuffer<WCHAR>& name) {
    DWORD length = name.GetSize();
    return RegEnumValueW(key, index, name.GetData(), &length, nullptr, nullptr, nullptr, nullptr);
}

LONG ORegistry::EnumValue(HKEY key, uint32_t index, OBuffer<WCHAR>& name,
                          OBuffer<unsigned char>& data, uint32_t& size, uint32_t& type) {
    for (;;) {
        DWORD length = name.GetSize();
        DWORD stored_type = 0;
        DWORD stored = data.GetSize();
        const LONG error = RegEnumValueW(key, index, name.GetData(), &length, nullptr, &stored_type,
                                         data.GetData(), &stored);
        if (error != ERROR_MORE_DATA || stored <= data.GetSize()) {
            size = stored;
            type = stored_type;
            return error;
        }
        if (!data.SetSize(stored)) return ERROR_OUTOFMEMORY;
    }
}

LONG ORegistry::DeleteKey(HKEY key, const OString& name) {
    if (!MayWrite()) return ERROR_WRITE_FAULT;
    return Noted(RegistryTransactions::OfSystem().DeleteKey(key, name.wstring(), transaction_),
                 false);
}

LONG ORegistry::DeleteValue(HKEY key, const OString& name) {
    return MayWrite() ? Noted(RegDeleteValueW(key, name.wstring()), false)
                      : LONG{ERROR_WRITE_FAULT};
}

int ORegistry::EnumPath(const OString& path, OStringArray& names, bool keys) {
    OBuffer<WCHAR> name(keys ? kMaxKeyName : kMaxValueName);
    HKEY key = name.GetData() ? OpenKey(path, false) : nullptr;
    if (!key) return -1;
    names.SetSize(0);
    const AllocationWatch memory;
    LONG error = ERROR_SUCCESS;
    for (uint32_t i = 0; error == ERROR_SUCCESS; ++i) {
        error = keys ? EnumKey(key, i, name) : EnumValue(key, i, name);
        if (error != ERROR_SUCCESS) break;
        const OString found(name.GetData());
        // A truncated name would be that of another one.
        if (memory.Failed())
            error = ERROR_OUTOFMEMORY;
        else
            names.Add(found);
    }
    Noted(error, false);
    CloseKey(key);
    return names.GetSize();
}

int ORegistry::EnumNames(const OString& key, OStringArray& names, bool keys) {
    OString path = key;
    OString value;
    return GetKeyAndValue(path, value) ? EnumPath(path, names, keys) : -1;
}

int ORegistry::EnumKeys(const OString& key, OStringArray& names) {
    return EnumNames(key, names, true);
}

int ORegistry::EnumValues(const OString& key, OStringArray& names) {
    return EnumNames(key, names, false);
}

int ORegistry::EnumMatching(const OString& pattern, OStringArray& names, bool keys) {
    OString path = base_key_;
    OString name = pattern;
    if (!GetKeyAndValue(path, name)) return -1;
    if (!HasWildcard(name)) return EnumNames(pattern, names, keys);
    OStringArray all;
    if (EnumPath(path, all, keys) < 0) return -1;
    names.SetSize(0);
    for (int i = 0; i < all.GetSize(); ++i) {
        if (all[i].MatchPattern(name)) names.Add(all[i]);
    }
    return names.GetSize();
}

int ORegistry::EnumMatchingKeys(const OString& pattern, OStringArray& names) {
    return EnumMatching(pattern, names, true);
}

int ORegistry::EnumMatchingValues(const OString& pattern, OStringArray& names) {
    return EnumMatching(pattern, names, false);
}

bool ORegistry::DeletePath(const OString& path, bool recursive) {
    if (recursive) {
        OStringArray names;
        EnumPath(path, names, true);
        for (int i = 0; i < names.GetSize(); ++i) DeleteBelow(path, names[i]);
    }
    const AllocationWatch memory;
    OString parent;
    OString name;
    SplitKeyPath(path, parent, name);
    name = DecodeName(name);
    return SetKey(parent, false) && !memory.Failed() && DeleteKey(key_, name) == ERROR_SUCCESS;
}

bool ORegistry::DeleteBelow(const OString& path, const OString& name) {
    const AllocationWatch memory;
    const OString below = JoinPath(path, EncodeName(name));
    return !memory.Failed() && DeletePath(below, true);
}

bool ORegistry::Delete(const OString& name, bool recursive) {
    // A key that has been open for a while may be gone and would pass for an existing one.
    ReleaseKey();
    const AllocationWatch memory;
    OString key = base_key_;
    OString value = name;
    bool deleted = false;
    if (*name.wstring() && GetKeyAndValue(key, value)) {
        // A name may end with its key: "LOCAL:" or "LOCAL:Printers/".
        OString path = key;
        if (*value.wstring()) path = JoinPath(key, EncodeName(value));
        OString parent;
        OString last;
        SplitKeyPath(path, parent, last);
        // No key has a backslash in its name; the registry would take it for two keys.
        const bool may_be_key = *last.wstring() && !HasCharacter(value, '\\');
        if (may_be_key && SetKey(path, false)) {
            deleted = !memory.Failed() && DeletePath(path, recursive);
        } else if (*value.wstring() && SetKey(key, false)) {
            deleted = !memory.Failed() && DeleteValue(key_, value) == ERROR_SUCCESS;
        }
    }
    ReleaseKey();
    return deleted;
}

bool ORegistry::DeletePattern(const OString& pattern) {
    const AllocationWatch memory;
    OString path = base_key_;
    OString name = pattern;
    if (!GetKeyAndValue(path, name) || memory.Failed()) return false;
    if (!HasWildcard(name)) {
        Delete(pattern, true);
        return true;
    }
    OStringArray keys;
    OStringArray values;
    EnumMatchingKeys(pattern, keys);
    EnumMatchingValues(pattern, values);
    for (int i = 0; i < keys.GetSize(); ++i) DeleteBelow(path, keys[i]);
    for (int i = 0; i < values.GetSize(); ++i) {
        OnKey(path, false, [&](HKEY opened) { return DeleteValue(opened, values[i]); });
    }
    ReleaseKey();
    return true;
}

OString ORegistry::SyntaxWindows(const OString& standard) {
    OString path = standard;
    for (const auto& root : kRoots) {
        if (!BeginsNoCase(path.wstring(), root.standard)) continue;
        WideText windows;
        windows.AddAscii(root.windows);
        windows.Add('/');
        windows.Add(OString(path.wstring() + 2));
        path = windows.String();
        break;
    }
    return DecodeName(ReplaceText(path, "/", "\\"));
}

OString ORegistry::SyntaxStandard(const OString& windows) {
    OString path = EncodeName(windows);
    for (const auto& root : kRoots) {
        const size_t length = std::strlen(root.windows);
        if (!BeginsNoCase(path.wstring(), root.windows) || path.wstring()[length] != '\\') continue;
        path = JoinPath(root.standard, OString(path.wstring() + length + 1));
        break;
    }
    return ReplaceText(path, "\\", "/");
}

OString ORegistry::SubstituteWindowsSyntax(const OString& key) {
    OString path = key;
    OString value;
    return GetKeyAndValue(path, value) ? SyntaxWindows(path) : OString();
}

struct ORegistry::Exporter {
    explicit Exporter(RegistryLines& lines)
        : writer(lines) {}

    RegistryTextWriter writer;
    OBuffer<WCHAR> name; // of the key or value that is read
    OBuffer<unsigned char> data;
};

bool ORegistry::Export(const OString& key, OStringArray& lines) {
    RegistryLineArray array(lines);
    return Export(key, array);
}

bool ORegistry::Export(const OString& key, RegistryLines& lines) {
    OString path = key;
    OString value;
    if (!GetKeyAndValue(path, value)) return false;
    Exporter to(lines);
    if (to.name.SetSize(kMaxValueName) && to.data.SetSize(kUsualValueSize)) ExportPath(path, to);
    return true;
}

void ORegistry::ExportPath(const OString& path, Exporter& to) {
    to.writer.WriteKey(SyntaxWindows(path));
    OStringArray names;
    if (const HKEY key = OpenKey(path, false)) {
        if (ExportValues(key, to)) base_key_ = path;
        LONG error = ERROR_SUCCESS;
        for (uint32_t i = 0; error == ERROR_SUCCESS; ++i) {
            error = Noted(EnumKey(key, i, to.name), false);
            if (error == ERROR_SUCCESS) names.Add(OString(to.name.GetData()));
        }
        CloseKey(key);
    }
    to.writer.WriteEnd();
    for (int i = 0; i < names.GetSize(); ++i) ExportPath(JoinPath(path, EncodeName(names[i])), to);
}

bool ORegistry::ExportValues(HKEY key, Exporter& to) {
    uint32_t size = 0;
    uint32_t type = 0;
    for (uint32_t i = 0;; ++i) {
        const LONG error = Noted(EnumValue(key, i, to.name, to.data, size, type), false);
        if (error == ERROR_OUTOFMEMORY) continue; // only this one is left out
        if (error != ERROR_SUCCESS) return i > 0;
        to.writer.WriteValue(to.name.GetData(), type, to.data.GetData(), size);
    }
}

bool ORegistry::Import(const OStringArray& lines) {
    ORegistryTransaction transaction(*this);
    RegistryTextReader reader;
    OString path;
    bool resolved = false;
    for (int i = 0; i < lines.GetSize(); ++i) {
        switch (reader.Read(lines[i])) {
        case RegistryTextReader::DeleteKey:
            Delete(SyntaxStandard(reader.Key()), true);
            break;
        case RegistryTextReader::BeginKey: {
            base_key_ = SyntaxStandard(reader.Key());
            path = base_key_;
            OString value;
            resolved = GetKeyAndValue(path, value);
            if (resolved && SetKey(path, true)) DeletePattern("*");
            break;
        }
        case RegistryTextReader::StoreValue: {
            const RegistryValue& value = reader.Value();
            if (!resolved) break;
            OnKey(path, true, [&](HKEY opened) {
                return SetData(opened, value.name, value.data.GetData(), value.data.GetSize(),
                               value.type);
            });
            break;
        }
        case RegistryTextReader::Nothing:
            break;
        }
    }
    transaction.Commit();
    return true;
}
