// What a user does with a combo box.
#include "window/combo_box.h"
#include "window/notify.h"

namespace win32host {

static std::u16string TextOfEdit(HWND edit) {
    std::u16string text(static_cast<size_t>(GetWindowTextLengthW(edit)) + 1, u'\0');
    text.resize(
        static_cast<size_t>(GetWindowTextW(edit, text.data(), static_cast<int>(text.size()))));
    return text;
}

LRESULT ComboBox::HandleCommand(int code, HWND from) {
    if (from == list_)
        ListCommand(code);
    else if (from == edit_)
        EditCommand(code);
    return 0;
}

void ComboBox::ListCommand(int code) {
    if (code == LBN_SELCHANGE) ListSelected(false);
    if (code == LBN_DBLCLK) NotifyCommand(CBN_DBLCLK);
}

void ComboBox::EditCommand(int code) {
    switch (code) {
    case EN_SETFOCUS:
        GotFocus();
        break;
    case EN_KILLFOCUS:
        LostFocus(GetFocus());
        break;
    case EN_UPDATE:
        if (!quiet_) NotifyCommand(CBN_EDITUPDATE);
        break;
    case EN_CHANGE:
        if (quiet_) break;
        // What is typed is no item yet.
        FromList(LB_SETCURSEL, static_cast<WPARAM>(-1), 0);
        MatchList(false);
        NotifyCommand(CBN_EDITCHANGE);
        break;
    case EN_ERRSPACE:
        NotifyCommand(CBN_ERRSPACE);
        break;
    default:
        break;
    }
}

void ComboBox::ListClicked(bool on_item) {
    if (on_item)
        ListSelected(true);
    else
        RollUp(false);
}

void ComboBox::ListSelected(bool by_mouse) {
    if (by_mouse || (!dropped_ && !IsSimple())) RollUp(true);
    // The field changes after the notification.
    NotifyCommand(CBN_SELCHANGE);
    if (!IsWindow(Self())) return;
    if (HasEdit()) {
        SetEditText(SelectedText());
        SendMessageW(edit_, EM_SETSEL, 0, -1);
    }
    InvalidateRect(Self(), nullptr, TRUE);
}

void ComboBox::DropDown() {
    NotifyCommand(CBN_DROPDOWN);
    if (!IsWindow(Self()) || dropped_) return;
    dropped_ = true;
    PlaceList();
    FromList(LB_SETTOPINDEX, 0, 0);
    if (HasEdit())
        MatchList(true);
    else
        FromList(LB_SETCARETINDEX, static_cast<WPARAM>(FromList(LB_GETCURSEL, 0, 0)), 0);
    SetWindowPos(list_, HWND_TOP, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    InvalidateRect(Self(), nullptr, TRUE);
}

void ComboBox::RollUp(bool ok) {
    NotifyCommand(ok ? CBN_SELENDOK : CBN_SELENDCANCEL);
    if (!IsWindow(Self()) || !dropped_) return;
    dropped_ = false;
    ShowWindow(list_, SW_HIDE);
    InvalidateRect(Self(), nullptr, TRUE);
    NotifyCommand(CBN_CLOSEUP);
}

// Shows the first item that starts with what is in the edit field, and selects it on request.
void ComboBox::MatchList(bool select) {
    const std::u16string text = TextOfEdit(edit_);
    if (text.empty()) return;
    const LRESULT at =
        FromList(LB_FINDSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text.c_str()));
    if (at == LB_ERR) return;
    FromList(LB_SETTOPINDEX, static_cast<WPARAM>(at), 0);
    FromList(select ? LB_SETCURSEL : LB_SETCARETINDEX, static_cast<WPARAM>(at), 0);
}

void ComboBox::GotFocus() {
    if (has_focus_) return;
    has_focus_ = true;
    if (HasEdit()) SendMessageW(edit_, EM_SETSEL, 0, -1);
    InvalidateRect(Self(), nullptr, TRUE);
    NotifyCommand(CBN_SETFOCUS);
}

void ComboBox::LostFocus(HWND to) {
    if (!has_focus_ || to == Self() || (to && to == edit_) || to == list_) return;
    RollUp(false);
    if (!IsWindow(Self())) return;
    has_focus_ = false;
    if (HasEdit()) SendMessageW(edit_, EM_SETSEL, 0, 0);
    InvalidateRect(Self(), nullptr, TRUE);
    NotifyCommand(CBN_KILLFOCUS);
}

void ComboBox::MouseDown(POINT point) {
    if (GetFocus() != Self() && GetFocus() != edit_) SetFocus(Self());
    if (IsSimple() || (HasEdit() && !Holds(ButtonRect(), point))) return;
    pressed_ = true;
    if (dropped_)
        RollUp(false);
    else
        DropDown();
}

bool ComboBox::TakesKey(UINT message, WPARAM key) {
    const bool moves = key == VK_UP || key == VK_DOWN;
    if (!IsSimple() &&
        ((message == WM_KEYDOWN && key == VK_F4) || (message == WM_SYSKEYDOWN && moves))) {
        if (dropped_)
            RollUp(false);
        else
            DropDown();
        return true;
    }
    if (message != WM_KEYDOWN) return false;
    if (key == VK_RETURN || key == VK_ESCAPE) {
        const bool was_dropped = dropped_;
        if (was_dropped) RollUp(key == VK_RETURN);
        return was_dropped;
    }
    if (!moves && key != VK_PRIOR && key != VK_NEXT) return false;
    FromList(WM_KEYDOWN, key, 1);
    return true;
}

void ComboBox::ForwardKey(UINT message, WPARAM first, LPARAM second) {
    if (message == WM_SYSKEYDOWN) {
        DefWindowProcW(Self(), message, first, second);
        return;
    }
    if (message == WM_CHAR && first < VK_SPACE) return;
    FromList(message, first, second);
}

// The list asks its combo box, which asks its parent, as the combo box itself.
LRESULT ComboBox::ForwardOwnerDraw(UINT message, LPARAM item) const {
    const auto id = static_cast<UINT>(Id());
    if (message == WM_MEASUREITEM) {
        auto& measure = *reinterpret_cast<MEASUREITEMSTRUCT*>(item);
        measure.CtlType = ODT_COMBOBOX;
        measure.CtlID = id;
        measure.itemID = 0;
    } else if (message == WM_DRAWITEM) {
        auto& draw = *reinterpret_cast<DRAWITEMSTRUCT*>(item);
        draw.CtlType = ODT_COMBOBOX;
        draw.CtlID = id;
        draw.hwndItem = Self();
    } else if (message == WM_COMPAREITEM) {
        auto& pair = *reinterpret_cast<COMPAREITEMSTRUCT*>(item);
        pair.CtlType = ODT_COMBOBOX;
        pair.CtlID = id;
        pair.hwndItem = Self();
    } else {
        auto& deleted = *reinterpret_cast<DELETEITEMSTRUCT*>(item);
        deleted.CtlType = ODT_COMBOBOX;
        deleted.CtlID = id;
        deleted.hwndItem = Self();
    }
    return SendMessageW(Parent(), message, id, item);
}

LRESULT ComboList::Handle(UINT message, WPARAM first, LPARAM second) {
    if (message == WM_NCCREATE)
        combo_ = static_cast<HWND>(reinterpret_cast<const CREATESTRUCTW*>(second)->lpCreateParams);
    if (message == WM_MOUSEACTIVATE) return MA_NOACTIVATE;
    return ListBox::Handle(message, first, second);
}

LRESULT ComboList::HandleMouse(UINT message, LPARAM parameter) {
    const POINT point = PointOf(parameter);
    const int at = ItemAt(point);
    ComboBox* const combo = ComboBoxOf(combo_);
    if (!combo) return 0;
    switch (message) {
    case WM_LBUTTONDBLCLK:
        Notify(LBN_DBLCLK);
        return 0;
    case WM_LBUTTONDOWN:
        if (!combo->HasFocus()) SetFocus(combo_);
        pressed_ = at != -1;
        if (pressed_) SelectOnly(at);
        return 0;
    case WM_MOUSEMOVE:
        if (pressed_ && at != -1 && at != Current()) SelectOnly(at);
        return 0;
    case WM_LBUTTONUP: {
        RECT client = {};
        GetClientRect(Self(), &client);
        if (pressed_ && Holds(client, point)) combo->ListClicked(at != -1);
        pressed_ = false;
        return 0;
    }
    default:
        pressed_ = false;
        return 0;
    }
}

} // namespace win32host
