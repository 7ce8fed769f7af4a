// How edit fields look.
#include "window/control_paint.h"
#include "window/edit.h"
#include "window/look.h"

#include <algorithm>

namespace win32host {

void EditField::PaintLine(const ControlPaint& paint, size_t line, const RECT& area) const {
    const HDC dc = paint.Context();
    const bool shows = focused_ || Style() & ES_NOHIDESEL;
    const size_t from = shows ? SelectionStart() : 0;
    const size_t to = shows ? SelectionEnd() : 0;
    const EditLine& whole = layout_.Line(line);
    const size_t end = whole.start + whole.length;
    const int start = LineStart(line);
    const COLORREF color =
        IsWindowEnabled(Self()) ? GetTextColor(dc) : look::TextColor(look::kDisabled);
    const look::State state = focused_ ? look::kFocused : look::kNormal;
    // In pieces that are selected or not, between tabs.
    for (size_t at = whole.start; at < end;) {
        const bool selected = at >= from && at < to;
        size_t next = at < from ? std::min(from, end) : selected ? std::min(to, end) : end;
        const size_t tab = std::min(text_.find(u'\t', at), end);
        next = std::min(next, tab == at ? at + 1 : tab);
        RECT cell = area;
        cell.left = std::max<LONG>(area.left, start + layout_.XOf(text_, line, at));
        cell.right = std::min<LONG>(area.right, start + layout_.XOf(text_, line, next));
        std::u16string piece = tab == at ? u"" : text_.substr(at, next - at);
        if (password_ && !HasLines()) piece.assign(piece.size(), password_);
        const COLORREF text_before =
            SetTextColor(dc, selected ? look::SelectionTextColor(state) : color);
        const COLORREF back_before = SetBkColor(dc, look::SelectionColor(state));
        if (cell.left < cell.right)
            ExtTextOutW(dc, start + layout_.XOf(text_, line, at), area.top,
                        ETO_CLIPPED | (selected ? ETO_OPAQUE : 0), &cell, piece.c_str(),
                        static_cast<UINT>(piece.size()), nullptr);
        SetTextColor(dc, text_before);
        SetBkColor(dc, back_before);
        at = next;
    }
}

void EditField::Paint(WPARAM context) const {
    const ControlPaint paint(Self(), context, font_);
    const HDC dc = paint.Context();
    const bool enabled = IsWindowEnabled(Self()) != FALSE;
    paint.FillBackground(enabled && !IsReadOnly() ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC);
    const int mode = SetBkMode(dc, TRANSPARENT);
    const RECT rect = TextRect();
    RECT area = rect;
    for (size_t line = first_line_; line < layout_.Count() && area.top < rect.bottom; ++line) {
        area.bottom = area.top + layout_.LineHeight();
        PaintLine(paint, line, area);
        area.top = area.bottom;
    }
    if (focused_ && enabled && !HasSelection()) {
        const POINT caret = PointOfPosition(caret_);
        const int width = look::Scaled(dc, 1);
        const RECT bar = {caret.x, caret.y, caret.x + width, caret.y + layout_.LineHeight()};
        if (bar.top >= rect.top && bar.top < rect.bottom)
            FillRect(dc, &bar, GetSysColorBrush(COLOR_WINDOWTEXT));
    }
    SetBkMode(dc, mode);
}

} // namespace win32host
