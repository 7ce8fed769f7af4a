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
    // Takes over copies of the fonts and what is remembered of the last load or save. A copy that
    // lacks something is not saved.
    prtdttf_list& operator=(const prtdttf_list& other);

    // Fills the list anew from the registry. A font that was present when it was stored counts as
    // sent: whether it still is there shows when the printer is asked. When not all of them could
    // be read, the list is not saved until it is loaded again.
    void Load(const prtmodel* model);
    // Stores all fonts and their number: all of it or nothing.
    SaveResult Save(const prtmodel* model) const;

    // The checksum of all that is stored of the fonts, continued from `seed`.
    uint32_t GetCRC32(uint32_t seed) const;

    // Marks every font as missing.
    void SetAllNotPresent();

    // Whether a font has this name for its file, up to the first dot and without blanks around it.
    bool UsesName(const OString& name) const;
    bool UsesIdentifier(char identifier) const;
    // The first font in a memory, or null.
    DownloadedFont* FindIn(char location) const;
};
