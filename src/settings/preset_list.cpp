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
constexpr int kMostPresets = 9999;

// The printer's stored number of presets, within reason.
int StoredTotal(prtreg& registry) {
    return static_cast<int>(std::min<uint32_t>(registry.GetDWORD(kTotal, 0), kMostPresets));
}

// Fills `numbers` with the stored presets whose settings this driver cannot read, in order.
void GetNotUnderstood(prtreg& registry, int last, OTypedArray<int>& numbers) {
    OTypedArray<int> stored;
    GetStoredEntries(registry, kPresetsKey, 1, last, Preset::KeyName, stored);
    for (int i = 0; i < stored.GetSize(); ++i)
        if (Preset::IsStored(registry, stored[i]) && !Preset().Load(registry, stored[i]))
            numbers.Add(stored[i]);
}

} // namespace

PresetList& PresetList::operator=(const PresetList& other) {
    NameList::operator=(other);
    StoredList::operator=(other);
    some_unread_ = other.some_unread_;
    if (!CopyNodes(other)) KeepStored();
    return *this;
}

void PresetList::Load(const prtmodel* model) {
    Clear();
    prtreg registry(model->GetRegistry());
    const ORegistryTransaction one_moment(registry, ORegistryTransaction::READING);
    PresetList stored;
    some_unread_ = false;
    ForEachEntry(registry, kPresetsKey, 1, StoredTotal(registry), Preset::KeyName, [&](int i) {
        std::unique_ptr<Preset> preset(new (kCounted) Preset);
        if (preset && preset->Load(registry, i))
            stored.AddTail(preset.release());
        else
            some_unread_ = true;
    });
    AddTail_ReplaceNames(stored);
    Sort();
    NoteLoaded(GetStoredCRC32(), registry);
}

SaveResult PresetList::Save(const prtmodel* model) const {
    prtreg registry(model->GetRegistry());
    OTypedArray<int> kept;
    const SaveResult result = SaveChanges(registry, GetStoredCRC32(), [&] {
        const int stored = StoredTotal(registry);
        if (some_unread_) GetNotUnderstood(registry, stored, kept);
        const auto is_kept = [&](int number) {
            return std::binary_search(kept.GetData(), kept.GetData() + kept.GetSize(), number);
        };
        int number = 0;
        for (const Preset* preset = GetNext(nullptr); preset; preset = GetNext(preset)) {
            if (preset->GetBuiltIn() != 0 || preset->GetDevModeSize() == 0) continue;
            do ++number;
            while (is_kept(number));
            preset->Save(registry, number);
        }
        const int last_kept = kept.GetSize() ? kept[kept.GetSize() - 1] : 0;
        registry.SetDWORD(kTotal, static_cast<uint32_t>(std::max(number, last_kept)));
        ForEachEntry(registry, kPresetsKey, number + 1, stored, Preset::KeyName, [&](int i) {
            if (!is_kept(i)) Preset::Delete(registry, OString(kPresetsKey) << Preset::KeyName(i));
        });
    });
    if (result == SaveResult::STORED) some_unread_ = kept.GetSize() > 0;
    return result;
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
