// Downloaded fonts as ZPL II printers name them.
#pragma once

#include "core/ostring.h"
#include "core/ostring_array.h"
#include "fonts/prtdttf_list.h"

// A letter or digit for a new font that no listed font has, or "I" if all are taken.
char FreeFontIdentifier(const prtdttf_list& fonts);

// Compares the list with the fonts that the printer has ("E:ARIAL.FNT;1234;P", see ReadFileList).
// Those found are marked as present; the others stay as they are. Fonts that are not listed are
// added under the display name `name`, except those built into the printer (device Z). An entry
// with fewer than three fields ends the files.
void MatchFontFiles(const OStringArray& files, const OString& name, prtdttf_list& fonts);
