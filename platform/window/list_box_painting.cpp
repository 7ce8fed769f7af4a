// How list boxes look.
#include "window/control_paint.h"
#include "window/list_box.h"
#include "window/look.h"

#include <algorithm>

namespace win32host {

static constexpr int kItemPadding = 3; // beside the text of an item

void ListBox::Paint(WPARAM context) {
    const ControlPaint paint(Self(), context, font_);
    const HDC dc = paint.Context();
    LRESULT brush = SendMessageW(Owner(), WM_CTLCOLORLISTBOX, reinterpret_cast<WPARAM>(dc),
                                 reinterpret_cast<LPARAM>(Self()));
    if (!brush)
        brush = DefWindowProcW(Self(), WM_CTLCOLORLISTBOX, reinterpret_cast<WPARAM>(dc),
                               reinterpret_cast<LPARAM>(Self()));
    FillRect(dc, &paint.Client(), reinterpret_cast<HBRUSH>(brush));
    for (int at = top_; items_.Has(at) && RectOf(at).top < paint.Client().bottom; ++at) {
        if (IsOwnerDrawn())
            AskOwnerToDraw(dc, at);
        else
            PaintItem(dc, at);
    }
}

bool ListBox::IsItemSelected(int at) const {
    return IsMultiple() ? items_[at].selected : at == current_;
}

void ListBox::PaintItem(HDC dc, int at) const {
    const RECT rect = RectOf(at);
    const bool enabled = IsWindowEnabled(Self()) != FALSE;
    const bool selected = IsItemSelected(at) && !(Style() & LBS_NOSEL);
    const look::State state = ShowsFocus() ? look::kFocused : look::kNormal;
    COLORREF color = GetTextColor(dc);
    if (selected && enabled) {
        look::DrawSelection(dc, rect, state);
        color = look::SelectionTextColor(state);
    } else if (selected) {
        look::DrawSelection(dc, rect, look::kNormal);
    }
    if (!enabled) color = look::TextColor(look::kDisabled);
    const COLORREF before = SetTextColor(dc, color);
    const int mode = SetBkMode(dc, TRANSPARENT);
    PaintItemText(dc, items_[at].text, rect);
    SetBkMode(dc, mode);
    SetTextColor(dc, before);
    if (has_focus_ && at == caret_) look::DrawFocus(dc, rect);
}

// Text up to a tab, from one stop to the next.
void ListBox::PaintItemText(HDC dc, std::u16string_view text, RECT rect) const {
    rect.left += look::Scaled(dc, kItemPadding);
    const LONG start = rect.left;
    constexpr UINT kFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX;
    while (!text.empty()) {
        const size_t tab = Style() & LBS_USETABSTOPS ? text.find(u'\t') : text.npos;
        const std::u16string_view piece = text.substr(0, tab);
        RECT size = rect;
        const auto length = static_cast<int>(piece.size());
        DrawTextW(dc, piece.data(), length, &size, kFormat | DT_CALCRECT);
        DrawTextW(dc, piece.data(), length, &rect, kFormat);
        if (tab == text.npos) return;
        text.remove_prefix(tab + 1);
        const int used = piece.empty() ? rect.left - start : size.right - start;
        rect.left = start + NextTabStop(dc, used);
    }
}

int ListBox::NextTabStop(HDC dc, int from) const {
    const auto stop = std::upper_bound(tab_stops_.begin(), tab_stops_.end(), from);
    if (tab_stops_.size() > 1 && stop != tab_stops_.end()) return *stop;
    TEXTMETRICW metrics = {};
    GetTextMetricsW(dc, &metrics);
    // Without stops, and after the last one, at equal distances.
    const int distance =
        std::max<int>(1, tab_stops_.size() == 1 ? tab_stops_[0] : metrics.tmAveCharWidth * 8);
    return (from / distance + 1) * distance;
}

void ListBox::AskOwnerToDraw(HDC dc, int at) const {
    DRAWITEMSTRUCT item = {};
    item.CtlType = ODT_LISTBOX;
    item.CtlID = static_cast<UINT>(Id());
    item.itemID = static_cast<UINT>(at);
    item.itemAction = ODA_DRAWENTIRE;
    if (IsItemSelected(at)) item.itemState |= ODS_SELECTED;
    if (has_focus_ && at == caret_) item.itemState |= ODS_FOCUS;
    if (!IsWindowEnabled(Self())) item.itemState |= ODS_DISABLED;
    item.hwndItem = Self();
    item.hDC = dc;
    item.rcItem = RectOf(at);
    item.itemData = items_[at].data;
    const int saved = SaveDC(dc);
    if (item.itemState & ODS_SELECTED) {
        SetTextColor(dc, look::SelectionTextColor(look::kFocused));
        SetBkColor(dc, look::SelectionColor(look::kFocused));
    }
    SendMessageW(Owner(), WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
    RestoreDC(dc, saved);
}

} // namespace win32host
