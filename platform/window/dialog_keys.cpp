// Keys that move in dialogs and press their buttons.
#include "host/text.h"
#include "window/dialog.h"

namespace win32host {
namespace {

LRESULT CodeOf(HWND control, WPARAM key, const MSG* message) {
    return SendMessageW(control, WM_GETDLGCODE, key, reinterpret_cast<LPARAM>(message));
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
    return !(code & DLGC_STATIC) || !(GetWindowLongPtrW(control, GWL_STYLE) & SS_NOPREFIX) ||
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
    if (code & DLGC_BUTTON || code & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) {
        FocusInDialog(dialog, control);
        if (IsWindow(control)) SendMessageW(control, BM_CLICK, 0, 0);
    } else if (code & DLGC_STATIC) {
        // A label stands for the control after it.
        const HWND next = GetNextDlgTabItem(dialog, control, FALSE);
        if (next) FocusInDialog(dialog, next);
    } else {
        FocusInDialog(dialog, control);
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

void PressEnter(HWND dialog) {
    const UINT id = DefaultButtonOf(dialog);
    const HWND focus = GetFocus();
    if (focus && IsChild(dialog, focus) && CodeOf(focus, 0, nullptr) & DLGC_DEFPUSHBUTTON) {
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
        if (!next || next == focus) return true;
        FocusInDialog(dialog, next);
        // Radio buttons that change by themselves are chosen by going to them.
        if (CodeOf(next, 0, nullptr) & DLGC_RADIOBUTTON &&
            (GetWindowLongPtrW(next, GWL_STYLE) & BS_TYPEMASK) == BS_AUTORADIOBUTTON)
            SendMessageW(next, BM_CLICK, 0, 0);
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

UINT DefaultButtonOf(HWND dialog) {
    const LRESULT answer = SendMessageW(dialog, DM_GETDEFID, 0, 0);
    return HIWORD(answer) == DC_HASDEFID ? LOWORD(answer) : 0;
}

void ShowDefaultButton(HWND from, HWND to) {
    if (from && from != to && CodeOf(from, 0, nullptr) & DLGC_DEFPUSHBUTTON)
        SendMessageW(from, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
    if (to && CodeOf(to, 0, nullptr) & DLGC_UNDEFPUSHBUTTON)
        SendMessageW(to, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
}

void FollowFocus(HWND dialog, HWND before) {
    const HWND focus = GetFocus();
    if (!focus || focus == before || !IsChild(dialog, focus)) return;
    const UINT id = DefaultButtonOf(dialog);
    const HWND usual = id ? GetDlgItem(dialog, static_cast<int>(id)) : nullptr;
    const bool push = CodeOf(focus, 0, nullptr) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON);
    const HWND now = push ? focus : usual;
    if (before && IsChild(dialog, before)) ShowDefaultButton(before, now);
    ShowDefaultButton(usual, now);
}

void FocusInDialog(HWND dialog, HWND control) {
    const HWND before = GetFocus();
    FocusControl(control);
    FollowFocus(dialog, before);
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
    const HWND before = GetFocus();
    TranslateMessage(message);
    DispatchMessageW(message);
    if (message->message == WM_LBUTTONDOWN && IsWindow(dialog)) FollowFocus(dialog, before);
    return TRUE;
}
