// Which items of a list box are seen, and where.
#include "window/list_box.h"
#include "window/notify.h"

#include <algorithm>

namespace win32host {

static RECT ClientRect(HWND window) {
    RECT client = {};
    GetClientRect(window, &client);
    return client;
}

int ListBox::VisibleCount() const {
    return item_height_ > 0 ? std::max(1, ClientRect(Self()).bottom / item_height_) : 1;
}

RECT ListBox::RectOf(int at) const {
    const int top = (at - top_) * item_height_;
    const int width = std::max<int>(ClientRect(Self()).right, extent_);
    return {-left_, top, width - left_, top + item_height_};
}

int ListBox::ItemAt(POINT point) const {
    if (item_height_ <= 0 || point.y < 0) return -1;
    const int at = top_ + point.y / item_height_;
    return items_.Has(at) ? at : -1;
}

void ListBox::ScrollTo(int top) {
    top = std::clamp(top, 0, std::max(0, items_.Count() - VisibleCount()));
    if (top == top_) return;
    top_ = top;
    UpdateScrollBars();
    Changed();
}

void ListBox::Show(int at) {
    if (at < top_)
        ScrollTo(at);
    else if (at >= top_ + VisibleCount())
        ScrollTo(at - VisibleCount() + 1);
}

void ListBox::SetCaret(int at) {
    Redraw(caret_);
    caret_ = at;
    Show(at);
    Redraw(at);
}

void ListBox::Changed() {
    InvalidateRect(Self(), nullptr, TRUE);
}

void ListBox::Redraw(int at) const {
    if (!items_.Has(at)) return;
    const RECT rect = RectOf(at);
    InvalidateRect(Self(), &rect, FALSE);
}

void ListBox::UpdateScrollBars() {
    SCROLLINFO info = {sizeof(info), SIF_RANGE | SIF_PAGE | SIF_POS, 0, 0, 0, 0, 0};
    if (Style() & LBS_DISABLENOSCROLL) info.fMask |= SIF_DISABLENOSCROLL;
    info.nMax = std::max(0, items_.Count() - 1);
    info.nPage = static_cast<UINT>(VisibleCount());
    info.nPos = top_;
    if (has_vertical_) SetScrollInfo(Self(), SB_VERT, &info, TRUE);
    if (has_horizontal_) {
        info.nMax = std::max(0, extent_ - 1);
        info.nPage = static_cast<UINT>(ClientRect(Self()).right);
        info.nPos = left_;
        SetScrollInfo(Self(), SB_HORZ, &info, TRUE);
    }
}

// Only whole items are shown, unless the program wants its own height.
void ListBox::FitHeight() {
    if (Style() & (LBS_NOINTEGRALHEIGHT | LBS_OWNERDRAWVARIABLE) || item_height_ <= 0) return;
    const int height = ClientRect(Self()).bottom;
    const int rest = height % item_height_;
    if (height <= item_height_ || rest == 0) return;
    RECT rect = {};
    GetWindowRect(Self(), &rect);
    SetWindowPos(Self(), nullptr, 0, 0, rect.right - rect.left, rect.bottom - rect.top - rest,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace win32host
