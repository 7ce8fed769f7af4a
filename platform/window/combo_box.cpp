// Messages of programs to combo boxes.
#include "window/combo_box.h"

#include "host/guarded.h"
#include "window/notify.h"

#include <algorithm>

namespace win32host {
namespace {

struct ListMessage {
    UINT combo;
    UINT list;
};

// What the list answers.
constexpr ListMessage kListMessages[] = {
    {CB_ADDSTRING, LB_ADDSTRING},
    {CB_INSERTSTRING, LB_INSERTSTRING},
    {CB_GETCOUNT, LB_GETCOUNT},
    {CB_GETCURSEL, LB_GETCURSEL},
    {CB_GETLBTEXT, LB_GETTEXT},
    {CB_GETLBTEXTLEN, LB_GETTEXTLEN},
    {CB_FINDSTRING, LB_FINDSTRING},
    {CB_FINDSTRINGEXACT, LB_FINDSTRINGEXACT},
    {CB_GETITEMDATA, LB_GETITEMDATA},
    {CB_SETITEMDATA, LB_SETITEMDATA},
    {CB_GETTOPINDEX, LB_GETTOPINDEX},
    {CB_SETTOPINDEX, LB_SETTOPINDEX},
    {CB_GETHORIZONTALEXTENT, LB_GETHORIZONTALEXTENT},
    {CB_SETHORIZONTALEXTENT, LB_SETHORIZONTALEXTENT},
    {CB_INITSTORAGE, LB_INITSTORAGE},
};

} // namespace

ComboBox* ComboBoxOf(HWND window) {
    WCHAR name[16];
    if (!GetClassNameW(window, name, 16) || lstrcmpiW(name, TEXT("ComboBox")) != 0) return nullptr;
    return static_cast<ComboBox*>(reinterpret_cast<Control*>(GetWindowLongPtrW(window, 0)));
}

LRESULT ComboBox::Handle(UINT message, WPARAM first, LPARAM second) {
    if (message >= CB_GETEDITSEL && message <= CB_GETCOMBOBOXINFO)
        return HandleItems(message, first, second);
    switch (message) {
    case WM_CREATE:
        return Create(*reinterpret_cast<const CREATESTRUCTW*>(second)) ? 0 : -1;
    case WM_DESTROY:
        if (!IsSimple() && IsWindow(list_)) DestroyWindow(list_);
        return 0;
    case WM_SETFONT:
        SetFont(reinterpret_cast<HFONT>(first), second);
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(font_);
    case WM_SETTEXT:
        if (!HasEdit()) return CB_ERR;
        SetEditText(second ? reinterpret_cast<LPCWSTR>(second) : u"");
        return TRUE;
    case WM_GETTEXT:
        return GetText(first, second);
    case WM_GETTEXTLENGTH:
        return HasEdit() ? SendMessageW(edit_, message, 0, 0)
                         : static_cast<LRESULT>(SelectedText().size());
    case WM_WINDOWPOSCHANGING:
        if (made_ && !IsSimple()) KeepHeight(*reinterpret_cast<WINDOWPOS*>(second));
        return 0;
    case WM_SIZE:
        if (made_) PlaceParts();
        return 0;
    case WM_ENABLE:
        if (HasEdit()) EnableWindow(edit_, first != 0);
        EnableWindow(list_, first != 0);
        InvalidateRect(Self(), nullptr, TRUE);
        return 0;
    case WM_GETDLGCODE: {
        const auto* key = reinterpret_cast<const MSG*>(second);
        const bool ends = key && key->message == WM_KEYDOWN &&
                          (key->wParam == VK_RETURN || key->wParam == VK_ESCAPE);
        return DLGC_WANTARROWS | DLGC_WANTCHARS | (dropped_ && ends ? DLGC_WANTMESSAGE : 0);
    }
    case WM_SETFOCUS:
        if (HasEdit())
            SetFocus(edit_);
        else
            GotFocus();
        return 0;
    case WM_KILLFOCUS:
        if (!HasEdit()) LostFocus(reinterpret_cast<HWND>(first));
        return 0;
    case WM_COMMAND:
        return HandleCommand(HIWORD(first), reinterpret_cast<HWND>(second));
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        MouseDown(PointOf(second));
        return 0;
    case WM_LBUTTONUP:
        pressed_ = false;
        InvalidateRect(Self(), nullptr, FALSE);
        return 0;
    case WM_MOUSEWHEEL:
        return DefWindowProcW(Self(), message, first, second);
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        if (!TakesKey(message, first)) ForwardKey(message, first, second);
        return 0;
    case WM_CHAR:
        ForwardKey(message, first, second);
        return 0;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORLISTBOX:
        return SendMessageW(Parent(), message, first, second);
    case WM_DRAWITEM:
    case WM_MEASUREITEM:
    case WM_COMPAREITEM:
    case WM_DELETEITEM:
        return ForwardOwnerDraw(message, second);
    case WM_ERASEBKGND:
        return TRUE;
    case WM_PAINT:
    case WM_PRINTCLIENT:
        Paint(first);
        return 0;
    default:
        return DefWindowProcW(Self(), message, first, second);
    }
}

LRESULT ComboBox::HandleItems(UINT message, WPARAM first, LPARAM second) {
    for (const ListMessage& known : kListMessages)
        if (known.combo == message) return FromList(known.list, first, second);
    switch (message) {
    case CB_SETCURSEL:
        return SelectByProgram(LB_SETCURSEL, first, second);
    case CB_SELECTSTRING:
        return SelectByProgram(LB_SELECTSTRING, first, second);
    case CB_DELETESTRING:
        return DeleteItem(static_cast<int>(first));
    case CB_RESETCONTENT:
        Reset();
        return CB_OKAY;
    default:
        return HandleField(message, first, second);
    }
}

LRESULT ComboBox::HandleField(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case CB_LIMITTEXT:
        if (HasEdit()) SendMessageW(edit_, EM_LIMITTEXT, first, 0);
        return TRUE;
    case CB_GETEDITSEL:
        return HasEdit() ? SendMessageW(edit_, EM_GETSEL, first, second) : CB_ERR;
    case CB_SETEDITSEL:
        if (!HasEdit()) return CB_ERR;
        SendMessageW(edit_, EM_SETSEL, static_cast<WPARAM>(static_cast<SHORT>(LOWORD(second))),
                     static_cast<SHORT>(HIWORD(second)));
        return TRUE;
    case CB_SHOWDROPDOWN:
        if (IsSimple()) return TRUE;
        if (first && !dropped_) DropDown();
        if (!first && dropped_) RollUp(false);
        return TRUE;
    case CB_GETDROPPEDSTATE:
        return dropped_;
    default:
        return HandlePlaces(message, first, second);
    }
}

