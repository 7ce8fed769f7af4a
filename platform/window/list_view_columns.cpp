// The columns of list views. Their header keeps titles, widths and order.
#include "window/list_view.h"
#include "window/text_measure.h"

#include <algorithm>

namespace win32host {
namespace {

constexpr int kCellPadding = 12; // of a text in its column, on both sides together
constexpr int kUsualWidth = 10;

void FillTitle(const LVCOLUMNW& column, HDITEMW& title) {
    if (column.mask & LVCF_TEXT) {
        title.mask |= HDI_TEXT;
        title.pszText = column.pszText;
    }
    if (column.mask & LVCF_WIDTH) {
        title.mask |= HDI_WIDTH;
        title.cxy = column.cx;
    }
    if (column.mask & LVCF_FMT) {
        title.mask |= HDI_FORMAT;
        title.fmt = (column.fmt & LVCFMT_JUSTIFYMASK) | HDF_STRING;
    }
    if (column.mask & LVCF_ORDER) {
        title.mask |= HDI_ORDER;
        title.iOrder = column.iOrder;
    }
}

} // namespace

LRESULT ListView::InsertColumn(int at, const LVCOLUMNW& column) {
    if (at < 0) return -1;
    at = std::min(at, static_cast<int>(columns_.size()));
    columns_.reserve(columns_.size() + 1);
    HDITEMW title = {};
    title.mask = HDI_WIDTH;
    title.cxy = kUsualWidth;
    FillTitle(column, title);
    if (at == 0) title.fmt &= ~HDF_JUSTIFYMASK; // the first column is always on the left
    if (SendMessageW(header_, HDM_INSERTITEMW, static_cast<WPARAM>(at),
                     reinterpret_cast<LPARAM>(&title)) == -1)
        return -1;
    Column added;
    if (column.mask & LVCF_FMT && at != 0) added.format = column.fmt;
    // What was at and after its place moves on, with its texts.
    added.sub_item = at;
    if (at < static_cast<int>(columns_.size()))
        for (auto& item : items_)
            if (item->cells.size() > static_cast<size_t>(at))
                item->cells.insert(item->cells.begin() + at, Cell());
    columns_.insert(columns_.begin() + at, added);
    for (size_t i = 0; i < columns_.size(); ++i) columns_[i].sub_item = static_cast<int>(i);
    if (column.mask & LVCF_SUBITEM) columns_[static_cast<size_t>(at)].sub_item = column.iSubItem;
    Arrange();
    return at;
}

LRESULT ListView::DeleteColumn(int at) {
    if (!SendMessageW(header_, HDM_DELETEITEM, static_cast<WPARAM>(at), 0)) return FALSE;
    columns_.erase(columns_.begin() + at);
    for (auto& item : items_)
        if (item->cells.size() > static_cast<size_t>(at))
            item->cells.erase(item->cells.begin() + at);
    for (size_t i = 0; i < columns_.size(); ++i) columns_[i].sub_item = static_cast<int>(i);
    Arrange();
    return TRUE;
}

LRESULT ListView::GetColumn(int at, LVCOLUMNW& column) const {
    HDITEMW title = {};
    title.mask = HDI_WIDTH | HDI_ORDER;
    if (column.mask & LVCF_TEXT) {
        title.mask |= HDI_TEXT;
        title.pszText = column.pszText;
        title.cchTextMax = column.cchTextMax;
    }
    if (!SendMessageW(header_, HDM_GETITEMW, static_cast<WPARAM>(at),
                      reinterpret_cast<LPARAM>(&title)))
        return FALSE;
    const Column& known = columns_[static_cast<size_t>(at)];
    if (column.mask & LVCF_FMT) column.fmt = known.format;
    if (column.mask & LVCF_WIDTH) column.cx = title.cxy;
    if (column.mask & LVCF_SUBITEM) column.iSubItem = known.sub_item;
    if (column.mask & LVCF_ORDER) column.iOrder = title.iOrder;
    return TRUE;
}

LRESULT ListView::SetColumn(int at, const LVCOLUMNW& column) {
    HDITEMW title = {};
    FillTitle(column, title);
    if (!SendMessageW(header_, HDM_SETITEMW, static_cast<WPARAM>(at),
                      reinterpret_cast<LPARAM>(&title)))
        return FALSE;
    Column& known = columns_[static_cast<size_t>(at)];
    if (column.mask & LVCF_FMT && at != 0) known.format = column.fmt;
    if (column.mask & LVCF_SUBITEM) known.sub_item = column.iSubItem;
    Changed();
    return TRUE;
}

int ListView::ColumnWidth(int at) const {
    HDITEMW title = {};
    title.mask = HDI_WIDTH;
    SendMessageW(header_, HDM_GETITEMW, static_cast<WPARAM>(at), reinterpret_cast<LPARAM>(&title));
    return title.cxy;
}

LRESULT ListView::SetColumnWidth(int at, int width) {
    if (at < 0 || at >= static_cast<int>(columns_.size())) return FALSE;
    if (width == LVSCW_AUTOSIZE || width == LVSCW_AUTOSIZE_USEHEADER)
        width = WidthForTexts(at, width == LVSCW_AUTOSIZE_USEHEADER);
    if (width < 0) return FALSE;
    HDITEMW title = {};
    title.mask = HDI_WIDTH;
    title.cxy = width;
    return SendMessageW(header_, HDM_SETITEMW, static_cast<WPARAM>(at),
                        reinterpret_cast<LPARAM>(&title));
}

int ListView::WidthForTexts(int at, bool with_title) {
    const TextMeasure measure(Self(), font_);
    const int sub_item = columns_[static_cast<size_t>(at)].sub_item;
    int widest = 0;
    for (int i = 0; i < Count(); ++i) widest = std::max(widest, measure.Width(TextOf(i, sub_item)));
    int width = widest + measure.Scaled(kCellPadding) + (at == 0 ? CheckWidth() : 0);
    if (!with_title) return width;
    WCHAR text[260] = {};
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT;
    column.pszText = text;
    column.cchTextMax = 260;
    GetColumn(at, column);
    width = std::max(width, measure.Width(text) + measure.Scaled(kCellPadding));
    if (at != static_cast<int>(columns_.size()) - 1) return width;
    // The last column takes what is left.
    RECT client = {};
    GetClientRect(Self(), &client);
    return std::max<int>(width, client.right - (ColumnsWidth() - ColumnWidth(at)));
}

RECT ListView::ColumnRect(int at) const {
    RECT rect = {};
    SendMessageW(header_, HDM_GETITEMRECT, static_cast<WPARAM>(at),
                 reinterpret_cast<LPARAM>(&rect));
    rect.left -= left_;
    rect.right -= left_;
    return rect;
}

int ListView::ColumnsWidth() const {
    int width = 0;
    for (int at = 0; at < static_cast<int>(columns_.size()); ++at) width += ColumnWidth(at);
    return width;
}

// What the header tells is passed on, after what the list view itself makes of it.
LRESULT ListView::FromHeader(const NMHDR& head, LPARAM record) {
    const int at = reinterpret_cast<const NMHEADERW&>(head).iItem;
    if (head.code == HDN_ITEMCLICKW) {
        NMLISTVIEW click = {};
        click.iItem = -1;
        click.iSubItem = at;
        NotifyParent(Self(), LVN_COLUMNCLICK, click.hdr);
    } else if (head.code == HDN_ITEMCHANGEDW) {
        Arrange();
    } else if (head.code == HDN_DIVIDERDBLCLICKW) {
        SetColumnWidth(at, LVSCW_AUTOSIZE);
    }
    return SendMessageW(Parent(), WM_NOTIFY, head.idFrom, record);
}

} // namespace win32host
