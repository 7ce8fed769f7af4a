// Colours of controls, buttons and their marks, and labels.
#include "window/look.h"

#include "gdi/smooth.h"
#include "window/look_parts.h"

#include <algorithm>

namespace win32host::look {

int Scaled(HDC dc, int size) {
    const int dpi = GetDeviceCaps(dc, LOGPIXELSY);
    return dpi > 0 ? (size * dpi + 48) / 96 : size;
}

COLORREF AccentColor() {
    return GetSysColor(COLOR_HIGHLIGHT);
}

COLORREF BorderColor(State state) {
    if (state & kDisabled) return RGB(214, 214, 214);
    if (state & kFocused) return AccentColor();
    return RGB(178, 178, 178);
}

COLORREF TextColor(State state) {
    return GetSysColor(state & kDisabled ? COLOR_GRAYTEXT : COLOR_BTNTEXT);
}

COLORREF FieldColor(State state) {
    return state & (kDisabled | kReadOnly) ? RGB(247, 247, 247) : GetSysColor(COLOR_WINDOW);
}

COLORREF SelectionColor(State state) {
    return state & kFocused ? AccentColor() : RGB(217, 217, 217);
}

COLORREF SelectionTextColor(State state) {
    return GetSysColor(state & kFocused ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT);
}

void DrawPushButton(HDC dc, const RECT& rect, State state) {
    COLORREF face = RGB(253, 253, 253), border = RGB(200, 200, 200);
    int width = Scaled(dc, 1);
    if (state & kDisabled) {
        face = RGB(245, 245, 245);
        border = RGB(224, 224, 224);
    } else {
        if (state & (kDefault | kFocused)) border = AccentColor();
        if (state & kFocused) width = std::max(width, Scaled(dc, 2));
        if (state & kPressed) {
            face = RGB(214, 230, 245);
            border = AccentColor();
        }
    }
    SmoothRect(dc, rect, Scaled(dc, 4), width, border, face);
}

int MarkSize(HDC dc) {
    return Scaled(dc, 13);
}

int MarkGap(HDC dc) {
    return Scaled(dc, 4);
}

RECT MiddleOf(const RECT& rect, int size) {
    const int left = rect.left + (rect.right - rect.left - size) / 2;
    const int top = rect.top + (rect.bottom - rect.top - size) / 2;
    return {left, top, left + size, top + size};
}

namespace {

// The border and the inside of a check box or radio button.
struct MarkColors {
    COLORREF border;
    COLORREF fill;
    COLORREF sign;
};

MarkColors ColorsOfMark(State state) {
    const bool on = state & (kChecked | kMixed);
    const COLORREF white = GetSysColor(COLOR_WINDOW);
    if (state & kDisabled) {
        const COLORREF grey = RGB(188, 188, 188);
        return on ? MarkColors{grey, grey, white}
                  : MarkColors{RGB(204, 204, 204), RGB(249, 249, 249), white};
    }
    if (on) {
        const COLORREF fill = state & kPressed ? RGB(0, 79, 148) : AccentColor();
        return {fill, fill, white};
    }
    const COLORREF border = state & kFocused ? AccentColor() : RGB(121, 121, 121);
    return {border, state & kPressed ? RGB(214, 230, 245) : white, white};
}

} // namespace

void DrawCheckMark(HDC dc, const RECT& rect, State state) {
    const RECT box = MiddleOf(rect, MarkSize(dc));
    const MarkColors colors = ColorsOfMark(state);
    SmoothRect(dc, box, Scaled(dc, 2), Scaled(dc, 1), colors.border, colors.fill);
    const double unit = (box.right - box.left) / 13.0;
    if (state & kMixed) {
        const SmoothPoint line[] = {{box.left + 3.8 * unit, box.top + 6.5 * unit},
                                    {box.left + 9.2 * unit, box.top + 6.5 * unit}};
        SmoothLines(dc, line, 1.7 * unit, colors.sign);
    } else if (state & kChecked) {
        DrawTickSign(dc, box, colors.sign);
    }
}

void DrawTickSign(HDC dc, const RECT& box, COLORREF color) {
    const double unit = (box.right - box.left) / 13.0;
    const SmoothPoint sign[] = {{box.left + 3.2 * unit, box.top + 6.7 * unit},
                                {box.left + 5.5 * unit, box.top + 9.0 * unit},
                                {box.left + 9.9 * unit, box.top + 4.3 * unit}};
    SmoothLines(dc, sign, 1.6 * unit, color);
}

void DrawRadioMark(HDC dc, const RECT& rect, State state) {
    const RECT box = MiddleOf(rect, MarkSize(dc));
    const MarkColors colors = ColorsOfMark(state);
    const double size = box.right - box.left;
    SmoothRect(dc, box, size / 2, Scaled(dc, 1), colors.border, colors.fill);
    if (state & kChecked)
        SmoothDisc(dc, {box.left + size / 2, box.top + size / 2}, size * 0.2, colors.sign);
}

void DrawGroupBox(HDC dc, const RECT& rect, int text_height, int gap_left, int gap_right) {
    RECT frame = rect;
    frame.top += text_height / 2;
    const double width = Scaled(dc, 1);
    const double inset = width / 2, radius = Scaled(dc, 3);
    const double left = frame.left + inset, top = frame.top + inset;
    const double right = frame.right - inset, bottom = frame.bottom - inset;
    const double gap_start = std::clamp<double>(gap_left, left + radius, right - radius);
    const double gap_end = std::clamp<double>(gap_right, gap_start, right - radius);
    const COLORREF color = RGB(208, 208, 208);
    // From the gap around the frame and back to it. The corners are three chords.
    const double near = radius * 0.29, far = radius;
    const SmoothPoint all[] = {
        {gap_end, top},
        {right - far, top},
        {right - near, top + near},
        {right, top + far},
        {right, bottom - far},
        {right - near, bottom - near},
        {right - far, bottom},
        {left + far, bottom},
        {left + near, bottom - near},
        {left, bottom - far},
        {left, top + far},
        {left + near, top + near},
        {left + far, top},
        {gap_left < gap_right ? gap_start : gap_end, top},
    };
    SmoothLines(dc, all, width, color);
}

void DrawFocus(HDC dc, const RECT& rect) {
    DrawFocusRect(dc, &rect);
}

void DrawLabel(HDC dc, const RECT& rect, std::u16string_view text, UINT format, State state) {
    RECT place = rect;
    const int mode = SetBkMode(dc, TRANSPARENT);
    const COLORREF color = SetTextColor(dc, TextColor(state));
    DrawTextW(dc, text.data(), static_cast<int>(text.size()), &place, format);
    SetTextColor(dc, color);
    SetBkMode(dc, mode);
}

} // namespace win32host::look
