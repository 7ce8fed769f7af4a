// The presets of a printer.
#pragma once

#include <cstdint>

#include "core/ofile.h"
#include "settings/preset.h"
#include "settings/stored_list.h"

// The current settings, the default settings, and the stored presets by name: that is the order
// which Sort makes. The UI object adds the two built-in ones; they are neither stored nor
// exported.
//
// `model` is never null. A list belongs to one thread.
class PresetList : public OTypedNameList<Preset>, public StoredList {
public:
    PresetList() = default;
    PresetList(const PresetList&) = delete;
    // Takes over copies of the presets and what is remembered of the last load or save. A copy that
    // lacks something is not saved.
    PresetList& operator=(const PresetList& other);

    // Reads the stored presets, instead of those in the list, sorts them and remembers the list's
    // checksum. Of several with one name only the last is kept. When not all of them could be read,
    // the list is not saved until it is loaded again.
    void Load(const prtmodel* model);

    // Writes the presets that have settings, and deletes stored ones that are gone: all of it or
    // nothing. Stored presets that cannot be understood stay, under the numbers that they have.
    SaveResult Save(const prtmodel* model) const;

    // Brings the list into order: by priority, then by name.
    void Sort();

    // ---- Exchange -------------------------------------------------------------------------------

    // Writes a text block for each preset; the number of blocks. One without a DEVMODE has no data.
    //
    //   <preset>
    //   Name=Draft
    //   Description=Fast
    //   Data=Wkxi...           the exported record as blob text
    //   </preset>
    int Export(OFile& file) const;

    // Adds the presets of all blocks of a file, which is read from its start, in place of those of
    // the same names, and sorts the list; their number. A record may be blob text or plain Base64.
    // A block without a record that can be imported, one without an end, and one with texts that
    // are too long to be stored, is left out.
    int Import(OFile& file, const prtmodel* model);

    // The same for a binary file as old drivers wrote it, from where it stands: records, each with
    // the length and the bytes of its name and of its description after it (4 bytes each, 8-bit
    // texts). A file that is just one record has its preset named after it, up to the first dot.
    int ImportKPR1(OFile& file, const prtmodel* model);

    // ---- Use ------------------------------------------------------------------------------------

    // The preset that settings come from: with their fingerprint, the one that has it too and equal
    // settings; else the first stored one with equal settings; else the default settings when these
    // are equal; else the current settings, null when the list lacks them.
    Preset* Find(const DevMode& dev_mode) const;

    // The first built-in preset of its kind; null when there is none.
    Preset* GetCurrentSettings() const { return FindBuiltIn(Preset::CURRENT_SETTINGS); }
    Preset* GetDefaultSettings() const { return FindBuiltIn(Preset::DEFAULT_SETTINGS); }

private:
    // The checksum of the presets that are stored. The built-in ones come and go with the
    // UI object, which is no reason to write the others.
    uint32_t GetStoredCRC32() const;
    Preset* FindBuiltIn(uint32_t flag) const;

    mutable bool some_unread_ = true; // stored presets may be there that are not in the list
};
