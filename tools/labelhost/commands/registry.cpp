#include "arguments.h"
#include "commands/commands.h"
#include "fault.h"
#include "json.h"
#include "text.h"

#include <windows.h>

#include <cstdio>
#include <cstring>

namespace {

struct RootName {
    const char* name;
    const char* short_name;
    HKEY key;
};

const RootName kRoots[] = {
    {"HKEY_CLASSES_ROOT", "HKCR", HKEY_CLASSES_ROOT},
    {"HKEY_CURRENT_USER", "HKCU", HKEY_CURRENT_USER},
    {"HKEY_LOCAL_MACHINE", "HKLM", HKEY_LOCAL_MACHINE},
    {"HKEY_USERS", "HKU", HKEY_USERS},
};

struct TypeName {
    const char* name;
    DWORD type;
};

constexpr TypeName kTypes[] = {
    {"REG_NONE", REG_NONE},     {"REG_SZ", REG_SZ},       {"REG_EXPAND_SZ", REG_EXPAND_SZ},
    {"REG_BINARY", REG_BINARY}, {"REG_DWORD", REG_DWORD}, {"REG_MULTI_SZ", REG_MULTI_SZ},
};

// A key in Windows notation, split into its root and the path below it.
struct KeyPath {
    std::string text;
    HKEY root = nullptr;
    WideString below;

    explicit KeyPath(const std::string& given)
        : text(given) {
        const size_t slash = given.find('\\');
        const std::string first = given.substr(0, slash);
        for (const RootName& candidate : kRoots)
            if (SameText(first, candidate.name) || SameText(first, candidate.short_name))
                root = candidate.key;
        if (!root)
            throw Fault("'" + given +
                        "' is no key: it starts with HKEY_LOCAL_MACHINE (HKLM), "
                        "HKEY_CURRENT_USER (HKCU), HKEY_CLASSES_ROOT or HKEY_USERS");
        if (slash != std::string::npos) below = ToWide(given.substr(slash + 1));
        while (!below.empty() && below.back() == TEXT('\\')) below.pop_back();
    }
};

class OpenedKey {
public:
    OpenedKey(HKEY parent, const WideString& path, REGSAM access, const std::string& name) {
        const LONG error = RegOpenKeyExW(parent, path.c_str(), 0, access, &key_);
        if (error != ERROR_SUCCESS)
            throw SystemFault("cannot open key '" + name + "'", static_cast<DWORD>(error));
    }
    ~OpenedKey() { RegCloseKey(key_); }
    OpenedKey(const OpenedKey&) = delete;
    OpenedKey& operator=(const OpenedKey&) = delete;

