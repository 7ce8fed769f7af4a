#include "settings/preset_list.h"

#include <algorithm>
#include <memory>

#include "core/memory.h"
#include "core/oarray.h"
#include "model/prtmodel.h"
#include "registry/oregistry_transaction.h"
#include "settings/numbered_entries.h"

namespace {

constexpr char kPresetsKey[] = "Presets:";
constexpr char kTotal[] = "Presets:Total";
constexpr int MOST_PRESETS = 9999;

// How many presets the printer says to have, within reason.
int StoredTotal(prtreg& registry) {
    return static_cast<int>(std::min<uint32_t>(registry.GetDWORD(kTotal, 0), MOST_PRESETS));
}

} // namespace

void PresetList::Load(const prtmodel* model) {
    Clear();
    prtreg registry(model->GetRegistry());
    const ORegistryTransaction one_moment(registry, ORegistryTransaction::READING);
    PresetList stored;
    ForEachEntry(registry, kPresetsKey, 1, StoredTotal(registry), Preset::KeyName, [&](int i) {
        std::unique_ptr<Preset> preset(new (kCounted) Preset);
        if (preset && preset->Load(registry, i)) stored.AddTail(preset.release());
    });
    whole_ = !registry.HasFailed();
    AddTail_ReplaceNames(stored);
    Sort();
    checksum_ = GetStoredCRC32();
}

void PresetList::Save(const prtmodel* model) const {
    const uint32_t checksum = GetStoredCRC32();
    if (checksum == checksum_ || !whole_) return;
    prtreg registry(model->GetRegistry());
    ORegistryTransaction changes(registry);
    const int stored = StoredTotal(registry);
    int total = 0;
    for (const Preset* preset = GetNext(nullptr); preset; preset = GetNext(preset))
        if (preset->GetBuiltIn() == 0) preset->Save(registry, ++total);
    registry.SetDWORD(kTotal, static_cast<uint32_t>(total));
    ForEachEntry(registry, kPresetsKey, total + 1, stored, Preset::KeyName,
                 [&](int i) { Preset::Delete(registry, OString(kPresetsKey) << Preset::KeyName(i)); });
    if (changes.Commit()) checksum_ = checksum;
}

uint32_t PresetList::GetStoredCRC32() const {
    uint32_t checksum = 0;
    for (const Preset* preset = GetNext(nullptr); preset; preset = GetNext(preset))
        if (preset->GetBuiltIn() == 0) checksum = preset->GetCRC32(checksum);
    return checksum;
}

void PresetList::Sort() {
    OPointerArray<Preset*> presets;
    for (Preset* preset = GetNext(nullptr); preset; preset = GetNext(preset))
        if (presets.Add(preset) < 0) return;
    Preset** const first = presets.GetData();
    std::stable_sort(first, first + presets.GetSize(),
                     [](const Preset* a, const Preset* b) { return a->Collate(*b) < 0; });
    for (int i = 0; i < presets.GetSize(); ++i) AddTail(presets[i]);
}

Preset* PresetList::Find(const DevMode& dev_mode) const {
    const auto first = [this](auto matches) {
        Preset* preset = GetNext(nullptr);
        while (preset && !matches(*preset)) preset = GetNext(preset);
        return preset;
    };
    if (const uint32_t checksum = dev_mode.GetPresetCRC32()) {
        if (Preset* preset = first([&](Preset& candidate) {
                const DevMode settings(candidate.GetDevMode());
                return settings.GetPresetCRC32() == checksum && settings == dev_mode;
            }))
            return preset;
    }
    if (Preset* preset = first([&](Preset& candidate) {
            return candidate.GetBuiltIn() == 0 && candidate.GetDevMode() == dev_mode;
        }))
        return preset;
    Preset* const usual = GetDefaultSettings();
    return usual && usual->GetDevMode() == dev_mode ? usual : GetCurrentSettings();
}

Preset* PresetList::FindBuiltIn(uint32_t flag) const {
    Preset* preset = GetNext(nullptr);
    while (preset && !(preset->GetBuiltIn() & flag)) preset = GetNext(preset);
    return preset;
}
