// Keys that move in dialogs and press their buttons.
#include "host/text.h"
#include "window/dialog.h"

namespace win32host {
namespace {

LRESULT CodeOf(HWND control, WPARAM key, const MSG* message) {
    return SendMessageW(control, WM_GETDLGCODE, key, reinterpret_cast<LPARAM>(message));
}

bool IsPushButton(HWND control) {
    return (CodeOf(control, 0, nullptr) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
}

// The letter after the first single "&" of a control's text; 0 for none.
char16_t AccessKeyOf(HWND control) {
    WCHAR text[256];
    GetWindowTextW(control, text, 256);
    for (const WCHAR* at = text; *at; ++at) {
        if (*at != u'&') continue;
        ++at;
        if (*at == u'\0') return 0;
        if (*at != u'&') return UpperOf(*at);
    }
    return 0;
}

bool HasAccessKeys(HWND control) {
    const LRESULT code = CodeOf(control, 0, nullptr);
    if (code & (DLGC_WANTCHARS | DLGC_HASSETSEL)) return false;
    constexpr LONG_PTR kNoPrefix = 0x80; // SS_NOPREFIX
    return !(code & DLGC_STATIC) || !(GetWindowLongPtrW(control, GWL_STYLE) & kNoPrefix) ||
           code & DLGC_BUTTON;
}

// The controls of a dialog and of those inside of it that can be used, labels too.
void CollectUsable(HWND outer, std::vector<HWND>& controls) {
    for (HWND child : ChildrenOf(outer)) {
        const auto window = FindWindowObject(child);
        if (!window || !window->Has(WS_VISIBLE) || window->Has(WS_DISABLED)) continue;
        if (window->extended_style & WS_EX_CONTROLPARENT)
            CollectUsable(child, controls);
        else
            controls.push_back(child);
    }
}

void Press(HWND dialog, HWND control) {
    const LRESULT code = CodeOf(control, 0, nullptr);
    constexpr UINT kClick = 0x00F5; // BM_CLICK
    if (code & DLGC_BUTTON || code & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) {
        FocusControl(control);
        if (IsWindow(control)) SendMessageW(control, kClick, 0, 0);
    } else if (code & DLGC_STATIC) {
        // A label stands for the control after it.
        const HWND next = GetNextDlgTabItem(dialog, control, FALSE);
        if (next) FocusControl(next);
    } else {
        FocusControl(control);
    }
}

bool PressByAccessKey(HWND dialog, HWND from, char16_t key) {
    std::vector<HWND> controls;
    CollectUsable(dialog, controls);
    if (controls.empty()) return false;
    size_t start = 0;
    for (size_t i = 0; i < controls.size(); ++i)
        if (controls[i] == from || IsChild(controls[i], from)) start = i + 1;
    for (size_t i = 0; i < controls.size(); ++i) {
        const HWND control = controls[(start + i) % controls.size()];
        if (AccessKeyOf(control) != UpperOf(key) || !HasAccessKeys(control)) continue;
        Press(dialog, control);
        return true;
    }
    return false;
}

// The default button is the one with the focus, if that is a push button.
void MoveDefaultButton(HWND focus) {
    const HWND root = GetAncestor(focus, GA_ROOT);
    const UINT id = DefaultButtonOf(root);
    const HWND usual = id ? GetDlgItem(root, static_cast<int>(id)) : nullptr;
    const HWND next = IsPushButton(focus) ? focus : usual;
    std::vector<HWND> controls;
    CollectUsable(root, controls);
    for (HWND control : controls)
        if (control != next && CodeOf(control, 0, nullptr) & DLGC_DEFPUSHBUTTON)
            ShowDefaultButton(control, nullptr);
    ShowDefaultButton(nullptr, next);
}

void PressEnter(HWND dialog) {
    const UINT id = DefaultButtonOf(dialog);
    const HWND focus = GetFocus();
    if (focus && IsChild(dialog, focus) && IsPushButton(focus)) {
        // The button may lie in a dialog inside this one, which is then told.
        SendMessageW(GetParent(focus), WM_COMMAND,
                     static_cast<WPARAM>(MAKELONG(GetDlgCtrlID(focus), 0)),
                     reinterpret_cast<LPARAM>(focus));
        return;
    }
    const HWND button = id ? GetDlgItem(dialog, static_cast<int>(id)) : nullptr;
    if (button && !IsWindowEnabled(button)) return;
    SendMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(MAKELONG(id ? id : IDOK, 0)),
                 reinterpret_cast<LPARAM>(button));
}

// True if the key is done with.
bool OnKey(HWND dialog, const MSG& message) {
    const LRESULT code = CodeOf(message.hwnd, message.wParam, &message);
    if (code & DLGC_WANTMESSAGE) return false;
    const bool shift = GetKeyState(VK_SHIFT) < 0;
    switch (message.wParam) {
    case VK_TAB:
        if (code & DLGC_WANTTAB) return false;
        SendMessageW(dialog, WM_NEXTDLGCTL, shift, 0);
        return true;
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN: {
        if (code & DLGC_WANTARROWS) return false;
        const bool back = message.wParam == VK_LEFT || message.wParam == VK_UP;
        const HWND focus = GetFocus();
        if (!focus || !IsChild(dialog, focus)) return true;
        const HWND next = GetNextDlgGroupItem(dialog, focus, back);
        if (next && next != focus) FocusControl(next);
        return true;
    }
    case VK_ESCAPE:
        SendMessageW(dialog, WM_COMMAND, IDCANCEL,
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDCANCEL)));
        return true;
    case VK_RETURN:
        PressEnter(dialog);
        return true;
    default:
        return false;
    }
}

} // namespace

