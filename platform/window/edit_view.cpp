// The lines of an edit field, and where they are.
#include "window/edit.h"
#include "window/notify.h"

#include <algorithm>

namespace win32host {

LRESULT EditField::HandleLines(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case EM_GETLINECOUNT:
        return static_cast<LRESULT>(layout_.Count());
    case EM_LINEINDEX: {
        const size_t line = static_cast<int>(first) == -1 ? layout_.LineOf(caret_) : first;
        return line < layout_.Count() ? static_cast<LRESULT>(layout_.Line(line).start) : -1;
    }
    case EM_LINEFROMCHAR:
        return static_cast<LRESULT>(
            layout_.LineOf(static_cast<int>(first) == -1 ? SelectionStart() : first));
    case EM_LINELENGTH:
        return LineLength(first);
    case EM_GETLINE:
        return CopyLine(first, reinterpret_cast<LPWSTR>(second));
    case EM_GETFIRSTVISIBLELINE:
        return static_cast<LRESULT>(first_line_);
    case EM_LINESCROLL:
        if (!HasLines()) return FALSE;
        ScrollSideways(static_cast<int>(first));
        ScrollTo(static_cast<int64_t>(first_line_) + static_cast<int>(second));
        return TRUE;
    case EM_SCROLL:
        return Scroll(LOWORD(first), 0);
    case EM_POSFROMCHAR: {
        if (first > text_.size() || (HasLines() && first == text_.size())) return -1;
        const POINT point = PointOfPosition(first);
        return MAKELONG(point.x, point.y);
    }
    case EM_CHARFROMPOS: {
        const size_t position = PositionOf(PointOf(second));
        return MAKELONG(position, layout_.LineOf(position));
    }
    default:
        return DefWindowProcW(Self(), message, first, second);
    }
}

LRESULT EditField::LineLength(WPARAM position) const {
    if (static_cast<int>(position) == -1) {
        // Of the lines that the selection is in, what is not selected.
        const EditLine& last = layout_.Line(layout_.LineOf(SelectionEnd()));
        const EditLine& first = layout_.Line(layout_.LineOf(SelectionStart()));
        const size_t end = std::max(last.start + last.length, SelectionEnd());
        return static_cast<LRESULT>(SelectionStart() - first.start + end - SelectionEnd());
    }
    if (position > text_.size()) return 0;
    return static_cast<LRESULT>(layout_.Line(layout_.LineOf(position)).length);
}

LRESULT EditField::CopyLine(WPARAM line, LPWSTR buffer) const {
    if (!buffer) return 0;
    if (!HasLines()) line = 0;
    if (line >= layout_.Count()) return 0;
    const EditLine& from = layout_.Line(line);
    const size_t count = std::min<size_t>(from.length, buffer[0]);
    std::copy_n(text_.begin() + static_cast<ptrdiff_t>(from.start), count, buffer);
    return static_cast<LRESULT>(count);
}

RECT EditField::TextRect() const {
    if (set_rect_.right > set_rect_.left) return set_rect_;
    RECT rect;
    GetClientRect(Self(), &rect);
    const int inset = layout_.Inset();
    rect.left += inset + left_margin_;
    rect.right = std::max(rect.left, rect.right - inset - right_margin_);
    if (HasLines()) {
        rect.top += inset / 3;
        rect.bottom = std::max(rect.top, rect.bottom - inset / 3);
    } else {
        // In the middle.
        const LONG height = layout_.LineHeight();
        rect.top = std::max<LONG>(0, (rect.bottom - height) / 2);
        rect.bottom = std::max(rect.top, std::min(rect.bottom, rect.top + height));
    }
    return rect;
}

int EditField::VisibleLines() const {
    const RECT rect = TextRect();
    return std::max(1, static_cast<int>(rect.bottom - rect.top) / layout_.LineHeight());
}

void EditField::BreakIntoLines() {
    if (HasLines()) {
        const RECT rect = TextRect();
        layout_.BreakLines(text_,
                           Wraps() ? std::max(1, static_cast<int>(rect.right - rect.left)) : 0);
    } else {
        layout_.SetLine(text_);
    }
    ScrollTo(static_cast<int64_t>(first_line_));
}

