#include "window/button.h"

#include "window/notify.h"

namespace win32host {
namespace {

bool IsAutoRadio(HWND window) {
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
    return SendMessageW(window, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON &&
           (style & BS_TYPEMASK) == BS_AUTORADIOBUTTON;
}

bool ContainsPoint(HWND window, LPARAM position) {
    RECT client;
    GetClientRect(window, &client);
    return Holds(client, PointOf(position));
}

} // namespace

bool Button::HasCheck() const {
    switch (Kind()) {
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
    case BS_3STATE:
    case BS_AUTO3STATE:
        return true;
    default:
        return false;
    }
}

LRESULT Button::DialogCode() const {
    switch (Kind()) {
    case BS_PUSHBUTTON:
        return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON;
    case BS_DEFPUSHBUTTON:
        return DLGC_BUTTON | DLGC_DEFPUSHBUTTON;
    case BS_GROUPBOX:
        return DLGC_STATIC;
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
        return DLGC_BUTTON | DLGC_RADIOBUTTON;
    default:
        return DLGC_BUTTON;
    }
}

LRESULT Button::Handle(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_GETDLGCODE:
        return DialogCode();
    case WM_NCHITTEST:
        // What is in a group box is meant, not the box.
        return Kind() == BS_GROUPBOX ? HTTRANSPARENT
                                     : DefWindowProcW(Self(), message, first, second);
    case WM_SETTEXT: {
        const LRESULT answer = DefWindowProcW(Self(), message, first, second);
        Redraw();
        return answer;
    }
    case WM_SETFONT:
        font_ = reinterpret_cast<HFONT>(first);
        if (LOWORD(second)) Redraw();
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(font_);
    case WM_ERASEBKGND:
        return TRUE; // everything is painted at once
    case WM_PAINT:
    case WM_PRINTCLIENT:
        Paint(first);
        return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_LBUTTONUP:
    case WM_MOUSEMOVE:
    case WM_CAPTURECHANGED:
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        return HandleInput(message, first, second);
    default:
        return HandleState(message, first, second);
    }
}

LRESULT Button::HandleInput(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_LBUTTONDBLCLK:
        if (Style() & BS_NOTIFY || IsRadio() || Kind() == BS_OWNERDRAW) {
            NotifyCommand(BN_DOUBLECLICKED);
            return 0;
        }
        [[fallthrough]];
    case WM_LBUTTONDOWN:
        SetCapture(Self());
        SetFocus(Self());
        // What hears of the focus may have moved on.
        if (GetCapture() == Self()) Hold();
        return 0;
    case WM_LBUTTONUP:
        if (held_) Release(ContainsPoint(Self(), second));
        return 0;
    case WM_MOUSEMOVE:
        if (held_ && first & MK_LBUTTON) SetPushed(ContainsPoint(Self(), second));
        return 0;
    case WM_CAPTURECHANGED:
        held_ = false;
        SetPushed(false);
        return 0;
    case WM_KEYDOWN:
        if (first == VK_SPACE && !held_) {
            SetCapture(Self());
            Hold();
        }
        return first == VK_SPACE ? 0 : DefWindowProcW(Self(), message, first, second);
    case WM_KEYUP:
        if (first == VK_SPACE) {
            if (held_) Release(true);
            return 0;
        }
        return DefWindowProcW(Self(), message, first, second);
    case WM_SETFOCUS:
        focused_ = true;
        Redraw();
        TellIfAsked(BN_SETFOCUS);
        return 0;
    default: // WM_KILLFOCUS
        focused_ = false;
        if (held_ && GetCapture() == Self()) ReleaseCapture();
        Redraw();
        TellIfAsked(BN_KILLFOCUS);
        return 0;
    }
}

LRESULT Button::HandleState(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_ENABLE:
        if (!first && held_ && GetCapture() == Self()) ReleaseCapture();
        Redraw();
        return 0;
    case WM_STYLECHANGED:
        Redraw();
        return 0;
    case BM_GETCHECK:
        return static_cast<LRESULT>(check_);
    case BM_SETCHECK:
        SetCheck(first);
        return 0;
    case BM_GETSTATE:
        return static_cast<LRESULT>(check_) | (pushed_ ? BST_PUSHED : 0) |
               (focused_ ? BST_FOCUS : 0);
    case BM_SETSTATE:
        SetPushed(first != 0);
        return 0;
    case BM_SETSTYLE:
        SetKind(LOWORD(first), LOWORD(second) != 0);
        return 0;
    case BM_CLICK:
        SendMessageW(Self(), WM_LBUTTONDOWN, 0, 0);
        SendMessageW(Self(), WM_LBUTTONUP, 0, 0);
        return 0;
    case BM_SETIMAGE:
        return SetImage(static_cast<UINT>(first), reinterpret_cast<HANDLE>(second));
    case BM_GETIMAGE:
        return reinterpret_cast<LRESULT>(image_);
    default:
        return DefWindowProcW(Self(), message, first, second);
    }
}

