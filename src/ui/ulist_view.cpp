#include "ui/ulist_view.h"

void UListView::SetColumns(std::span<const UColumnInfo> columns) {
    for (int column = GetColumnCount() - 1; column >= 0; --column)
        Send(LVM_DELETECOLUMN, static_cast<WPARAM>(column));
    int index = 0;
    for (const UColumnInfo& info : columns) {
        LVCOLUMNW column = {};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT | LVCF_SUBITEM;
        column.fmt = info.format;
        column.cx = info.width;
        column.pszText = const_cast<WCHAR*>(info.title.wstring());
        column.iSubItem = index;
        Send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(index++), reinterpret_cast<LPARAM>(&column));
    }
    RestoreWidths();
}

int UListView::GetColumnCount() const {
    const auto header = reinterpret_cast<HWND>(Send(LVM_GETHEADER));
    return header ? static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0)) : 0;
}

void UListView::SaveWidths() {
    const int count = GetColumnCount();
    if (count == 0 || !widths_.SetSize(count)) return;
    for (int column = 0; column < count; ++column)
        widths_[column] = static_cast<int>(Send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column)));
}

void UListView::RestoreWidths() {
    if (widths_.GetSize() != GetColumnCount()) return;
    for (int column = 0; column < widths_.GetSize(); ++column)
        Send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), widths_[column]);
}

void UListView::SetFullRowSelect() {
    Send(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
}

int UListView::InsertItem(int index, const OStringArray& texts, LPARAM data) {
    if (!window_) return -1;
    LVITEMW item = {};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = index;
    item.lParam = data;
    const OString first = texts.GetSize() > 0 ? texts[0] : OString();
    item.pszText = const_cast<WCHAR*>(first.wstring());
    const auto at = static_cast<int>(Send(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
    for (int column = 1; at >= 0 && column < texts.GetSize(); ++column)
        SetItemText(at, column, texts[column]);
    return at;
}

OString UListView::GetItemText(int index, int column) const {
    if (!window_) return OString();
    WCHAR text[1024] = {};
    LVITEMW item = {};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = 1024;
    Send(LVM_GETITEMTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    return OString(item.pszText);
}

void UListView::SetItemText(int index, int column, const OString& text) {
    LVITEMW item = {};
    item.iSubItem = column;
    item.pszText = const_cast<WCHAR*>(text.wstring());
    Send(LVM_SETITEMTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
}

LPARAM UListView::GetData(int index) const {
    LVITEMW item = {};
    item.mask = LVIF_PARAM;
    item.iItem = index;
    return Send(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)) ? item.lParam : 0;
}

void UListView::SetData(int index, LPARAM data) {
    LVITEMW item = {};
    item.mask = LVIF_PARAM;
    item.iItem = index;
    item.lParam = data;
    Send(LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

int UListView::FindData(LPARAM data) const {
    const int count = GetCount();
    for (int index = 0; index < count; ++index)
        if (GetData(index) == data) return index;
    return -1;
}

bool UListView::IsSelected(int index) const {
    return Send(LVM_GETITEMSTATE, static_cast<WPARAM>(index), LVIS_SELECTED) != 0;
}

void UListView::Select(int index, bool select) {
    LVITEMW item = {};
    item.stateMask = LVIS_SELECTED;
    item.state = select ? LVIS_SELECTED : 0;
    Send(LVM_SETITEMSTATE, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
}

int UListView::GetNextSelected(int index) const {
    if (!window_) return -1;
    return static_cast<int>(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(index), LVNI_SELECTED));
}

void UListView::SetFocused(int index) {
    LVITEMW item = {};
    item.stateMask = LVIS_FOCUSED;
    item.state = LVIS_FOCUSED;
    Send(LVM_SETITEMSTATE, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
}

bool UListView::OnLButtonDoubleClick(uint32_t flags, CPoint at) {
    LVHITTESTINFO hit = {};
    hit.pt = at;
    Send(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    CallControl(WM_LBUTTONDBLCLK, flags, MAKELPARAM(at.x, at.y));
    if (hit.iItem >= 0 && hit.flags & LVHT_ONITEM)
        SendCommand(DOUBLE_CLICKED, reinterpret_cast<LPARAM>(window_));
    return true;
}
