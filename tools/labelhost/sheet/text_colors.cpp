#include "sheet/text_colors.h"

#include <richedit.h>

#include <algorithm>
#include <cstdio>
#include <string>

namespace {

// Asks about parts of the text, which are selected for it.
class Colors {
public:
    explicit Colors(HWND edit)
        : edit_(edit)
        , events_(SendMessageW(edit, EM_SETEVENTMASK, 0, 0)) {
        SendMessageW(edit, EM_HIDESELECTION, TRUE, 0);
        SendMessageW(edit, WM_SETREDRAW, FALSE, 0);
        SendMessageW(edit, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&selection_));
    }
    ~Colors() {
        Select(selection_);
        SendMessageW(edit_, WM_SETREDRAW, TRUE, 0);
        SendMessageW(edit_, EM_HIDESELECTION, FALSE, 0);
        SendMessageW(edit_, EM_SETEVENTMASK, 0, events_);
    }
    Colors(const Colors&) = delete;
    Colors& operator=(const Colors&) = delete;

    // Whether the characters have one colour, which is then in `color`.
    bool Same(LONG from, LONG to, COLORREF& color) {
        Select({from, to});
        CHARFORMATW format = {};
        format.cbSize = sizeof format;
        SendMessageW(edit_, EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
        color =
            format.dwEffects & CFE_AUTOCOLOR ? GetSysColor(COLOR_WINDOWTEXT) : format.crTextColor;
        return (format.dwMask & CFM_COLOR) != 0;
    }

private:
    void Select(CHARRANGE range) {
        SendMessageW(edit_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
    }

    const HWND edit_;
    const LRESULT events_;
    CHARRANGE selection_ = {};
};

// The end of the run that starts at `from`.
LONG RunEnd(Colors& colors, LONG from, LONG length) {
    COLORREF color = 0;
    LONG end = from + 1, step = 1;
    while (end < length && colors.Same(from, std::min(end + step, length), color)) {
        end = std::min(end + step, length);
        step *= 2;
    }
    for (; step >= 1; step /= 2)
        if (end + step <= length && colors.Same(from, end + step, color)) end += step;
    return end;
}

std::string Hexadecimal(COLORREF color) {
    char text[7];
    std::snprintf(text, sizeof text, "%02x%02x%02x", static_cast<unsigned>(color & 255),
                  static_cast<unsigned>(color >> 8 & 255),
                  static_cast<unsigned>(color >> 16 & 255));
    return text;
}

} // namespace

Json TextColors(HWND rich_edit) {
    // Line ends count as one character.
    GETTEXTLENGTHEX asked = {GTL_NUMCHARS | GTL_PRECISE, 1200};
    const auto length = static_cast<LONG>(
        SendMessageW(rich_edit, EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&asked), 0));
    Json runs = Json::array();
    if (length <= 0) return runs;
    Colors colors(rich_edit);
    for (LONG from = 0; from < length;) {
        COLORREF color = 0;
        colors.Same(from, from + 1, color);
        LONG end = RunEnd(colors, from, length);
        runs.push_back({from, end, Hexadecimal(color)});
        from = end;
    }
    return runs;
}
