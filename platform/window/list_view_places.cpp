// Where the rows and columns of list views are.
#include "window/list_view.h"
#include "window/text_measure.h"

#include <algorithm>

namespace win32host {
namespace {

constexpr int kRowPadding = 4;   // above and below the text together
constexpr int kCheckColumn = 18; // the width of check boxes
constexpr int kLabelPadding = 4;

RECT ViewRect(HWND window) {
    RECT client = {};
    GetClientRect(window, &client);
    return client;
}

} // namespace

void ListView::Changed() {
    InvalidateRect(Self(), nullptr, TRUE);
}

int ListView::CheckWidth() const {
    return HasChecks() ? TextMeasure(Self(), font_).Scaled(kCheckColumn) : 0;
}

int ListView::PageCount() const {
    return std::max(0, static_cast<int>(ViewRect(Self()).bottom) - header_height_) / row_height_;
}

void ListView::Arrange() {
    if (!header_ || arranging_) return;
    arranging_ = true; // scroll bars change the client area
    {
        const TextMeasure measure(Self(), font_);
        row_height_ = measure.LineHeight() + measure.Scaled(kRowPadding);
        if (HasChecks()) row_height_ = std::max(row_height_, measure.Scaled(kCheckColumn));
    }
    const int width = ColumnsWidth();
    if (!(Style() & LVS_NOSCROLL)) {
        // The vertical bar takes from the width, and the horizontal one from the height: twice.
        for (int pass = 0; pass < 2; ++pass) {
            top_ = std::clamp(top_, 0, std::max(0, Count() - std::max(1, PageCount())));
            left_ = std::clamp<int>(left_, 0, std::max<int>(0, width - ViewRect(Self()).right));
            SCROLLINFO info = {sizeof(info), SIF_RANGE | SIF_PAGE | SIF_POS, 0, 0, 0, 0, 0};
            info.nMax = std::max(0, Count() - 1);
            info.nPage = static_cast<UINT>(std::max(1, PageCount()));
            info.nPos = top_;
            SetScrollInfo(Self(), SB_VERT, &info, TRUE);
            info.nMax = std::max(0, width - 1);
            info.nPage = static_cast<UINT>(std::max<LONG>(1, ViewRect(Self()).right));
            info.nPos = left_;
            SetScrollInfo(Self(), SB_HORZ, &info, TRUE);
        }
    }
    RECT area = ViewRect(Self());
    WINDOWPOS place = {};
    HDLAYOUT layout = {&area, &place};
    header_height_ = 0;
    if (!(Style() & LVS_NOCOLUMNHEADER) &&
        SendMessageW(header_, HDM_LAYOUT, 0, reinterpret_cast<LPARAM>(&layout))) {
        SetWindowPos(header_, HWND_TOP, -left_, 0, place.cx + left_, place.cy, SWP_NOACTIVATE);
        header_height_ = place.cy;
    }
    arranging_ = false;
    Changed();
}

int ListView::RowTop(int at) const {
    return header_height_ + (at - top_) * row_height_;
}

RECT ListView::BoundsOf(int at) const {
    return {-left_, RowTop(at), ColumnsWidth() - left_, RowTop(at) + row_height_};
}

RECT ListView::LabelOf(int at) const {
    RECT rect = ColumnRect(0);
    rect.left = std::min<LONG>(rect.right, rect.left + CheckWidth());
    rect.top = RowTop(at);
    rect.bottom = rect.top + row_height_;
    return rect;
}

LRESULT ListView::ItemRect(int at, RECT* rect) {
    if (!Has(at) || !rect) return FALSE;
    const LONG part = rect->left;
    switch (part) {
    case LVIR_BOUNDS:
        *rect = BoundsOf(at);
        return TRUE;
    case LVIR_ICON:
        *rect = LabelOf(at);
        rect->right = rect->left;
        return TRUE;
    case LVIR_LABEL:
        *rect = LabelOf(at);
        return TRUE;
    case LVIR_SELECTBOUNDS:
        *rect = IsFullRow() ? BoundsOf(at) : LabelOf(at);
        return TRUE;
    default:
        return FALSE;
    }
}

LRESULT ListView::SubItemRect(int at, RECT* rect) const {
    if (!rect || !Has(at)) return FALSE;
    const int column = rect->top;
    const LONG part = rect->left;
    if (column < 0 || column >= static_cast<int>(columns_.size())) return FALSE;
    *rect = column == 0 && part == LVIR_LABEL ? LabelOf(at) : ColumnRect(column);
    if (column == 0 && part == LVIR_BOUNDS) *rect = BoundsOf(at);
    rect->top = RowTop(at);
    rect->bottom = rect->top + row_height_;
    return TRUE;
}

LRESULT ListView::HitTest(LVHITTESTINFO& info, bool sub_items) {
    info.iItem = info.iSubItem = -1;
    info.flags = LVHT_NOWHERE;
    const RECT client = ViewRect(Self());
    const POINT point = info.pt;
    if (!Holds(client, point)) {
        info.flags = (point.x < 0               ? LVHT_TOLEFT
                      : point.x >= client.right ? LVHT_TORIGHT
                                                : 0) |
                     (point.y < 0                ? LVHT_ABOVE
                      : point.y >= client.bottom ? LVHT_BELOW
                                                 : 0);
        return -1;
    }
    if (point.y < header_height_) return -1;
    const int at = top_ + (point.y - header_height_) / row_height_;
    if (!Has(at)) return -1;
    int column = -1;
    for (int i = 0; i < static_cast<int>(columns_.size()); ++i) {
        const RECT rect = ColumnRect(i);
        if (point.x >= rect.left && point.x < rect.right) column = i;
    }
    if (column == -1) return -1;
    RECT label = LabelOf(at);
    const bool on_check = HasChecks() && column == 0 && point.x < label.left;
    if (!sub_items && !IsFullRow()) {
        // Without full rows an item is its text.
        const TextMeasure measure(Self(), font_);
        const int text = measure.Width(TextOf(at, 0)) + 2 * measure.Scaled(kLabelPadding);
        label.right = std::min<LONG>(label.right, label.left + text);
        if (!on_check && (column != 0 || !Holds(label, point))) return -1;
    }
    info.flags = on_check ? LVHT_ONITEMSTATEICON : LVHT_ONITEMLABEL;
    info.iItem = at;
    info.iSubItem = sub_items ? column : 0;
    return at;
}

void ListView::ScrollTo(int top) {
    if (top == top_) return;
    top_ = std::max(0, top);
    Arrange();
}

void ListView::ScrollSideways(int left) {
    if (left == left_) return;
    left_ = std::max(0, left);
    Arrange();
}

bool ListView::Show(int at) {
    if (!Has(at)) return false;
    const int page = std::max(1, PageCount());
    if (at < top_)
        ScrollTo(at);
    else if (at >= top_ + page)
        ScrollTo(at - page + 1);
    return true;
}

} // namespace win32host
