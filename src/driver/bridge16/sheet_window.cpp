#include "driver/bridge16/sheet_window.h"

#include <commctrl.h>
#include <prsht.h>

LRESULT SheetWindow::Send(UINT message, WPARAM first, LPARAM second) const {
    return window_ ? SendMessageW(window_, message, first, second) : 0;
}

HWND SheetWindow::Tabs() const {
    return reinterpret_cast<HWND>(Send(PSM_GETTABCONTROL));
}

int SheetWindow::TabCount() const {
    const HWND tabs = Tabs();
    return tabs ? static_cast<int>(SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0)) : 0;
}

int SheetWindow::CurrentTab() const {
    const HWND tabs = Tabs();
    return tabs ? static_cast<int>(SendMessageW(tabs, TCM_GETCURSEL, 0, 0)) : -1;
}

void SheetWindow::Select(int tab) const {
    Send(PSM_SETCURSEL, static_cast<WPARAM>(tab));
}

HWND SheetWindow::CurrentPage() const {
    return reinterpret_cast<HWND>(Send(PSM_GETCURRENTPAGEHWND));
}

void SheetWindow::MoveTo(const SheetWindow& other) const {
    RECT place;
    if (window_ && other.window_ && GetWindowRect(other.window_, &place))
        SetWindowPos(window_, nullptr, place.left, place.top, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void SheetWindow::Show(bool show) const {
    if (window_) ShowWindow(window_, show ? SW_SHOW : SW_HIDE);
}

void SheetWindow::Enable(bool enable) const {
    if (window_) EnableWindow(window_, enable);
}

HANDLE SheetWindow::GetMark(const WCHAR* mark) const {
    return window_ ? GetPropW(window_, mark) : nullptr;
}

void SheetWindow::SetMark(const WCHAR* mark, HANDLE value) const {
    if (window_) SetPropW(window_, mark, value);
}

void SheetWindow::RemoveMark(const WCHAR* mark) const {
    if (window_) RemovePropW(window_, mark);
}

WithoutRedrawing::WithoutRedrawing(const SheetWindow& sheet)
    : window_(sheet.Exists() && IsWindowVisible(sheet.Get()) ? sheet.Get() : nullptr) {
    if (window_) SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
}

WithoutRedrawing::~WithoutRedrawing() {
    if (!window_) return;
    SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
    RedrawWindow(window_, nullptr, nullptr,
                 RDW_ERASE | RDW_FRAME | RDW_INVALIDATE | RDW_ALLCHILDREN);
}
