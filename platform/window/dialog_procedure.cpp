// What dialogs do with messages.
#include "window/dialog.h"

namespace win32host {
namespace {

// Answers to these are the procedure's own; those to others are in DWLP_MSGRESULT.
bool AnswersDirectly(UINT message) {
    switch (message) {
    case WM_COMPAREITEM:
    case WM_VKEYTOITEM:
    case WM_CHARTOITEM:
    case WM_INITDIALOG:
    case WM_CTLCOLORMSGBOX:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORDLG:
    case WM_CTLCOLORSCROLLBAR:
    case WM_CTLCOLORSTATIC:
        return true;
    default:
        return false;
    }
}

void SaveFocus(HWND dialog, DialogState& state) {
    const HWND focus = GetFocus();
    if (focus && (focus == dialog || IsChild(dialog, focus))) state.saved_focus = focus;
}

void RestoreFocus(HWND dialog, DialogState& state) {
    HWND focus = state.saved_focus;
    state.saved_focus = nullptr;
    if (!focus || !IsWindow(focus) || !IsWindowVisible(focus) || !IsWindowEnabled(focus))
        focus = FirstTabItem(dialog);
    if (focus)
        SetFocus(focus);
    else if (!(GetWindowLongPtrW(dialog, GWL_STYLE) & DS_CONTROL))
        SetFocus(dialog);
}

void SetDefaultId(HWND dialog, DialogState& state, UINT id) {
    const HWND before =
        state.default_id ? GetDlgItem(dialog, static_cast<int>(state.default_id)) : nullptr;
    state.default_id = id;
    ShowDefaultButton(before, id ? GetDlgItem(dialog, static_cast<int>(id)) : nullptr);
}

// To the next control, the previous one, or `first` if `is_control`.
void MoveToControl(HWND dialog, WPARAM first, bool is_control) {
    const HWND before = GetFocus();
    HWND next = reinterpret_cast<HWND>(first);
    if (!is_control) {
        next = before && (before == dialog || IsChild(dialog, before))
                   ? GetNextDlgTabItem(dialog, before == dialog ? nullptr : before, first != 0)
                   : FirstTabItem(dialog);
    }
    if (next) FocusInDialog(dialog, next);
}

LRESULT ByDefault(HWND dialog, UINT message, WPARAM first, LPARAM second) {
    const auto state = StateOf(dialog);
    if (!state) return 0;
    switch (message) {
    case WM_ERASEBKGND: {
        const auto dc = reinterpret_cast<HDC>(first);
        auto brush = reinterpret_cast<HBRUSH>(
            SendMessageW(dialog, WM_CTLCOLORDLG, first, reinterpret_cast<LPARAM>(dialog)));
        if (!brush) brush = GetSysColorBrush(COLOR_BTNFACE);
        RECT client;
        GetClientRect(dialog, &client);
        FillRect(dc, &client, brush);
        return TRUE;
    }
    case WM_SHOWWINDOW:
        if (!first) SaveFocus(dialog, *state);
        return DefWindowProcW(dialog, message, first, second);
    case WM_ACTIVATE:
        if (LOWORD(first) != WA_INACTIVE)
            RestoreFocus(dialog, *state);
        else
            SaveFocus(dialog, *state);
        return 0;
    case WM_SETFOCUS:
        RestoreFocus(dialog, *state);
        return 0;
    case DM_SETDEFID:
        SetDefaultId(dialog, *state, static_cast<UINT>(first));
        return TRUE;
    case DM_GETDEFID:
        return state->default_id ? MAKELONG(state->default_id, DC_HASDEFID) : 0;
    case WM_NEXTDLGCTL:
        MoveToControl(dialog, first, LOWORD(second) != 0);
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(state->font);
    case WM_CLOSE: {
        const HWND cancel = GetDlgItem(dialog, IDCANCEL);
        if (!cancel || IsWindowEnabled(cancel))
            PostMessageW(dialog, WM_COMMAND, IDCANCEL, reinterpret_cast<LPARAM>(cancel));
        return 0;
    }
    default:
        return DefWindowProcW(dialog, message, first, second);
    }
}

} // namespace
} // namespace win32host

extern "C" LRESULT WINAPI DefDlgProcW(HWND dialog, UINT message, WPARAM first, LPARAM second) {
    using namespace win32host;
    SetWindowLongPtrW(dialog, DWLP_MSGRESULT, 0);
    const auto procedure =
        reinterpret_cast<DLGPROC>(GetWindowLongPtrW(dialog, static_cast<int>(DWLP_DLGPROC)));
    const INT_PTR handled = procedure ? procedure(dialog, message, first, second) : FALSE;
    if (!FindWindowObject(dialog)) return 0;
    if (!handled) return ByDefault(dialog, message, first, second);
    if (AnswersDirectly(message)) return handled;
    return GetWindowLongPtrW(dialog, DWLP_MSGRESULT);
}
