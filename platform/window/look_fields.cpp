// Fields, lists, combo boxes, and everything that moves in a track or a bar.
#include "gdi/smooth.h"
#include "window/look_parts.h"

#include <algorithm>
#include <cstdint>

namespace win32host::look {

int FieldBorder(HDC dc) {
    return std::max(1, Scaled(dc, 1));
}

void DrawField(HDC dc, const RECT& rect, State state) {
    FillPlain(dc, rect, FieldColor(state));
    DrawFieldBorder(dc, rect, state);
}

void DrawFieldBorder(HDC dc, const RECT& rect, State state) {
    const COLORREF color = BorderColor(state);
    const int width = FieldBorder(dc);
    FillPlain(dc, {rect.left, rect.top, rect.right, rect.top + width}, color);
    FillPlain(dc, {rect.left, rect.bottom - width, rect.right, rect.bottom}, color);
    FillPlain(dc, {rect.left, rect.top, rect.left + width, rect.bottom}, color);
    FillPlain(dc, {rect.right - width, rect.top, rect.right, rect.bottom}, color);
}

int ComboArrowWidth(HDC dc) {
    return Scaled(dc, 18);
}

void DrawComboBox(HDC dc, const RECT& rect, bool editable, State state) {
    if (editable) {
        DrawField(dc, rect, state);
    } else {
        const bool pressed = state & kPressed && !(state & kDisabled);
        SmoothRect(dc, rect, Scaled(dc, 3), Scaled(dc, 1), BorderColor(state),
                   pressed             ? RGB(214, 230, 245)
                   : state & kDisabled ? RGB(245, 245, 245)
                                       : RGB(253, 253, 253));
    }
    RECT arrow = rect;
    arrow.left = std::max(rect.left, rect.right - ComboArrowWidth(dc));
    DrawArrow(dc, arrow, Arrow::Down, state);
}

void DrawDropDown(HDC dc, const RECT& rect) {
    DrawFieldBorder(dc, rect, kNormal);
}

void DrawSpinButton(HDC dc, const RECT& rect, Arrow arrow, State state) {
    const bool pressed = state & kPressed && !(state & kDisabled);
    FillPlain(dc, rect, pressed ? RGB(204, 226, 245) : RGB(247, 247, 247));
    DrawFieldBorder(dc, rect, state & ~kFocused);
    DrawArrow(dc, rect, arrow, state);
}

void DrawArrow(HDC dc, const RECT& rect, Arrow arrow, State state) {
    const double x = (rect.left + rect.right) / 2.0, y = (rect.top + rect.bottom) / 2.0;
    const double room = std::min(rect.right - rect.left, rect.bottom - rect.top);
    const double size =
        std::min(Scaled(dc, 7) / 2.0, std::max(room / 2 - 1, 1.5)); // half its width
    const double half = size / 2;
    SmoothPoint points[3];
    switch (arrow) {
    case Arrow::Up:
        points[0] = {x - size, y + half};
        points[1] = {x, y - half};
        points[2] = {x + size, y + half};
        break;
    case Arrow::Down:
        points[0] = {x - size, y - half};
        points[1] = {x, y + half};
        points[2] = {x + size, y - half};
        break;
    case Arrow::Left:
        points[0] = {x + half, y - size};
        points[1] = {x - half, y};
        points[2] = {x + half, y + size};
        break;
    case Arrow::Right:
        points[0] = {x - half, y - size};
        points[1] = {x + half, y};
        points[2] = {x - half, y + size};
        break;
    }
    const COLORREF color = state & kDisabled ? RGB(170, 170, 170) : RGB(70, 70, 70);
    SmoothLines(dc, points, Scaled(dc, 1) * 1.3, color);
}

void DrawSelection(HDC dc, const RECT& rect, State state) {
    FillPlain(dc, rect, SelectionColor(state));
}

void DrawTrack(HDC dc, const RECT& rect, State state) {
    RECT line = rect;
    const int thickness = Scaled(dc, 4);
    if (rect.right - rect.left >= rect.bottom - rect.top) {
        line.top += (rect.bottom - rect.top - thickness) / 2;
        line.bottom = line.top + thickness;
    } else {
        line.left += (rect.right - rect.left - thickness) / 2;
        line.right = line.left + thickness;
    }
    SmoothRect(dc, line, thickness / 2.0, 0, 0,
               state & kDisabled ? RGB(225, 225, 225) : RGB(196, 196, 196));
}

void DrawThumb(HDC dc, const RECT& rect, State state) {
    const double radius = std::min(rect.right - rect.left, rect.bottom - rect.top) / 2.0;
    COLORREF color = AccentColor();
    if (state & kPressed) color = RGB(0, 79, 148);
    if (state & kDisabled) color = RGB(196, 196, 196);
    SmoothRect(dc, rect, radius, 0, 0, color);
}

void DrawTick(HDC dc, POINT from, POINT to, State state) {
    const int width = Scaled(dc, 1);
    const bool vertical = from.x == to.x;
    const RECT line = {std::min(from.x, to.x), std::min(from.y, to.y),
                       std::max(from.x, to.x) + (vertical ? width : 0),
                       std::max(from.y, to.y) + (vertical ? 0 : width)};
    FillPlain(dc, line, state & kDisabled ? RGB(205, 205, 205) : RGB(140, 140, 140));
}

void DrawProgress(HDC dc, const RECT& rect, int part, int whole) {
    const double radius = Scaled(dc, 2);
    SmoothRect(dc, rect, radius, Scaled(dc, 1), RGB(200, 200, 200), RGB(230, 230, 230));
    if (whole <= 0) return;
    RECT done = rect;
    const int64_t room = rect.right - rect.left;
    done.right = rect.left + static_cast<LONG>(room * std::clamp(part, 0, whole) / whole);
    if (done.right > done.left) SmoothRect(dc, done, radius, 0, 0, AccentColor());
}

void DrawScrollBar(HDC dc, const RECT& rect, bool vertical, int thumb_start, int thumb_end,
                   State state) {
    FillPlain(dc, rect, GetSysColor(COLOR_SCROLLBAR));
    const int width = rect.right - rect.left, height = rect.bottom - rect.top;
    const int button = std::min(vertical ? width : height, (vertical ? height : width) / 2);
    RECT first = rect, last = rect;
    if (vertical) {
        first.bottom = rect.top + button;
        last.top = rect.bottom - button;
    } else {
        first.right = rect.left + button;
        last.left = rect.right - button;
    }
    DrawArrow(dc, first, vertical ? Arrow::Up : Arrow::Left, state);
    DrawArrow(dc, last, vertical ? Arrow::Down : Arrow::Right, state);
    if (thumb_start >= thumb_end || state & kDisabled) return;
    const int inset = Scaled(dc, 4);
    RECT thumb = rect;
    if (vertical) {
        thumb = {rect.left + inset, rect.top + thumb_start, rect.right - inset,
                 rect.top + thumb_end};
    } else {
        thumb = {rect.left + thumb_start, rect.top + inset, rect.left + thumb_end,
                 rect.bottom - inset};
    }
    const double radius = std::min(thumb.right - thumb.left, thumb.bottom - thumb.top) / 2.0;
    SmoothRect(dc, thumb, radius, 0, 0, state & kPressed ? RGB(96, 96, 96) : RGB(150, 150, 150));
}

} // namespace win32host::look