LRESULT ComboBox::HandlePlaces(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case CB_GETDROPPEDCONTROLRECT: {
        if (!second) return FALSE;
        auto& rect = *reinterpret_cast<RECT*>(second);
        GetWindowRect(Self(), &rect);
        rect.right = std::max<LONG>(rect.right, rect.left + dropped_width_);
        rect.bottom = rect.top + open_height_;
        return TRUE;
    }
    case CB_GETDROPPEDWIDTH:
    case CB_SETDROPPEDWIDTH: {
        if (IsSimple()) return CB_ERR;
        if (message == CB_SETDROPPEDWIDTH && first < 0x8000)
            dropped_width_ = static_cast<int>(first);
        RECT rect = {};
        GetWindowRect(Self(), &rect);
        return std::max<LONG>(dropped_width_, rect.right - rect.left);
    }
    case CB_SETITEMHEIGHT:
        return SetItemHeight(static_cast<int>(first), static_cast<int>(second));
    case CB_GETITEMHEIGHT:
        if (static_cast<int>(first) == -1) return field_height_;
        return FromList(LB_GETITEMHEIGHT, first, 0);
    case CB_SETEXTENDEDUI:
        return first ? CB_ERR : CB_OKAY;
    case CB_GETEXTENDEDUI:
        return FALSE;
    case CB_GETCOMBOBOXINFO:
        return second && FillInfo(*reinterpret_cast<COMBOBOXINFO*>(second));
    default:
        return CB_ERR;
    }
}

