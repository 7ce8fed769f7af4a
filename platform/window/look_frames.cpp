// Tabs, headers, menus, frames of windows, and the icons of message boxes.
#include "gdi/smooth.h"
#include "window/look_parts.h"

#include <algorithm>
#include <iterator>

namespace win32host::look {
namespace {

constexpr COLORREF kLine = RGB(208, 208, 208);

void DrawCross(HDC dc, const RECT& box, COLORREF color) {
    const double x = (box.left + box.right) / 2.0, y = (box.top + box.bottom) / 2.0;
    const double size = Scaled(dc, 9) / 2.0;
    const double width = Scaled(dc, 1) * 1.1;
    const SmoothPoint falling[] = {{x - size, y - size}, {x + size, y + size}};
    const SmoothPoint rising[] = {{x - size, y + size}, {x + size, y - size}};
    SmoothLines(dc, falling, width, color);
    SmoothLines(dc, rising, width, color);
}

HFONT FontOf(HDC dc, int points, int weight) {
    return CreateFontW(-MulDiv(points, GetDeviceCaps(dc, LOGPIXELSY), 72), 0, 0, 0, weight, 0, 0, 0,
                       DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                       VARIABLE_PITCH | FF_SWISS, TEXT("MS Shell Dlg"));
}

void DrawTitle(HDC dc, const RECT& rect, std::u16string_view text, COLORREF color, UINT format) {
    const HFONT font = FontOf(dc, 9, FW_NORMAL);
    const HGDIOBJ before = SelectObject(dc, font);
    const COLORREF color_before = SetTextColor(dc, color);
    const int mode = SetBkMode(dc, TRANSPARENT);
    RECT place = rect;
    DrawTextW(dc, text.data(), static_cast<int>(text.size()), &place, format);
    SetBkMode(dc, mode);
    SetTextColor(dc, color_before);
    SelectObject(dc, before);
    DeleteObject(font);
}

void DrawBorder(HDC dc, const RECT& rect, int width, COLORREF color) {
    FillPlain(dc, {rect.left, rect.top, rect.right, rect.top + width}, color);
    FillPlain(dc, {rect.left, rect.bottom - width, rect.right, rect.bottom}, color);
    FillPlain(dc, {rect.left, rect.top, rect.left + width, rect.bottom}, color);
    FillPlain(dc, {rect.right - width, rect.top, rect.right, rect.bottom}, color);
}

} // namespace

void DrawTabBody(HDC dc, const RECT& rect) {
    FillPlain(dc, rect, GetSysColor(COLOR_BTNFACE));
    DrawBorder(dc, rect, Scaled(dc, 1), kLine);
}

void DrawTab(HDC dc, const RECT& rect, State state) {
    const int width = Scaled(dc, 1);
    const bool chosen = state & kSelected;
    const COLORREF face = chosen ? GetSysColor(COLOR_BTNFACE) : RGB(234, 234, 234);
    FillPlain(dc, rect, face);
    FillPlain(dc, {rect.left, rect.top, rect.left + width, rect.bottom}, kLine);
    FillPlain(dc, {rect.right - width, rect.top, rect.right, rect.bottom}, kLine);
    const int edge = chosen ? Scaled(dc, 2) : width;
    FillPlain(dc, {rect.left, rect.top, rect.right, rect.top + edge},
              chosen ? AccentColor() : kLine);
}

void DrawHeader(HDC dc, const RECT& rect, State state) {
    const int width = Scaled(dc, 1);
    FillPlain(dc, rect, state & kPressed ? RGB(217, 235, 249) : RGB(250, 250, 250));
    FillPlain(dc, {rect.left, rect.bottom - width, rect.right, rect.bottom}, kLine);
    FillPlain(dc, {rect.right - width, rect.top, rect.right, rect.bottom}, RGB(228, 228, 228));
}

void DrawMenuBackground(HDC dc, const RECT& rect) {
    FillPlain(dc, rect, GetSysColor(COLOR_MENU));
    DrawBorder(dc, rect, Scaled(dc, 1), RGB(190, 190, 190));
}

void DrawMenuItem(HDC dc, const RECT& rect, State state) {
    if (!(state & kSelected)) return FillPlain(dc, rect, GetSysColor(COLOR_MENU));
    const COLORREF face = state & kDisabled ? RGB(240, 240, 240) : GetSysColor(COLOR_MENUHILIGHT);
    SmoothRect(dc, rect, Scaled(dc, 3), 0, 0, face);
}

void DrawMenuSeparator(HDC dc, const RECT& rect) {
    const int middle = (rect.top + rect.bottom) / 2;
    FillPlain(dc, {rect.left, middle, rect.right, middle + Scaled(dc, 1)}, RGB(220, 220, 220));
}

void DrawMenuMark(HDC dc, const RECT& rect, bool radio, State state) {
    const RECT box = MiddleOf(rect, Scaled(dc, 13));
    const COLORREF color = TextColor(state);
    if (!radio) return DrawTickSign(dc, box, color);
    const double size = box.right - box.left;
    SmoothDisc(dc, {box.left + size / 2, box.top + size / 2}, size * 0.2, color);
}

void DrawFrame(HDC dc, const RECT& rect, const Frame& frame, State state) {
    const bool active = !(state & kInactive);
    const COLORREF edge = active ? RGB(140, 140, 140) : RGB(190, 190, 190);
    const COLORREF bar = GetSysColor(active ? COLOR_ACTIVECAPTION : COLOR_INACTIVECAPTION);
    const int inside = frame.border + frame.caption;
    // The client area stays as it is.
    const RECT parts[] = {{rect.left, rect.top, rect.right, rect.top + inside},
                          {rect.left, rect.bottom - frame.border, rect.right, rect.bottom},
                          {rect.left, rect.top, rect.left + frame.border, rect.bottom},
                          {rect.right - frame.border, rect.top, rect.right, rect.bottom}};
    for (size_t i = 0; i < std::size(parts); ++i)
        FillPlain(dc, parts[i], i == 0 && frame.caption > 0 ? bar : GetSysColor(COLOR_BTNFACE));
    if (frame.border > 0) DrawBorder(dc, rect, Scaled(dc, 1), edge);
    if (frame.caption <= 0) return;
    RECT title = {rect.left + frame.border, rect.top + frame.border, rect.right - frame.border,
                  rect.top + inside};
    const COLORREF color = GetSysColor(active ? COLOR_CAPTIONTEXT : COLOR_INACTIVECAPTIONTEXT);
    const int box = frame.caption + Scaled(dc, 4);
    const UINT line = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX;
    if (frame.close) {
        DrawCross(dc, {title.right - box, title.top, title.right, title.bottom}, color);
        title.right -= box;
    }
    if (frame.help) {
        DrawTitle(dc, {title.right - box, title.top, title.right, title.bottom}, u"?", color,
                  line | DT_CENTER);
        title.right -= box;
    }
    title.left += Scaled(dc, 7);
    DrawTitle(dc, title, frame.title, color, line | DT_END_ELLIPSIS);
}

void DrawMessageIcon(HDC dc, const RECT& rect, Icon icon) {
    const int size = std::min(rect.right - rect.left, rect.bottom - rect.top);
    const RECT box = MiddleOf(rect, size);
    const double unit = size / 32.0, x = box.left + size / 2.0, y = box.top;
    const COLORREF white = RGB(255, 255, 255);
    const auto line = [&](double from_x, double from_y, double to_x, double to_y, COLORREF color) {
        const SmoothPoint points[] = {{box.left + from_x * unit, y + from_y * unit},
                                      {box.left + to_x * unit, y + to_y * unit}};
        SmoothLines(dc, points, 3 * unit, color);
    };
    const auto dot = [&](double at, COLORREF color) {
        SmoothDisc(dc, {x, y + at * unit}, 1.9 * unit, color);
    };
    switch (icon) {
    case Icon::Information:
        SmoothDisc(dc, {x, y + 16 * unit}, 15 * unit, AccentColor());
        dot(9, white);
        line(16, 14.5, 16, 23.5, white);
        break;
    case Icon::Question: {
        SmoothDisc(dc, {x, y + 16 * unit}, 15 * unit, AccentColor());
        const SmoothPoint hook[] = {
            {box.left + 11.5 * unit, y + 12.0 * unit}, {box.left + 12.3 * unit, y + 9.6 * unit},
            {box.left + 14.4 * unit, y + 8.2 * unit},  {box.left + 17.4 * unit, y + 8.2 * unit},
            {box.left + 19.6 * unit, y + 9.6 * unit},  {box.left + 20.4 * unit, y + 12.0 * unit},
            {box.left + 19.6 * unit, y + 14.2 * unit}, {box.left + 16.6 * unit, y + 16.6 * unit},
            {box.left + 16.0 * unit, y + 19.2 * unit}};
        SmoothLines(dc, hook, 2.8 * unit, white);
        dot(24, white);
        break;
    }
    case Icon::Warning: {
        const SmoothPoint corners[] = {{x, y + 3.5 * unit},
                                       {box.left + 30 * unit, y + 28 * unit},
                                       {box.left + 2 * unit, y + 28 * unit}};
        const COLORREF amber = RGB(252, 190, 0);
        SmoothPolygon(dc, corners, amber);
        const SmoothPoint edge[] = {corners[0], corners[1], corners[2], corners[0]};
        SmoothLines(dc, edge, 3 * unit, amber);
        line(16, 11, 16, 19, RGB(0, 0, 0));
        dot(24, RGB(0, 0, 0));
        break;
    }
    case Icon::Error:
        SmoothDisc(dc, {x, y + 16 * unit}, 15 * unit, RGB(196, 43, 28));
        line(11, 11, 21, 21, white);
        line(11, 21, 21, 11, white);
        break;
    }
}

} // namespace win32host::look
