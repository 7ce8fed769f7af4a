// The data fonts of a printer.
#pragma once

#include <cstdint>

#include "core/locks.h"
#include "core/oarray.h"
#include "core/ofile.h"
#include "fonts/data_font.h"
#include "settings/stored_list.h"

class prtmodel;

// Fonts in the order of the registry, new ones after them. The list owns its fonts. Their names are
// unique if all were added with AddTail. Load and Save lock the list, everything else belongs to
// one thread.
//
// A font is stored in the registry as one binary value, its blob: "DATA:Data Fonts/NAME/Data",
// where "%" and backslashes in the name are escaped ("%25", "%5C").
class DataFontManager : public StoredList {
public:
    DataFontManager() = default;
    ~DataFontManager() { Clear(); }
    DataFontManager(const DataFontManager&) = delete;
    // Takes over copies of the fonts and the memory of the last load or save. An incomplete copy is
    // not saved.
    DataFontManager& operator=(const DataFontManager& other);

    int GetSize() const { return fonts_.GetSize(); }
    // The index is not checked.
    DataFont* operator[](int index) const { return fonts_[index]; }

    // Deletes all fonts.
    void Clear();

    // Adds a font, which the list then owns. It replaces one with its name, which is deleted, or is
    // added at the end. The case of the letters A to Z does not matter. Null is ignored.
    void AddTail(DataFont* font);

    // Takes a font out of the list. The caller then owns it. Nothing if it is not in the list.
    void Remove(DataFont* font);

    // ---- Storage --------------------------------------------------------------------------------

    // Fills the list from the registry; anything there that is not a font is skipped. If not all of
    // it could be read, the list is not saved until it is loaded again. Always true.
    bool Load(const prtmodel* model);

    // Stores the fonts, replacing all stored ones: all of them or none. One without a name is left
    // out.
    SaveResult Save(const prtmodel* model);

    // The checksum of all blobs, continued from `seed`, or `seed` for an empty list.
    uint32_t GetCRC32(uint32_t seed) const;

    // Load and Save mark the list as unmodified, and so does this. For pages that edit the list.
    // What Save writes does not depend on it.
    void SetUnmodified() { unmodified_ = GetCRC32(0); }
    bool IsModified() const { return GetCRC32(0) != unmodified_; }

    // ---- Exchange -------------------------------------------------------------------------------

    // Write a text block for each font of the kind. Return their number.
    //
    //   <font type='Bar Code'>     or 'RFID'
    //   Name=Code 128
    //   Data=Wkxi...               the blob as blob text
    //   </font>
    int ExportBarFont(OFile& file, const prtmodel* model) const;
    int ExportRFID(OFile& file, const prtmodel* model) const;

    // Add the fonts of all blocks of a file, which is read from its start, as AddTail does. Return
    // their number. Fonts that the printer does not support or that have no name are left out. A
    // blob may be blob text or plain Base64; a damaged one leaves its font as a new one. Bar codes
    // keep their printed module width in the resolution of the printer.
    int ImportBarFont(OFile& file, const prtmodel* model);
    int ImportRFID(OFile& file, const prtmodel* model);

    // The same with bar code fonts from a binary file of old drivers, from its current position:
    // "KBF1", the size of a record (4 bytes), and records that begin with a blob. 0 for any other
    // file.
    int ImportKBF1(OFile& file, const prtmodel* model);

private:
    OPointerArray<DataFont*> fonts_;
    uint32_t unmodified_ = 0; // checksum of the list when it was marked
    OCriticalSection lock_;
};
