// Messages of programs to list boxes.
#include "window/list_box.h"

#include "host/guarded.h"
#include "window/field_frame.h"
#include "window/notify.h"
#include "window/scroll_bars.h"
#include "window/text_measure.h"

#include <algorithm>

namespace win32host {

LRESULT ListBox::Handle(UINT message, WPARAM first, LPARAM second) {
    if (message >= LB_ADDSTRING && message <= LB_ITEMFROMPOINT)
        return HandleItems(message, first, second);
    switch (message) {
    case WM_CREATE:
        Create();
        return 0;
    case WM_DESTROY:
        Reset();
        return 0;
    case WM_SETFONT:
        font_ = reinterpret_cast<HFONT>(first);
        if (!IsOwnerDrawn()) item_height_ = TextMeasure(Self(), font_).LineHeight();
        FitHeight();
        Changed();
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(font_);
    case WM_SIZE:
        FitHeight();
        ScrollTo(top_);
        UpdateScrollBars();
        return 0;
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        has_focus_ = message == WM_SETFOCUS;
        Changed();
        Notify(has_focus_ ? LBN_SETFOCUS : LBN_KILLFOCUS);
        return 0;
    case WM_ENABLE:
        Changed();
        return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_LBUTTONUP:
    case WM_MOUSEMOVE:
    case WM_CAPTURECHANGED:
        return HandleMouse(message, second);
    case WM_MOUSEWHEEL:
        ScrollTo(top_ - 3 * static_cast<SHORT>(HIWORD(first)) / WHEEL_DELTA);
        return 0;
    case WM_KEYDOWN:
        KeyDown(first);
        return 0;
    case WM_CHAR:
        Character(static_cast<WCHAR>(first));
        return 0;
    case WM_VSCROLL:
        ScrollTo(ScrolledTo(Self(), SB_VERT, first, 1));
        return 0;
    case WM_HSCROLL:
        left_ = ScrolledTo(Self(), SB_HORZ, first, TextMeasure(Self(), font_).AverageWidth());
        Changed();
        return 0;
    case WM_SETREDRAW:
        DefWindowProcW(Self(), message, first, second);
        if (first) Changed();
        return 0;
    case WM_ERASEBKGND:
        return TRUE;
    case WM_NCPAINT:
        PaintFieldFrame(Self(), has_focus_);
        return 0;
    case WM_PAINT:
    case WM_PRINTCLIENT:
        Paint(first);
        return 0;
    default:
        return DefWindowProcW(Self(), message, first, second);
    }
}

void ListBox::Create() {
    item_height_ = TextMeasure(Self(), font_).LineHeight();
    if (IsOwnerDrawn()) MeasureItems();
    has_vertical_ = Style() & WS_VSCROLL;
    has_horizontal_ = Style() & WS_HSCROLL;
    FitHeight();
    UpdateScrollBars();
}

void ListBox::Notify(int code) const {
    if (!(Style() & LBS_NOTIFY) && code != LBN_SETFOCUS && code != LBN_KILLFOCUS) return;
    SendMessageW(Owner(), WM_COMMAND,
                 static_cast<WPARAM>(MAKELONG(static_cast<WORD>(Id()), static_cast<WORD>(code))),
                 reinterpret_cast<LPARAM>(Self()));
}

LRESULT ListBox::HandleItems(UINT message, WPARAM first, LPARAM second) {
    const int at = static_cast<int>(first);
    switch (message) {
    case LB_ADDSTRING:
        return Add(second, -1, Style() & LBS_SORT);
    case LB_INSERTSTRING:
        return Add(second, at, false);
    case LB_DELETESTRING:
        return Delete(at);
    case LB_RESETCONTENT:
        Reset();
        return LB_OKAY;
    case LB_GETCOUNT:
        return items_.Count();
    case LB_INITSTORAGE:
        return Guarded(LRESULT(LB_ERRSPACE), [&]() -> LRESULT {
            items_.Reserve(items_.Count() + at);
            return items_.Count() + at;
        });
    case LB_GETTEXT:
        return GetText(at, second);
    case LB_GETTEXTLEN:
        if (!items_.Has(at)) return LB_ERR;
        return HasStrings() ? static_cast<LRESULT>(items_[at].text.size()) : sizeof(DWORD);
    case LB_GETITEMDATA:
        return items_.Has(at) ? static_cast<LRESULT>(items_[at].data) : LB_ERR;
    case LB_SETITEMDATA:
        if (!items_.Has(at)) return LB_ERR;
        items_[at].data = static_cast<ULONG_PTR>(second);
        return TRUE;
    case LB_FINDSTRING:
        return Find(at, second, false);
    case LB_FINDSTRINGEXACT:
        return Find(at, second, true);
    case LB_SELECTSTRING:
        return SelectText(at, second);
    default:
        return HandleSelection(message, first, second);
    }
}

LRESULT ListBox::HandleSelection(UINT message, WPARAM first, LPARAM second) {
    const int at = static_cast<int>(first);
    switch (message) {
    case LB_GETCURSEL:
        if (!IsMultiple()) return current_;
        return items_.Count() > 0 ? caret_ : LB_ERR;
    case LB_SETCURSEL:
        return SetCurrent(at);
    case LB_GETSEL:
        if (!items_.Has(at)) return LB_ERR;
        return IsMultiple() ? items_[at].selected : at == current_;
    case LB_SETSEL:
        return SetSelected(first != 0, static_cast<int>(second));
    case LB_GETSELCOUNT:
        return IsMultiple() ? items_.SelectedCount() : LB_ERR;
    case LB_GETSELITEMS:
        return SelectedItems(at, reinterpret_cast<int*>(second));
    case LB_SELITEMRANGE:
        if (!IsMultiple()) return LB_ERR;
        SelectRange(LOWORD(second), HIWORD(second), first != 0);
        return LB_OKAY;
    case LB_SELITEMRANGEEX: {
        if (!IsMultiple()) return LB_ERR;
        const int to = static_cast<int>(second);
        SelectRange(std::min(at, to), std::max(at, to), at <= to);
        return LB_OKAY;
    }
    case LB_GETCARETINDEX:
        return caret_;
    case LB_SETCARETINDEX:
        if (!items_.Has(at)) return LB_ERR;
        SetCaret(at);
        return LB_OKAY;
    case LB_GETANCHORINDEX:
        return anchor_;
    case LB_SETANCHORINDEX:
        if (at != -1 && !items_.Has(at)) return LB_ERR;
        anchor_ = at;
        return LB_OKAY;
    default:
        return HandlePlaces(message, first, second);
    }
}

LRESULT ListBox::HandlePlaces(UINT message, WPARAM first, LPARAM second) {
    const int at = static_cast<int>(first);
    switch (message) {
    case LB_GETTOPINDEX:
        return top_;
    case LB_SETTOPINDEX:
        if (items_.Count() > 0 && !items_.Has(at)) return LB_ERR;
        ScrollTo(at);
        return LB_OKAY;
    case LB_GETITEMRECT:
        if (!second) return LB_ERR;
        *reinterpret_cast<RECT*>(second) = items_.Has(at) ? RectOf(at) : RECT{};
        return items_.Has(at) ? LB_OKAY : LB_ERR;
    case LB_ITEMFROMPOINT:
        return ItemFromPoint(PointOf(second));
    case LB_GETITEMHEIGHT:
        return item_height_;
    case LB_SETITEMHEIGHT:
        if (second <= 0 || second > 0xFFFF) return LB_ERR;
        item_height_ = static_cast<int>(second);
        FitHeight();
        Changed();
        return LB_OKAY;
    case LB_SETTABSTOPS:
        return Guarded(LRESULT(FALSE),
                       [&] { return SetTabStops(at, reinterpret_cast<const int*>(second)); });
    case LB_GETHORIZONTALEXTENT:
        return extent_;
    case LB_SETHORIZONTALEXTENT:
        extent_ = std::max(0, at);
        UpdateScrollBars();
        return LB_OKAY;
    default:
        return LB_ERR;
    }
}

LRESULT ListBox::Add(LPARAM text, int at, bool sorted) {
    return Guarded(LRESULT(LB_ERRSPACE), [&]() -> LRESULT {
        ListItem item;
        if (HasStrings()) {
            const auto from = reinterpret_cast<LPCWSTR>(text);
            item.text = from ? from : u"";
        } else {
            item.data = static_cast<ULONG_PTR>(text);
        }
        if (sorted) at = SortedPlace(item);
        if (at == -1) at = items_.Count();
        if (at < 0 || at > items_.Count()) return LB_ERR;
        items_.Insert(at, std::move(item));
        if (current_ >= at) ++current_;
        if (caret_ >= at && items_.Count() > 1 && IsMultiple()) ++caret_;
        UpdateScrollBars();
        Changed();
        return at;
    });
}

LRESULT ListBox::Delete(int at) {
    if (!items_.Has(at)) return LB_ERR;
    TellDeleted(at);
    if (at >= items_.Count()) return LB_ERR; // whoever was told may have deleted others
    items_.Erase(at);
    if (current_ == at)
        current_ = -1;
    else if (current_ > at)
        --current_;
    if (caret_ > at || (caret_ == at && caret_ == items_.Count())) caret_ = std::max(0, caret_ - 1);
    if (anchor_ >= items_.Count()) anchor_ = items_.Count() - 1;
    ScrollTo(top_);
    UpdateScrollBars();
    Changed();
    return items_.Count();
}

void ListBox::Reset() {
    for (int at = items_.Count() - 1; at >= 0; --at) TellDeleted(at);
    items_.Clear();
    current_ = -1;
    caret_ = 0;
    anchor_ = -1;
    top_ = 0;
    UpdateScrollBars();
    Changed();
}

LRESULT ListBox::GetText(int at, LPARAM buffer) const {
    if (!items_.Has(at)) return LB_ERR;
    const ListItem& item = items_[at];
    if (!HasStrings()) {
        if (buffer) *reinterpret_cast<ULONG_PTR*>(buffer) = item.data;
        return sizeof(DWORD);
    }
    const auto size = static_cast<int>(item.text.size());
    // Callers have asked for the length.
    CopyText(item.text, reinterpret_cast<LPWSTR>(buffer), size + 1);
    return size;
}

LRESULT ListBox::Find(int start, LPARAM text, bool all_of_it) const {
    if (HasStrings()) {
        const auto wanted = reinterpret_cast<LPCWSTR>(text);
        return wanted ? items_.Find(start, wanted, all_of_it) : LB_ERR;
    }
    for (int i = 1; i <= items_.Count(); ++i) {
        const int at = (std::max(start, -1) + i) % items_.Count();
        if (items_[at].data == static_cast<ULONG_PTR>(text)) return at;
    }
    return LB_ERR;
}

LRESULT ListBox::SelectText(int start, LPARAM text) {
    const auto found = static_cast<int>(Find(start, text, false));
    if (found == LB_ERR) return LB_ERR;
    if (IsMultiple())
        SetSelected(true, found);
    else
        SetCurrent(found);
    return found;
}

LRESULT ListBox::SetCurrent(int at) {
    if (IsMultiple()) return LB_ERR;
    if (at != -1 && !items_.Has(at)) return LB_ERR;
    SelectOnly(at);
    return at == -1 ? LB_ERR : at;
}

LRESULT ListBox::SetSelected(bool selected, int at) {
    if (!IsMultiple()) return LB_ERR;
    if (at == -1) {
        SelectRange(0, items_.Count() - 1, selected);
        return LB_OKAY;
    }
    if (!items_.Has(at)) return LB_ERR;
    items_[at].selected = selected;
    if (selected) {
        anchor_ = at;
        SetCaret(at);
    }
    Redraw(at);
    return LB_OKAY;
}

LRESULT ListBox::SelectedItems(int room, int* items) const {
    if (!IsMultiple() || !items) return LB_ERR;
    int count = 0;
    for (int at = 0; at < items_.Count() && count < room; ++at)
        if (items_[at].selected) items[count++] = at;
    return count;
}

LRESULT ListBox::SetTabStops(int count, const int* stops) {
    if (!(Style() & LBS_USETABSTOPS)) return FALSE;
    // In quarters of the average width of a character. One stop repeats itself.
    const int unit = TextMeasure(Self(), font_).AverageWidth();
    tab_stops_.clear();
    for (int i = 0; stops && i < count; ++i) tab_stops_.push_back(stops[i] * unit / 4);
    Changed();
    return TRUE;
}

LRESULT ListBox::ItemFromPoint(POINT point) const {
    RECT client;
    GetClientRect(Self(), &client);
    const int row = item_height_ > 0 ? point.y / item_height_ : 0;
    const int at = std::clamp(top_ + (point.y < 0 ? -1 : row), 0, std::max(0, items_.Count() - 1));
    return MAKELONG(at, Holds(client, point) ? 0 : 1);
}

void RegisterListBox();
void RegisterListBox() {
    RegisterControl<ListBox>(TEXT("ListBox"), CS_DBLCLKS);
}

} // namespace win32host
