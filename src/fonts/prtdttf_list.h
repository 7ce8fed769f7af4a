// The fonts that a printer has downloaded.
#pragma once

#include "core/olist.h"
#include "core/ostring.h"
#include "fonts/downloaded_font.h"

class prtmodel;

// In the order of their downloads. The list owns its fonts.
class prtdttf_list : public OList {
public:
    // A DownloadedFont.
    ONode* NewNode() override;

    // The font behind `font`, the first one for null; null at the end.
    DownloadedFont* GetNext(const DownloadedFont* font) const;

    // Fills the list anew from the registry. A font that was present when it was stored counts as
    // sent: whether it still is there shows when the printer is asked. When not all of them could
    // be read, the list is not saved until it is loaded again.
    void Load(const prtmodel* model);
    // Stores all fonts and their number: all of it or, on failure, nothing, and false.
    bool Save(const prtmodel* model) const;

    // Marks every font as missing.
    void SetAllNotPresent();

    // Whether a font has this name for its file, up to the first dot and without blanks around it.
    bool UsesName(const OString& name) const;
    bool UsesIdentifier(char identifier) const;
    // The first font in a memory, or null.
    DownloadedFont* FindIn(char location) const;

private:
    bool whole_ = true; // nothing that is stored was missed
};
