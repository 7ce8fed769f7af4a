// Any text as the symbolic path of a registry value: it leads to the same place by every way, and
// an encoded name stays one name. The first byte chooses the operation.
#include <cstdint>
#include <cstring>
#include <string>

#include "fuzz_host.h"
#include "input.h"
#include "keys/prtreg.h"
#include "registry/oregistry_names.h"
#include "target.h"

namespace {

constexpr char kFolder[] = "CURRENT_USER:Fuzz/Names/";

class Registry : public prtreg {
public:
    using prtreg::prtreg;

    // The key and value that a path leads to.
    bool Resolve(OString& key, OString& value) { return GetKeyAndValue(key, value); }
};

OString FromUtf8(const std::string& text) {
    OString string;
    string.SetCodePage(1208);
    string = text.c_str();
    return string;
}

// What is stored under an encoded name is found under the name itself. The registry's own limits
// are not tested here.
void CheckName(Registry& registry, const OString& name) {
    const OString encoded = ORegistry::EncodeName(name);
    Check(DecodeName(encoded) == name);
    if (name.wlen() == 0 || name.wlen() > 200 || HasCharacter(name, '\\')) return;
    const OString path = OString(kFolder) << encoded;
    Check(registry.SetString(path, "value"));
    OStringArray names;
    Check(registry.EnumValues(kFolder, names) == 1 && names[0] == name);
    Check(registry.GetString(path, "") == "value");
    Check(registry.EnumMatchingValues(OString(kFolder) << "*", names) == 1);
    Check(registry.Delete(path, false) && registry.EnumValues(kFolder, names) == 0);
}

} // namespace

FUZZ_TARGET(registry_paths)(const uint8_t* data, size_t size) {
    static const FuzzHost host(UsualModelData());
    static Registry registry("P");
    Input input(data, size);
    const size_t choice = input.Number();
    const OString name = FromUtf8(input.Rest());

    OString key = kFolder, value = name;
    const bool resolved = registry.Resolve(key, value);
    OString front, last;
    if (SplitPath(name, front, last) && !front.IsEmpty()) {
        OString again_front, again_last;
        Check(SplitPath(JoinPath(front, last), again_front, again_last) && again_last == last);
    }
    registry.SubstituteWindowsSyntax(name);

    // Reading makes nothing and may be tried anywhere; writing is only tried in our own keys.
    uint32_t type = 0, bytes = 0;
    const bool exists = registry.GetInfo(name, &bytes, &type);
    Check(registry.GetSize(name) == (exists ? static_cast<int32_t>(bytes) : -1));
    OStringArray names;
    registry.EnumMatchingKeys(name, names);
    registry.EnumKeys(name, names);
    registry.Export(name, names);

    if (choice & 1) CheckName(registry, name);
    const bool ours = resolved && BeginsNoCase(key.wstring(), "1:Fuzz/");
    if ((choice & 2) && ours) {
        if (registry.SetDWORD(OString(kFolder) << name, 42)) {
            Check(registry.GetDWORD(OString(kFolder) << name, 0) == 42);
            Check(registry.Delete(OString(kFolder) << name, true));
        }
        registry.DeletePattern(OString(kFolder) << name);
    }
    registry.Delete("CURRENT_USER:Fuzz", true);
    return 0;
}