int EditField::LineStart(size_t line) const {
    const RECT rect = TextRect();
    const int room = static_cast<int>(rect.right - rect.left);
    const int width = layout_.LineWidth(text_, line);
    const DWORD place = Style() & (ES_CENTER | ES_RIGHT);
    if (place == 0 || width > room) return rect.left - scrolled_x_;
    return rect.left + (place == ES_RIGHT ? room - width : (room - width) / 2);
}

size_t EditField::PositionOf(POINT point) const {
    const RECT rect = TextRect();
    size_t line = 0;
    if (HasLines()) {
        const int64_t below = point.y < rect.top ? -1 : (point.y - rect.top) / layout_.LineHeight();
        const auto last = static_cast<int64_t>(layout_.Count()) - 1;
        line = static_cast<size_t>(
            std::clamp<int64_t>(static_cast<int64_t>(first_line_) + below, 0, last));
    }
    return layout_.PositionAt(text_, line, static_cast<int>(point.x) - LineStart(line));
}

POINT EditField::PointOfPosition(size_t position) const {
    const size_t line = layout_.LineOf(position);
    const RECT rect = TextRect();
    const int64_t lines = static_cast<int64_t>(line) - static_cast<int64_t>(first_line_);
    return {LineStart(line) + layout_.XOf(text_, line, position),
            static_cast<LONG>(rect.top + lines * layout_.LineHeight())};
}

void EditField::ScrollToCaret() {
    const size_t line = layout_.LineOf(caret_);
    const auto visible = static_cast<size_t>(VisibleLines());
    if (line < first_line_)
        ScrollTo(static_cast<int64_t>(line));
    else if (line >= first_line_ + visible)
        ScrollTo(static_cast<int64_t>(line - visible + 1));
    if (Wraps()) return;
    const RECT rect = TextRect();
    const int room = static_cast<int>(rect.right - rect.left);
    const int x = layout_.XOf(text_, line, caret_);
    // A little of what is beyond the caret is seen too.
    if (x < scrolled_x_) scrolled_x_ = std::max(0, x - room / 3);
    if (x > scrolled_x_ + room - 1) scrolled_x_ = x - room * 2 / 3;
    if (layout_.LineWidth(text_, line) < room) scrolled_x_ = 0;
}

void EditField::ScrollTo(int64_t line) {
    const int64_t most = static_cast<int64_t>(layout_.Count()) - VisibleLines();
    const auto limited =
        static_cast<size_t>(std::clamp<int64_t>(line, 0, std::max<int64_t>(0, most)));
    if (limited != first_line_) Redraw();
    first_line_ = limited;
    ShowScrollBar();
}

void EditField::ScrollSideways(int characters) {
    int widest = 0;
    for (size_t line = 0; line < layout_.Count(); ++line)
        widest = std::max(widest, layout_.LineWidth(text_, line));
    const int64_t x = scrolled_x_ + int64_t{characters} * layout_.AverageWidth();
    scrolled_x_ = static_cast<int>(std::clamp<int64_t>(x, 0, widest));
    Redraw();
}

LRESULT EditField::Scroll(WORD code, int position) {
    if (!HasLines()) return FALSE;
    const auto before = static_cast<int64_t>(first_line_);
    switch (code) {
    case SB_LINEUP:
        ScrollTo(before - 1);
        break;
    case SB_LINEDOWN:
        ScrollTo(before + 1);
        break;
    case SB_PAGEUP:
        ScrollTo(before - VisibleLines());
        break;
    case SB_PAGEDOWN:
        ScrollTo(before + VisibleLines());
        break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK:
        ScrollTo(position);
        break;
    case SB_TOP:
        ScrollTo(0);
        break;
    case SB_BOTTOM:
        ScrollTo(static_cast<int64_t>(layout_.Count()));
        break;
    default:
        return FALSE;
    }
    return MAKELONG(static_cast<int64_t>(first_line_) - before, TRUE);
}

void EditField::ShowScrollBar() const {
    if (!(Style() & WS_VSCROLL)) return;
    SCROLLINFO info = {};
    info.cbSize = sizeof(info);
    info.fMask = SIF_ALL | SIF_DISABLENOSCROLL;
    info.nMax = static_cast<int>(layout_.Count()) - 1;
    info.nPage = static_cast<UINT>(VisibleLines());
    info.nPos = static_cast<int>(first_line_);
    SetScrollInfo(Self(), SB_VERT, &info, TRUE);
}

} // namespace win32host
