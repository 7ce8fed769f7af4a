#include "ui/uwindow.h"

uint32_t UWindow::GetStyle() const {
    return window_ ? static_cast<uint32_t>(GetWindowLongPtrW(window_, GWL_STYLE)) : 0;
}

void UWindow::SetStyle(uint32_t style) {
    if (window_) SetWindowLongPtrW(window_, GWL_STYLE, static_cast<LONG_PTR>(style));
}

HFONT UWindow::GetFont() const {
    return reinterpret_cast<HFONT>(Send(WM_GETFONT));
}

void UWindow::SetFont(HFONT font) {
    Send(WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

OString UWindow::GetText() const {
    return TextOfWindow(window_);
}

void UWindow::SetText(const OString& text) {
    SetTextOfWindow(window_, text);
}

OString UWindow::GetClass() const {
    WCHAR name[256] = {};
    if (window_) GetClassNameW(window_, name, 256);
    return OString(name);
}

OString TextOfWindow(HWND window) {
    OString text;
    const int length = window ? GetWindowTextLengthW(window) : 0;
    WCHAR* const room = length > 0 ? text.GetBufferW(length) : nullptr;
    if (!room) return OString();
    room[0] = 0;
    // The length may have been an estimate, too large.
    room[GetWindowTextW(window, room, length + 1)] = 0;
    return text;
}

void SetTextOfWindow(HWND window, const OString& text) {
    if (window && !(TextOfWindow(window) == text)) SetWindowTextW(window, text.wstring());
}
