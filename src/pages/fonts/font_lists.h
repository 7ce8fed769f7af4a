// The lists that the editors of both kinds of data fonts have.
#pragma once

#include "fonts/data_font.h"
#include "ui/prtpage.h"

// Fill combo boxes of a page and select what the font has, if it is among the items.
void FillCharacterSets(prtpage& page, int list, const DataFont& font);
void FillAdjustments(prtpage& page, int list, const DataFont& font);