    HKEY get() const { return key_; }

private:
    HKEY key_ = nullptr;
};

constexpr DWORD kMaxKeyName = 256;
constexpr DWORD kMaxValueName = 16384;

std::vector<WideString> SubkeysOf(HKEY key) {
    std::vector<WideString> names;
    std::vector<WCHAR> name(kMaxKeyName);
    for (DWORD index = 0;; ++index) {
        DWORD length = kMaxKeyName;
        if (RegEnumKeyExW(key, index, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            return names;
        names.emplace_back(name.data(), length);
    }
}

Json ValuesOf(HKEY key) {
    Json values = Json::object();
    std::vector<WCHAR> name(kMaxValueName);
    std::vector<BYTE> data(4096);
    for (DWORD index = 0;; ++index) {
        DWORD length = kMaxValueName;
        DWORD type = 0;
        DWORD size = static_cast<DWORD>(data.size());
        LONG error =
            RegEnumValueW(key, index, name.data(), &length, nullptr, &type, data.data(), &size);
        if (error == ERROR_MORE_DATA) {
            data.resize(size);
            length = kMaxValueName;
            error =
                RegEnumValueW(key, index, name.data(), &length, nullptr, &type, data.data(), &size);
        }
        if (error != ERROR_SUCCESS) return values;
        values[ToUtf8(name.data(), length)] = {
            {"type", type}, {"data", ToHex(std::vector<BYTE>(data.begin(), data.begin() + size))}};
    }
}

Json DumpKey(HKEY key, const std::string& name) {
    Json keys = Json::object();
    for (const WideString& subkey : SubkeysOf(key)) {
        const std::string text = ToUtf8(subkey.c_str());
        const OpenedKey opened(key, subkey, KEY_READ, name + "\\" + text);
        keys[text] = DumpKey(opened.get(), name + "\\" + text);
    }
    return {{"values", ValuesOf(key)}, {"keys", keys}};
}

std::string TypeText(DWORD type) {
    for (const TypeName& known : kTypes)
        if (known.type == type) return known.name;
    return std::to_string(type);
}

// Texts and numbers in readable form, everything else in hexadecimal.
std::string DataText(const Json& entry) {
    const DWORD type = entry["type"].get<DWORD>();
    const std::string hex = entry["data"].get<std::string>();
    std::vector<BYTE> bytes;
    FromHex(hex, bytes);
    if ((type == REG_SZ || type == REG_EXPAND_SZ) && bytes.size() % sizeof(WCHAR) == 0) {
        std::vector<WCHAR> units(bytes.size() / sizeof(WCHAR));
        if (!units.empty()) std::memcpy(units.data(), bytes.data(), bytes.size());
        return '"' + FromSlot(units.data(), units.size()) + '"';
    }
    if (type == REG_DWORD && bytes.size() == sizeof(DWORD)) {
        DWORD number = 0;
        std::memcpy(&number, bytes.data(), sizeof(number));
        return std::to_string(number);
    }
    return hex;
}

void PrintKey(const Json& key, const std::string& name) {
    std::printf("[%s]\n", name.c_str());
    for (const auto& [value, entry] : key["values"].items())
        std::printf("  %s (%s) %s\n", value.empty() ? "(default)" : value.c_str(),
                    TypeText(entry["type"].get<DWORD>()).c_str(), DataText(entry).c_str());
    for (const auto& [subkey, entry] : key["keys"].items()) PrintKey(entry, name + "\\" + subkey);
}

DWORD TypeFrom(const std::string& text) {
    for (const TypeName& known : kTypes)
        if (SameText(text, known.name)) return known.type;
    if (!text.empty() && text.size() <= 9 &&
        text.find_first_not_of("0123456789") == std::string::npos)
        return static_cast<DWORD>(std::stoul(text));
    throw Fault("'" + text + "' is no value type: a number, or REG_SZ, REG_BINARY, REG_DWORD, ...");
}

void SetValue(const KeyPath& path, const std::string& name, const std::string& type,
              const std::string& hex) {
    std::vector<BYTE> data;
    if (!FromHex(hex, data)) throw Fault("'" + hex + "' is not a row of hexadecimal bytes");
    const DWORD value_type = TypeFrom(type);
    HKEY key = nullptr;
    LONG error = RegCreateKeyExW(path.root, path.below.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr,
                                 &key, nullptr);
    if (error == ERROR_SUCCESS) {
        error = RegSetValueExW(key, ToWide(name).c_str(), 0, value_type, data.data(),
                               static_cast<DWORD>(data.size()));
        RegCloseKey(key);
    }
    if (error != ERROR_SUCCESS)
        throw SystemFault("cannot write value '" + name + "' of key '" + path.text + "'",
                          static_cast<DWORD>(error));
}

void DeleteTree(HKEY parent, const WideString& path, const std::string& name) {
    std::vector<WideString> subkeys;
    {
        const OpenedKey key(parent, path, KEY_READ, name);
        subkeys = SubkeysOf(key.get());
    }
    for (const WideString& subkey : subkeys)
        DeleteTree(parent, path + TEXT("\\") + subkey, name + "\\" + ToUtf8(subkey.c_str()));
    const LONG error = RegDeleteKeyW(parent, path.c_str());
    if (error != ERROR_SUCCESS)
        throw SystemFault("cannot delete key '" + name + "'", static_cast<DWORD>(error));
}

void Dump(const KeyPath& path, bool json) {
    const OpenedKey key(path.root, path.below, KEY_READ, path.text);
    const Json answer = DumpKey(key.get(), path.text);
    if (json)
        PrintJson(answer);
    else
        PrintKey(answer, path.text);
}

void Delete(const Arguments& arguments) {
    const KeyPath path(arguments[1]);
    if (arguments.size() == 2) {
        if (path.below.empty()) throw Fault("a root key cannot be deleted");
        DeleteTree(path.root, path.below, path.text);
        return;
    }
    const OpenedKey key(path.root, path.below, KEY_WRITE, path.text);
    const LONG error = RegDeleteValueW(key.get(), ToWide(arguments[2]).c_str());
    if (error != ERROR_SUCCESS)
        throw SystemFault("cannot delete value '" + arguments[2] + "' of key '" + path.text + "'",
                          static_cast<DWORD>(error));
}

} // namespace

void RegistryCommand(const Words& words) {
    const Arguments arguments(words, {}, {"json"});
    const std::string usage =
        "registry dump KEY [--json] | set KEY NAME TYPE HEX | delete KEY [NAME]";
    arguments.RequireCount(2, 5, usage);
    const std::string& verb = arguments[0];
    if (verb == "dump" && arguments.size() == 2)
        Dump(KeyPath(arguments[1]), arguments.Has("json"));
    else if (verb == "set" && arguments.size() == 5)
        SetValue(KeyPath(arguments[1]), arguments[2], arguments[3], arguments[4]);
    else if (verb == "delete" && arguments.size() <= 3)
        Delete(arguments);
    else
        throw UsageFault("usage: labelhost " + usage);
}
