#include "settings/preset.h"

#include <cstddef>
#include <cstring>

#include "core/crc.h"
#include "settings/dev_mode_extent.h"

namespace {

constexpr char kKey[] = "Presets:";

// The head of an exported record.
struct RecordHead {
    char signature[4];
    uint32_t size; // of the DEVMODE after it
};
static_assert(sizeof(RecordHead) == 8);

constexpr char kSignature[] = "DM32";
constexpr char kSignatureOfAny[] = "DM";

} // namespace

void Preset::SetName(const OString& name) {
    NameNode::SetName(name);
    // Taking the UTF-16 form of every name also makes all of them sort by it.
    const WCHAR* text = GetName().wstring();
    GetDevMode().SetPresetName(text);
}

// ---- The DEVMODE --------------------------------------------------------------------------------

DevMode Preset::GetDevMode() {
    return DevMode(reinterpret_cast<DEVMODEW*>(dev_mode_.GetData()));
}

bool Preset::HoldDevMode(const char* bytes, size_t size) {
    const uint32_t whole = bytes ? DevModeExtent<DEVMODEW>(bytes, size) : 0;
    dev_mode_.Assign(bytes, whole);
    return whole != 0 && dev_mode_.GetSize() == whole;
}

void Preset::SetDevMode(const DEVMODEW* dev_mode) {
    const auto* bytes = reinterpret_cast<const char*>(dev_mode);
    if (bytes && bytes == dev_mode_.GetData()) return;
    HoldDevMode(bytes, bytes ? size_t{dev_mode->dmSize} + dev_mode->dmDriverExtra : 0);
}

void Preset::SetToDefaultDevMode(const prtmodel* model) {
    DevMode settings;
    settings.CreateDefault(model);
    SetDevMode(settings.GetDevMode());
}

// ---- Storage ------------------------------------------------------------------------------------

bool Preset::Load(prtreg& registry, int index) {
    const OString prefix = OString(kKey) << KeyName(index);
    const OString value = OString(prefix) << "DEVMODE";
    const int32_t size = registry.GetSize(value);
    if (size <= 0) return false;
    OBuffer<char> bytes(static_cast<uint32_t>(size));
    const int32_t read = registry.GetBinary(value, bytes.GetData(), bytes.GetSize());
    if (read <= 0 || !HoldDevMode(bytes.GetData(), static_cast<size_t>(read))) return false;
    SetName(registry.GetString(OString(prefix) << "Name", ""));
    SetDescription(registry.GetString(OString(prefix) << "Description", ""));
    return true;
}

bool Preset::IsStored(prtreg& registry, int index) {
    return registry.GetSize(OString(kKey) << KeyName(index) << "DEVMODE") > 0;
}

bool Preset::Save(prtreg& registry, int index) const {
    const OString prefix = OString(kKey) << KeyName(index);
    const OString value = OString(prefix) << "DEVMODE";
    bool saved = registry.SetString(OString(prefix) << "Name", GetName());
    saved &= registry.SetString(OString(prefix) << "Description", description_);
    saved &= registry.SetBinary(value, dev_mode_.GetData(), dev_mode_.GetSize()) >= 0;
    return saved;
}

void Preset::Delete(prtreg& registry, const OString& prefix) {
    for (const char* name : {"Name", "Description", "DEVMODE"})
        registry.Delete(OString(prefix) << name, false);
}

OString Preset::KeyName(int index) {
    return OString("Preset ") << index / 10 << index % 10 << ":: ";
}

// ---- Exchange -----------------------------------------------------------------------------------

bool Preset::Export(OBuffer<char>& record) const {
    RecordHead head;
    std::memcpy(head.signature, kSignature, sizeof head.signature);
    head.size = dev_mode_.GetSize();
    if (head.size == 0 || !record.SetSize(head.size + uint32_t{sizeof head})) {
        record.Clear();
        return false;
    }
    std::memcpy(record.GetData(), &head, sizeof head);
    std::memcpy(record.GetData() + sizeof head, dev_mode_.GetData(), head.size);
    return true;
}

bool Preset::Import(const OBuffer<char>& record, const prtmodel* model) {
    if (record.GetSize() < sizeof(RecordHead)) return false;
    const char* bytes = record.GetData() + sizeof(RecordHead);
    const size_t size = record.GetSize() - sizeof(RecordHead);
    const auto begins = [&record](const char* signature) {
        return std::memcmp(record.GetData(), signature, std::strlen(signature)) == 0;
    };
    const bool own = begins(kSignature);
    const bool of_16_bits = !own && begins(kSignatureOfAny);
    if (own && DevModeExtent<DEVMODE32>(bytes, size) == 0) return false;
    if (of_16_bits && DevModeExtent<DEVMODE16>(bytes, size) == 0) return false;

    SetToDefaultDevMode(model);
    DevMode settings(reinterpret_cast<DEVMODEW*>(dev_mode_.GetData()));
    if (own)
        settings.Merge(reinterpret_cast<const DEVMODEW*>(bytes), model);
    else if (of_16_bits)
        settings.Convert(bytes);
    settings.Validate(model);
    return true;
}

uint32_t Preset::GetCRC32(uint32_t seed) const {
    uint32_t crc = NameNode::GetCRC32(seed);
    if (!description_.IsEmpty()) crc = CRC32_UTF8(description_, crc);
    crc = CRC32(&built_in_, sizeof built_in_, crc);
    return CRC32(dev_mode_.GetData(), dev_mode_.GetSize(), crc);
}
