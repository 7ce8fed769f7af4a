// The fonts that a printer has downloaded.
#pragma once

#include <cstdint>

#include "core/name_list.h"
#include "core/ostring.h"
#include "fonts/downloaded_font.h"
#include "settings/stored_list.h"

class prtmodel;

// In the order of their downloads. The list owns its fonts.
class prtdttf_list : public OTypedList<DownloadedFont, OList>, public StoredList {
public:
    prtdttf_list() = default;
    prtdttf_list(const prtdttf_list&) = delete;
    // Takes over copies of the fonts and the memory of the last load or save. An incomplete copy is
    // not saved.
    prtdttf_list& operator=(const prtdttf_list& other);

    // Fills the list from the registry. A font that was present when it was stored counts as sent:
    // only the printer can tell whether it is still there. If not all of them could be read, the
    // list is not saved until it is loaded again.
    void Load(const prtmodel* model);
    // Stores all fonts and their number: all of it or nothing.
    SaveResult Save(const prtmodel* model) const;

    // The checksum of everything stored of the fonts, continued from `seed`.
    uint32_t GetCRC32(uint32_t seed) const;

    // Marks every font as missing.
    void SetAllNotPresent();

    // Whether a font's file has this name, up to the first dot and without blanks around it.
    bool UsesName(const OString& name) const;
    bool UsesIdentifier(char identifier) const;
    // The first font in a memory, or null.
    DownloadedFont* FindIn(char location) const;
};
