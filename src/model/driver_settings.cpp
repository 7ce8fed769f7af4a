#include "model/driver_settings.h"

#include "core/crc.h"
#include "core/memory.h"
#include "model/options_block.h"
#include "registry/oregistry_transaction.h"

namespace {

constexpr char kLoaded[] = ":Loaded";
constexpr char kSet[] = ":Set";

// The full path, as the registry's base key is moved by its own export and import.
OString PathOf(const OString& name) {
    return OString("Settings:") << name;
}

} // namespace

bool DriverSettingsCore::IsLoaded(const OString& name) const {
    return OPropertySet::GetBool(name + kLoaded, false);
}

void DriverSettingsCore::MarkLoaded(const OString& name) {
    OPropertySet::SetBool(name + kLoaded, true);
}

int DriverSettingsCore::GetType(const OString& name) const {
    return OPropertySet::GetInt(name + kSet, TYPE_NONE);
}

void DriverSettingsCore::MarkSet(const OString& name, Type type) {
    OPropertySet::SetInt(name + kSet, type);
}

OString DriverSettingsCore::SettingOf(const OString& property) {
    const int mark = property.Find(TEXT(":Set"));
    return mark < 0 ? OString() : property.Left(mark);
}

DriverSettings& DriverSettings::operator=(const DriverSettings& other) {
    if (this == &other) return *this;
    const AllocationWatch memory;
    core_.Clear();
    for (int i = 0; i < other.core_.GetCount(); ++i) {
        const OString name = other.core_.GetName(i);
        core_.SetString(name, other.core_.GetString(name, OString()));
    }
    const prtreg* registry = other.core_.registry.get();
    core_.registry.reset(registry ? new (kCounted) prtreg(*registry) : nullptr);
    failed_copy_ = other.HasFailed() || memory.Failed();
    return *this;
}

void DriverSettings::Load(const prtreg& registry) {
    failed_copy_ = false;
    core_.Clear();
    core_.registry.reset(new (kCounted) prtreg(registry));
}

bool DriverSettings::HasFailed() const {
    return failed_copy_ || (core_.registry && core_.registry->HasFailed());
}

uint32_t DriverSettings::GetCRC32(uint32_t seed) const {
    for (int i = 0; i < core_.GetCount(); ++i) {
        const OString name = DriverSettingsCore::SettingOf(core_.GetName(i));
        if (name.IsEmpty()) continue;
        seed = CRC32_UTF8(name, seed);
        seed = CRC32_UTF8(core_.GetString(name, OString()), seed);
    }
    return seed;
}

void DriverSettings::Save(const prtreg&) {
    if (!core_.registry || failed_copy_) return;
    prtreg& registry = *core_.registry;
    ORegistryTransaction changes(registry);
    for (int i = 0; i < core_.GetCount(); ++i) {
        const OString name = DriverSettingsCore::SettingOf(core_.GetName(i));
        if (name.IsEmpty()) continue;
        const OString path = PathOf(name);
        switch (core_.GetType(name)) {
        case DriverSettingsCore::TYPE_STRING:
            registry.SetString(path, core_.GetString(name, OString()));
            break;
        case DriverSettingsCore::TYPE_INT:
            registry.SetDWORD(path, static_cast<uint32_t>(core_.GetInt(name, 0)));
            break;
        case DriverSettingsCore::TYPE_BOOL:
            registry.SetByte(path, core_.GetBool(name, false) ? 1 : 0);
            break;
        default:
            break;
        }
    }
    changes.Commit();
}

OString DriverSettings::GetString(const char* name, const char* default_value) {
    if (!core_.IsLoaded(name) && core_.registry) {
        core_.SetString(name, core_.registry->GetString(PathOf(name), default_value));
        core_.MarkLoaded(name);
    }
    const OString value = core_.GetString(name, default_value);
    return value.IsEmpty() ? OString(default_value) : value;
}

void DriverSettings::SetString(const char* name, const OString& value) {
    core_.SetString(name, value);
    core_.MarkLoaded(name);
    core_.MarkSet(name, DriverSettingsCore::TYPE_STRING);
}

int32_t DriverSettings::GetInt(const char* name, int32_t default_value) {
    if (!core_.IsLoaded(name) && core_.registry) {
        const uint32_t value =
            core_.registry->GetDWORD(PathOf(name), static_cast<uint32_t>(default_value));
        core_.SetInt(name, static_cast<int32_t>(value));
        core_.MarkLoaded(name);
    }
    return core_.GetInt(name, default_value);
}

void DriverSettings::SetInt(const char* name, int32_t value) {
    core_.SetInt(name, value);
    core_.MarkLoaded(name);
    core_.MarkSet(name, DriverSettingsCore::TYPE_INT);
}

bool DriverSettings::GetBool(const char* name, bool default_value) {
    if (!core_.IsLoaded(name) && core_.registry) {
        core_.SetBool(name, core_.registry->GetByte(PathOf(name), default_value ? 1 : 0) != 0);
        core_.MarkLoaded(name);
    }
    return core_.GetBool(name, default_value);
}

void DriverSettings::SetBool(const char* name, bool value) {
    core_.SetBool(name, value);
    core_.MarkLoaded(name);
    core_.MarkSet(name, DriverSettingsCore::TYPE_BOOL);
}

void DriverSettings::SetEscapeCharacter(char c) {
    OString text;
    SetString("Function Character", text << c);
}

bool DriverSettings::Export(OFile& file, const char* model) {
    if (!core_.registry) return false;
    OStringArray lines;
    core_.registry->ForgetFailures();
    core_.registry->Export("Settings:", lines);
    if (core_.registry->HasFailed()) return false;
    WriteOptionsBlock(file, model, lines, core_.registry->SubstituteWindowsSyntax("DATA:"));
    return true;
}

bool DriverSettings::Import(OFile& file, const char* model) {
    if (!core_.registry) return false;
    const AllocationWatch memory;
    OptionsBlockReader reader(model, core_.registry->SubstituteWindowsSyntax("DATA:"));
    OStringArray all;
    file.Seek(0, FILE_BEGIN);
    OString line;
    line.SetCodePage(file.GetCodePage());
    while (file.ReadLine(line)) {
        if (reader.Read(line)) all.Append(reader.GetLines());
    }
    // Half of a block is not stored.
    if (all.GetSize() == 0 || file.HasFailed() || memory.Failed()) return false;
    core_.registry->Import(all);
    return !core_.registry->HasFailed();
}
