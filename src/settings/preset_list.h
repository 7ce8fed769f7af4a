// The presets of a printer.
#pragma once

#include <cstdint>

#include "core/ofile.h"
#include "settings/preset.h"
#include "settings/stored_list.h"

// The current settings, the default settings, and the stored presets by name; this is the order
// that Sort makes. The UI object adds the two built-in ones; they are neither stored nor exported.
//
// `model` is never null. A list belongs to one thread.
class PresetList : public OTypedNameList<Preset>, public StoredList {
public:
    PresetList() = default;
    PresetList(const PresetList&) = delete;
    // Takes over copies of the presets and the memory of the last load or save. An incomplete copy
    // is not saved.
    PresetList& operator=(const PresetList& other);

    // Replaces the list with the stored presets, sorts them and remembers the list's checksum. Of
    // several with one name only the last is kept. If not all of them could be read, the list is
    // not saved until it is loaded again.
    void Load(const prtmodel* model);

    // Writes the presets that have settings, and deletes stored ones that are gone: all of it or
    // nothing. Stored presets that cannot be understood stay, under their numbers.
    SaveResult Save(const prtmodel* model) const;

    // Brings the list into order: by priority, then by name.
    void Sort();

    // Has `settle(DevMode&)` change the settings of each preset. This is no change of the list: it
    // alone is no reason to save.
    template <class Settler>
    void Settle(Settler settle) {
        const bool changed = HasChanged(GetStoredCRC32());
        for (Preset* preset = GetNext(nullptr); preset; preset = GetNext(preset)) {
            DevMode settings(preset->GetDevMode());
            settle(settings);
        }
        if (!changed) NoteStored(GetStoredCRC32());
    }

    // ---- Exchange -------------------------------------------------------------------------------

    // Writes a text block for each preset; returns their number. One without a DEVMODE has no data.
    //
    //   <preset>
    //   Name=Draft
    //   Description=Fast
    //   Data=Wkxi...           the exported record as blob text
    //   </preset>
    int Export(OFile& file) const;

    // Adds the presets of all blocks of a file, which is read from its start, replacing those of
    // the same names, and sorts the list. Returns their number. A record may be blob text or plain
    // Base64. Blocks without a valid record, without an end, or with texts that are too long to be
    // stored are left out.
    int Import(OFile& file, const prtmodel* model);

    // The same for a binary file of old drivers, from its current position: records, each followed
    // by its name and its description, as a length (4 bytes) and an 8-bit text each. A file that is
    // just one record has its preset named after it, up to the first dot.
    int ImportKPR1(OFile& file, const prtmodel* model);

    // ---- Use ------------------------------------------------------------------------------------

    // The preset that settings come from. With their fingerprint, it is the one that has it too and
    // equal settings; else the first stored one with equal settings; else the default settings if
    // these are equal; else the current settings, or null if the list lacks them.
    Preset* Find(const DevMode& dev_mode) const;

    // The first built-in preset of its kind, or null.
    Preset* GetCurrentSettings() const { return FindBuiltIn(Preset::CURRENT_SETTINGS); }
    Preset* GetDefaultSettings() const { return FindBuiltIn(Preset::DEFAULT_SETTINGS); }

private:
    // The checksum of the stored presets. The built-in ones come and go with the UI object, which
    // is no reason to write the others.
    uint32_t GetStoredCRC32() const;
    Preset* FindBuiltIn(uint32_t flag) const;

    mutable bool some_unread_ = true; // stored presets may be there that are not in the list
};
