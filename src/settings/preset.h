// A preset: document settings under a name.
#pragma once

#include <windows.h>

#include <cstdint>

#include "core/name_list.h"
#include "core/obuffer.h"
#include "keys/prtreg.h"
#include "settings/dev_mode.h"

class prtmodel;

// A DEVMODE with a name and a description. The DEVMODE is held as it was given or stored, even one
// of an older driver; it becomes this driver's when it is merged into another. One whose sizes do
// not include its dmFields counts as none.
class Preset : public NameNode {
public:
    // The two presets that are made each time and never stored.
    enum BuiltIn : uint32_t { CURRENT_SETTINGS = 1, DEFAULT_SETTINGS = 2 };
    // Their priorities, which put them before all others.
    enum : int32_t { CURRENT_SETTINGS_PRIORITY = 20, DEFAULT_SETTINGS_PRIORITY = 10 };

    // Copies have a DEVMODE of their own.
    Preset() = default;

    // Sets the name, and its fingerprint in the DEVMODE's configuration, if there is one.
    void SetName(const OString& name);

    const OString& GetDescription() const { return description_; }
    void SetDescription(const OString& description) { description_ = description; }

    // Bits of BuiltIn, or 0 for all stored ones.
    uint32_t GetBuiltIn() const { return built_in_; }
    void SetBuiltIn(uint32_t flags) { built_in_ = flags; }

    // ---- The DEVMODE ----------------------------------------------------------------------------

    // Its size, or 0 if there is none.
    int GetDevModeSize() const { return static_cast<int>(dev_mode_.GetSize()); }
    // A view of it, valid until the preset gets another one or ends.
    DevMode GetDevMode();
    // Copies a DEVMODE, or none for null.
    void SetDevMode(const DEVMODEW* dev_mode);
    // Takes the defaults of a model.
    void SetToDefaultDevMode(const prtmodel* model);

    // ---- Storage --------------------------------------------------------------------------------

    // In the registry, as preset number `index`: the values of "Presets:" whose names are
    // KeyName(index) followed by "Name", "Description" and "DEVMODE". Load is false without a
    // DEVMODE, and for one that is shorter than its own sizes claim. Save is false if a value
    // cannot be written.
    bool Load(prtreg& registry, int index);
    // Whether settings are stored under that number, readable or not.
    static bool IsStored(prtreg& registry, int index);
    bool Save(prtreg& registry, int index) const;
    // `prefix` is the path of the key and the start of the values' names.
    static void Delete(prtreg& registry, const OString& prefix);

    // The start of the names of preset number `index`: "Preset 07:: " for 7.
    static OString KeyName(int index);

    // ---- Exchange -------------------------------------------------------------------------------

    // The DEVMODE as a record: "DM32", its size (4 bytes, little-endian), its bytes. False, with an
    // empty buffer, if there is no DEVMODE.
    bool Export(OBuffer<char>& record) const;

    // Takes the DEVMODE of a record into the defaults of a model: after "DM32" that of this driver,
    // after any other two characters after "DM" that of a 16-bit driver. Any other record leaves
    // the defaults. The size in the record is ignored. False, with the preset unchanged, for a
    // record of less than 8 bytes and one that ends before its DEVMODE does.
    bool Import(const OBuffer<char>& record, const prtmodel* model);

    // The checksum of everything, continued from `seed`.
    uint32_t GetCRC32(uint32_t seed) const;

private:
    // Takes `size` bytes if they hold a complete DEVMODE, without what follows it; else none.
    bool HoldDevMode(const char* bytes, size_t size);

    OString description_;
    uint32_t built_in_ = 0;
    OBuffer<char> dev_mode_; // exactly its size
};