LRESULT ComboBox::SelectByProgram(UINT message, WPARAM first, LPARAM second) {
    const LRESULT selected = FromList(message, first, second);
    const bool cleared = message == LB_SETCURSEL && static_cast<int>(first) == -1;
    if (selected != LB_ERR || cleared) {
        if (HasEdit()) SetEditText(SelectedText());
        InvalidateRect(Self(), nullptr, TRUE);
    }
    return selected;
}

LRESULT ComboBox::DeleteItem(int at) {
    const bool selected = FromList(LB_GETCURSEL, 0, 0) == at && at >= 0;
    const LRESULT left = FromList(LB_DELETESTRING, static_cast<WPARAM>(at), 0);
    if (selected && HasEdit()) SetEditText(u"");
    InvalidateRect(Self(), nullptr, TRUE);
    return left;
}

void ComboBox::Reset() {
    FromList(LB_RESETCONTENT, 0, 0);
    if (HasEdit()) SetEditText(u"");
    InvalidateRect(Self(), nullptr, TRUE);
}

std::u16string ComboBox::SelectedText() const {
    const bool has_strings = !IsOwnerDrawn() || Style() & CBS_HASSTRINGS;
    const LRESULT at = FromList(LB_GETCURSEL, 0, 0);
    if (at == LB_ERR || !has_strings) return {};
    const LRESULT size = FromList(LB_GETTEXTLEN, static_cast<WPARAM>(at), 0);
    if (size <= 0) return {};
    std::u16string text(static_cast<size_t>(size) + 1, u'\0');
    FromList(LB_GETTEXT, static_cast<WPARAM>(at), reinterpret_cast<LPARAM>(text.data()));
    text.pop_back();
    return text;
}

void ComboBox::SetEditText(const std::u16string& text) {
    quiet_ = true;
    SetWindowTextW(edit_, text.c_str());
    quiet_ = false;
}

LRESULT ComboBox::GetText(WPARAM size, LPARAM buffer) const {
    if (HasEdit()) return SendMessageW(edit_, WM_GETTEXT, size, buffer);
    return CopyText(SelectedText(), reinterpret_cast<LPWSTR>(buffer),
                    static_cast<int>(std::min<WPARAM>(size, INT32_MAX)));
}

bool ComboBox::FillInfo(COMBOBOXINFO& info) const {
    if (info.cbSize != sizeof(info)) return Fail(ERROR_INVALID_PARAMETER);
    info.rcItem = FieldRect();
    info.rcButton = ButtonRect();
    info.stateButton = IsSimple() ? STATE_SYSTEM_INVISIBLE : dropped_ ? STATE_SYSTEM_PRESSED : 0;
    info.hwndCombo = Self();
    info.hwndItem = HasEdit() ? edit_ : Self();
    info.hwndList = list_;
    return true;
}

void RegisterComboBox();
void RegisterComboBox() {
    RegisterControl<ComboBox>(TEXT("ComboBox"), CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW);
    RegisterControl<ComboList>(TEXT("ComboLBox"), CS_DBLCLKS | CS_SAVEBITS);
}

} // namespace win32host

extern "C" BOOL WINAPI GetComboBoxInfo(HWND combo, PCOMBOBOXINFO info) {
    auto* const found = win32host::ComboBoxOf(combo);
    if (!found || !info) return win32host::Fail(ERROR_INVALID_PARAMETER);
    return found->FillInfo(*info);
}
