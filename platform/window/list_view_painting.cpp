// How list views look.
#include "gdi/smooth.h"
#include "window/control_paint.h"
#include "window/list_view.h"
#include "window/look.h"

#include <algorithm>

namespace win32host {
namespace {

constexpr COLORREF kGridColor = RGB(236, 236, 236);
constexpr int kFirstPadding = 4; // beside the text of the first column, and of the others
constexpr int kOtherPadding = 6;

} // namespace

void ListView::Paint(WPARAM context) {
    const ControlPaint paint(Self(), context, font_);
    const HDC dc = paint.Context();
    const RECT& client = paint.Client();
    const bool enabled = IsWindowEnabled(Self()) != FALSE;
    COLORREF background = look::FieldColor(enabled ? look::kNormal : look::kDisabled);
    if (background_ != CLR_DEFAULT && background_ != CLR_NONE && enabled) background = background_;
    FillPlain(dc, client, background);
    for (int at = top_; Has(at) && RowTop(at) < client.bottom; ++at) PaintRow(dc, at);
    if (extended_ & LVS_EX_GRIDLINES) PaintGrid(dc, client);
}

void ListView::PaintRow(HDC dc, int at) {
    const bool enabled = IsWindowEnabled(Self()) != FALSE;
    const bool shows = has_focus_ || Style() & LVS_SHOWSELALWAYS;
    const bool selected = shows && At(at).state & LVIS_SELECTED;
    const look::State state = has_focus_ && enabled ? look::kFocused : look::kNormal;
    const COLORREF own = text_color_ == CLR_DEFAULT ? GetSysColor(COLOR_WINDOWTEXT) : text_color_;
    const COLORREF normal = enabled ? own : look::TextColor(look::kDisabled);
    const RECT chosen = SelectionRect(dc, at);
    if (selected) look::DrawSelection(dc, chosen, state);
    if (HasChecks()) {
        RECT mark = ColumnRect(0);
        mark.right = std::min<LONG>(mark.right, mark.left + CheckWidth());
        mark.top = RowTop(at);
        mark.bottom = mark.top + row_height_;
        const bool on = (At(at).state & LVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2u);
        look::DrawCheckMark(dc, mark,
                            (on ? look::kChecked : look::kNormal) |
                                (enabled ? look::kNormal : look::kDisabled));
    }
    const int mode = SetBkMode(dc, TRANSPARENT);
    const COLORREF before = GetTextColor(dc);
    for (int column = 0; column < static_cast<int>(columns_.size()) && Has(at); ++column) {
        const bool inside = selected && (column == 0 || IsFullRow());
        SetTextColor(dc, inside && enabled ? look::SelectionTextColor(state) : normal);
        PaintCell(dc, at, column);
    }
    SetTextColor(dc, before);
    SetBkMode(dc, mode);
    if (Has(at) && has_focus_ && At(at).state & LVIS_FOCUSED) look::DrawFocus(dc, chosen);
}

void ListView::PaintCell(HDC dc, int at, int column) {
    RECT rect = column == 0 ? LabelOf(at) : ColumnRect(column);
    rect.top = RowTop(at);
    rect.bottom = rect.top + row_height_;
    const int padding = look::Scaled(dc, column == 0 ? kFirstPadding : kOtherPadding);
    rect.left += padding;
    rect.right -= padding;
    if (rect.left >= rect.right) return;
    const Column& known = columns_[static_cast<size_t>(column)];
    UINT format = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
    if ((known.format & LVCFMT_JUSTIFYMASK) == LVCFMT_RIGHT) format |= DT_RIGHT;
    if ((known.format & LVCFMT_JUSTIFYMASK) == LVCFMT_CENTER) format |= DT_CENTER;
    const std::u16string text = TextOf(at, known.sub_item);
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &rect, format);
}

// What is highlighted of an item: the row, or the text of its first column.
RECT ListView::SelectionRect(HDC dc, int at) {
    RECT rect = LabelOf(at);
    if (IsFullRow()) {
        rect.right = std::max(rect.right, BoundsOf(at).right);
        return rect;
    }
    const std::u16string text = TextOf(at, 0);
    SIZE size = {};
    GetTextExtentPointW(dc, text.c_str(), static_cast<int>(text.size()), &size);
    rect.right =
        std::min<LONG>(rect.right, rect.left + size.cx + 2 * look::Scaled(dc, kFirstPadding));
    return rect;
}

void ListView::PaintGrid(HDC dc, const RECT& client) const {
    const int line = look::Scaled(dc, 1);
    for (int at = top_ + 1; RowTop(at) <= client.bottom; ++at)
        FillPlain(dc, {0, RowTop(at) - line, client.right, RowTop(at)}, kGridColor);
    for (int column = 0; column < static_cast<int>(columns_.size()); ++column) {
        const RECT rect = ColumnRect(column);
        FillPlain(dc, {rect.right - line, header_height_, rect.right, client.bottom}, kGridColor);
    }
}

} // namespace win32host