void FocusControl(HWND control) {
    constexpr UINT kSelect = 0x00B1; // EM_SETSEL
    if (CodeOf(control, 0, nullptr) & DLGC_HASSETSEL) SendMessageW(control, kSelect, 0, -1);
    SetFocus(control);
    if (IsWindow(control) && GetFocus() == control) MoveDefaultButton(control);
}

UINT DefaultButtonOf(HWND dialog) {
    const LRESULT answer = SendMessageW(dialog, DM_GETDEFID, 0, 0);
    return HIWORD(answer) == DC_HASDEFID ? LOWORD(answer) : 0;
}

void ShowDefaultButton(HWND from, HWND to) {
    constexpr UINT kSetStyle = 0x00F4; // BM_SETSTYLE
    constexpr WPARAM kPush = 0;        // BS_PUSHBUTTON
    constexpr WPARAM kDefault = 1;     // BS_DEFPUSHBUTTON
    if (from && from != to && CodeOf(from, 0, nullptr) & DLGC_DEFPUSHBUTTON)
        SendMessageW(from, kSetStyle, kPush, TRUE);
    if (to && CodeOf(to, 0, nullptr) & DLGC_UNDEFPUSHBUTTON)
        SendMessageW(to, kSetStyle, kDefault, TRUE);
}

} // namespace win32host

extern "C" BOOL WINAPI IsDialogMessageW(HWND dialog, LPMSG message) {
    using namespace win32host;
    if (!message || !message->hwnd) return FALSE;
    if (message->hwnd != dialog && !IsChild(dialog, message->hwnd)) return FALSE;
    switch (message->message) {
    case WM_KEYDOWN:
        if (OnKey(dialog, *message)) return TRUE;
        break;
    case WM_CHAR: {
        const LRESULT code = CodeOf(message->hwnd, message->wParam, message);
        if (code & (DLGC_WANTCHARS | DLGC_WANTMESSAGE)) break;
        if (message->wParam == u'\t') return TRUE;
        if (PressByAccessKey(dialog, message->hwnd, static_cast<char16_t>(message->wParam)))
            return TRUE;
        break;
    }
    case WM_SYSCHAR:
        if (PressByAccessKey(dialog, message->hwnd, static_cast<char16_t>(message->wParam)))
            return TRUE;
        break;
    default:
        break;
    }
    TranslateMessage(message);
    DispatchMessageW(message);
    return TRUE;
}
