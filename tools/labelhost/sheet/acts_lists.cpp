// Acts on lists, and on controls with a range.
#include "sheet/acts.h"

#include "fault.h"
#include "sheet/input.h"
#include "sheet/items.h"
#include "sheet/windows_read.h"

#include <commctrl.h>

#include <algorithm>
#include <memory>

namespace {

[[noreturn]] void ThrowNot(HWND control, const char* what) {
    throw Fault("control " + std::to_string(IdOf(control)) + " is not " + what);
}

POINT Middle(const RECT& rect) {
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

// Where an item of a list can be clicked, after it has been scrolled into sight.
POINT PlaceOf(HWND list, int item) {
    RECT rect = {};
    if (ListKindOf(list) == ListKind::ListView) {
        SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(item), FALSE);
        rect.left = LVIR_LABEL;
        SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(item),
                     reinterpret_cast<LPARAM>(&rect));
        return {rect.left + 2, (rect.top + rect.bottom) / 2};
    }
    RECT area = {};
    GetClientRect(list, &area);
    SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&rect));
    if (rect.top < 0 || rect.bottom > area.bottom) {
        SendMessageW(list, LB_SETTOPINDEX, static_cast<WPARAM>(item), 0);
        SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(item),
                     reinterpret_cast<LPARAM>(&rect));
    }
    return Middle(rect);
}

// The list that drops down closes before the choice is told, as the documentation allows.
void ChooseInComboBox(HWND box, int item) {
    const bool drops = (StyleOf(box) & 3) != CBS_SIMPLE;
    if (drops) SendCommand(box, CBN_DROPDOWN);
    SendMessageW(box, CB_SETCURSEL, static_cast<WPARAM>(item), 0);
    SendCommand(box, CBN_SELENDOK);
    if (drops) SendCommand(box, CBN_CLOSEUP);
    SendCommand(box, CBN_SELCHANGE);
}

void ChooseInListBox(HWND list, int item) {
    SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(item), 0);
    if (StyleOf(list) & LBS_NOTIFY) SendCommand(list, LBN_SELCHANGE);
}

// A selection that was changed item by item.
void SelectInListBox(HWND list, int item, bool selected) {
    SendMessageW(list, LB_SETSEL, selected, item);
    if (StyleOf(list) & LBS_NOTIFY) SendCommand(list, LBN_SELCHANGE);
}

void SelectInListView(HWND list, int item, bool selected) {
    LVITEMW state = {};
    state.stateMask = LVIS_SELECTED;
    state.state = selected ? LVIS_SELECTED : 0;
    SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(item),
                 reinterpret_cast<LPARAM>(&state));
}

bool Contains(const std::vector<int>& items, int item) {
    return std::find(items.begin(), items.end(), item) != items.end();
}

HWND ArrowsOf(const Topmost& topmost, int id) {
    const HWND field = UsableControl(topmost, id);
    if (IsOfClass(field, "msctls_updown32")) return field;
    for (const HWND control : ControlsOf(topmost.dialog))
        if (IsOfClass(control, "msctls_updown32") &&
            reinterpret_cast<HWND>(SendMessageW(control, UDM_GETBUDDY, 0, 0)) == field)
            return control;
    ThrowNot(field, "a field with arrows");
}

} // namespace

void ChooseTab(HWND tabs, int item) {
    if (SendMessageW(tabs, TCM_GETCURSEL, 0, 0) == item) return;
    RECT rect = {}, area = {};
    GetClientRect(tabs, &area);
    SendMessageW(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&rect));
    const POINT place = Middle(rect);
    if (place.x > 0 && place.x < area.right)
        PostClick(tabs, place);
    else
        PostMessageW(tabs, TCM_SETCURFOCUS, static_cast<WPARAM>(item), 0);
}

void ChooseItem(const Topmost& topmost, HWND list, int item) {
    switch (ListKindOf(list)) {
    case ListKind::ComboBox:
        GoTo(topmost.dialog, list);
        return ChooseInComboBox(list, item);
    case ListKind::ListBox:
        GoTo(topmost.dialog, list);
        return ChooseInListBox(list, item);
    case ListKind::ListView:
        return PostClick(list, PlaceOf(list, item));
    case ListKind::Tabs:
        return ChooseTab(list, item);
    default:
        ThrowNot(list, "a list");
    }
}

