// Dialog templates for the tabs of a sheet whose pages are in another one.
#pragma once

#include <windows.h>

#include <cstddef>

#include "core/ostring.h"

// Empty dialogs with a title, laid one after the other in one block, which the templates share and
// which lives as long as the object. Like all templates, they must outlive the sheet.
class PlaceholderTemplates {
public:
    // Makes the next template. A title that the rest of the block cannot hold is cut off. Null if
    // not even an empty one fits, which about 170 do.
    const DLGTEMPLATE* Add(const OString& title);

private:
    static constexpr size_t kUnits = 2048; // 4096 bytes

    alignas(DWORD) WORD block_[kUnits];
    size_t used_ = 0;
};
