// A tab of a report: lines of text in columns.
#pragma once

#include <cstdint>

#include "core/oarray.h"
#include "core/ostring.h"
#include "core/ostring_array.h"

// The elements are the lines. "[b]" and "[/b]" in them enclose bold text, "[i]" and "[/i]" italic
// text; anything else from an opening bracket to the next closing one is not shown. A tab character
// stands between a label and its value.
class TextPanel : public OStringArray {
public:
    OString title;
    // In quarters of the average character's width.
    OTypedArray<int> tab_stops;
    // What the user had selected and how far he had scrolled when he left the tab.
    int32_t selection_start = 0;
    int32_t selection_end = 0;
    int32_t scroll_position = 0;
};