void Hands::Choose(const Act& act, const Topmost& topmost) {
    const HWND list = UsableControl(topmost, act.id);
    if (ListKindOf(list) == ListKind::None) ThrowNot(list, "a list");
    const int item = FindItem(list, act.items[0]);
    // Where any number can be selected, the item becomes the only one.
    if (SelectsMany(list))
        Select(act, topmost);
    else
        ChooseItem(topmost, list, item);
}

void Hands::Select(const Act& act, const Topmost& topmost) {
    const unsigned number = begun_;
    const HWND list = UsableControl(topmost, act.id);
    const ListKind kind = ListKindOf(list);
    if (kind != ListKind::ListView && !(kind == ListKind::ListBox && SelectsMany(list)))
        ThrowNot(list, "a list with multiple selection");
    std::vector<int> wanted;
    for (const ItemName& item : act.items) wanted.push_back(FindItem(list, item));
    if (!SelectsMany(list) && wanted.size() > 1) ThrowNot(list, "a list with multiple selection");
    GoTo(topmost.dialog, list);
    // What loses its mark comes first: a list with one mark moves it otherwise.
    for (const bool selected : {false, true}) {
        const std::vector<int> before = SelectedItems(list);
        for (int i = 0; i < ItemCount(list); ++i) {
            if (Contains(wanted, i) != selected || Contains(before, i) == selected) continue;
            if (kind == ListKind::ListBox)
                SelectInListBox(list, i, selected);
            else
                SelectInListView(list, i, selected);
            if (!IsWindow(list) || Interrupted(number)) return;
        }
    }
}

void DoubleClickItem(HWND list, const ItemName& item) {
    if (ListKindOf(list) != ListKind::ListBox && ListKindOf(list) != ListKind::ListView)
        ThrowNot(list, "a list");
    PostDoubleClick(list, PlaceOf(list, FindItem(list, item)));
}

void ClickColumn(HWND list_view, int column) {
    if (ListKindOf(list_view) != ListKind::ListView) ThrowNot(list_view, "a list view");
    if (column >= ColumnCount(list_view))
        throw Fault("there is no column #" + std::to_string(column));
    const auto header = reinterpret_cast<HWND>(SendMessageW(list_view, LVM_GETHEADER, 0, 0));
    RECT rect = {};
    SendMessageW(header, HDM_GETITEMRECT, static_cast<WPARAM>(column),
                 reinterpret_cast<LPARAM>(&rect));
    PostClick(header, Middle(rect));
}

void Slide(const Topmost& topmost, HWND bar, int position) {
    if (!IsOfClass(bar, "msctls_trackbar32")) ThrowNot(bar, "a track bar");
    if (position < SendMessageW(bar, TBM_GETRANGEMIN, 0, 0) ||
        position > SendMessageW(bar, TBM_GETRANGEMAX, 0, 0))
        throw Fault("there is no position " + std::to_string(position));
    GoTo(topmost.dialog, bar);
    SendMessageW(bar, TBM_SETPOS, TRUE, position);
    const UINT message = StyleOf(bar) & TBS_VERT ? WM_VSCROLL : WM_HSCROLL;
    const HWND parent = GetParent(bar);
    const auto sender = reinterpret_cast<LPARAM>(bar);
    SendMessageW(parent, message, static_cast<WPARAM>(MAKELONG(TB_THUMBTRACK, position)), sender);
    SendMessageW(parent, message, static_cast<WPARAM>(MAKELONG(TB_THUMBPOSITION, position)),
                 sender);
    SendMessageW(parent, message, TB_ENDTRACK, sender);
}

Rest Spin(const Topmost& topmost, const Act& act) {
    const HWND arrows = ArrowsOf(topmost, act.id);
    if (!IsWindowVisible(arrows) || !IsWindowEnabled(arrows))
        throw Fault("the arrows of control " + std::to_string(act.id) + " cannot be used");
    RECT area = {};
    GetClientRect(arrows, &area);
    POINT place = Middle(area);
    if (StyleOf(arrows) & UDS_HORZ)
        place.x = act.on ? area.right * 3 / 4 : area.right / 4;
    else
        place.y = act.on ? area.bottom / 4 : area.bottom * 3 / 4;
    // A queue does not hold any number of messages.
    constexpr int kClicksAtATime = 50;
    return [=, left = act.number, window = topmost.window]() mutable {
        if (!IsWindow(arrows) || !IsWindowEnabled(window)) return true;
        for (int i = 0; i < kClicksAtATime && left > 0; ++i, --left) PostClick(arrows, place);
        return left == 0;
    };
}
