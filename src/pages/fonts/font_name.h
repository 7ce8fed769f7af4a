// The name of a data font in its editor.
#pragma once

#include "fonts/data_font.h"
#include "ui/prtpage.h"

// Shows the name in a field, or for a font without one a usual name, by the number of its text.
void ShowFontName(prtpage& page, int field, const DataFont& font, int usual_name);

// Whether the edited copy of the UI object's edit_data_font may be written back. A copy without a
// name gets the usual one. If another font has the name, the user is asked: either it is deleted,
// or the editor stays open, with the focus on the name.
bool VerifyFontName(prtpage& page, int field, DataFont& font, int usual_name);