void Button::Hold() {
    held_ = true;
    SetPushed(true);
}

void Button::Release(bool click) {
    held_ = false;
    SetPushed(false);
    if (GetCapture() == Self()) ReleaseCapture();
    if (click) Click();
}

void Button::Click() {
    switch (Kind()) {
    case BS_AUTOCHECKBOX:
        SetCheck(check_ == BST_CHECKED ? BST_UNCHECKED : BST_CHECKED);
        break;
    case BS_AUTO3STATE:
        SetCheck((check_ + 1) % 3);
        break;
    case BS_AUTORADIOBUTTON:
        SetCheck(BST_CHECKED);
        UncheckGroup();
        break;
    default:
        break;
    }
    if (IsWindow(Self())) NotifyCommand(BN_CLICKED);
}

void Button::SetCheck(WPARAM check) {
    if (!HasCheck()) return;
    const WPARAM most = HasThreeStates() ? BST_INDETERMINATE : BST_CHECKED;
    check = check > most ? most : check;
    if (IsRadio()) {
        // Tab stops at the one that is checked.
        const DWORD style = Style();
        const DWORD wanted =
            check == BST_CHECKED ? style | WS_TABSTOP : style & ~static_cast<DWORD>(WS_TABSTOP);
        if (wanted != style) SetWindowLongPtrW(Self(), GWL_STYLE, static_cast<LONG_PTR>(wanted));
    }
    if (check == check_) return;
    check_ = check;
    Redraw();
}

void Button::UncheckGroup() const {
    // In a circle, which leaves out this one itself if it cannot be used.
    const HWND first = GetNextDlgGroupItem(Parent(), Self(), TRUE);
    HWND sibling = first;
    if (!first) return;
    do {
        if (sibling != Self() && IsAutoRadio(sibling))
            SendMessageW(sibling, BM_SETCHECK, BST_UNCHECKED, 0);
        sibling = GetNextDlgGroupItem(Parent(), sibling, TRUE);
    } while (sibling && sibling != first);
}

void Button::SetPushed(bool pushed) {
    if (pushed == pushed_) return;
    pushed_ = pushed;
    Redraw();
}

void Button::SetKind(DWORD style, bool redraw) {
    // The upper half are the styles of all windows.
    const DWORD wanted = (Style() & 0xFFFF0000) | (style & 0xFFFF);
    SetWindowLongPtrW(Self(), GWL_STYLE, static_cast<LONG_PTR>(wanted));
    if (!HasCheck()) check_ = BST_UNCHECKED;
    if (redraw) Redraw();
}

LRESULT Button::SetImage(UINT type, HANDLE image) {
    if (type > IMAGE_CURSOR) return 0;
    const HANDLE before = image_;
    image_ = image;
    Redraw();
    return reinterpret_cast<LRESULT>(before);
}

void RegisterButton() {
    RegisterControl<Button>(u"Button", CS_DBLCLKS | CS_PARENTDC | CS_HREDRAW | CS_VREDRAW);
}

} // namespace win32host

using namespace win32host;

extern "C" {

UINT WINAPI IsDlgButtonChecked(HWND dialog, int id) {
    return static_cast<UINT>(SendDlgItemMessageW(dialog, id, BM_GETCHECK, 0, 0));
}

BOOL WINAPI CheckDlgButton(HWND dialog, int id, UINT check) {
    SendDlgItemMessageW(dialog, id, BM_SETCHECK, check, 0);
    return TRUE;
}

BOOL WINAPI CheckRadioButton(HWND dialog, int first, int last, int check) {
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        const int id = GetDlgCtrlID(child);
        if (id >= first && id <= last)
            SendMessageW(child, BM_SETCHECK, id == check ? BST_CHECKED : BST_UNCHECKED, 0);
    }
    return TRUE;
}

} // extern "C"
