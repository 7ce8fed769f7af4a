#include "ui/ucontrol.h"

#include "ui/udialog.h"

namespace {

constexpr const WCHAR* kObjectProperty = TEXT("UControl");

} // namespace

UControl::~UControl() {
    Unbind();
}

void UControl::Show(bool show) {
    if (window_) ShowWindow(window_, show ? SW_SHOW : SW_HIDE);
}

void UControl::Enable(bool enable) {
    if (window_) EnableWindow(window_, enable);
}

bool UControl::OnDrawItem(const DRAWITEMSTRUCT&) {
    return false;
}

bool UControl::OnMouseMove(uint32_t, CPoint) {
    return false;
}

bool UControl::OnLButtonDown(uint32_t, CPoint) {
    return false;
}

bool UControl::OnLButtonUp(uint32_t, CPoint) {
    return false;
}

bool UControl::OnLButtonDoubleClick(uint32_t, CPoint) {
    return false;
}

bool UControl::OnRButtonDown(uint32_t, CPoint) {
    return false;
}

bool UControl::OnRButtonUp(uint32_t, CPoint) {
    return false;
}

bool UControl::OnRButtonDoubleClick(uint32_t, CPoint) {
    return false;
}

bool UControl::OnKeyDown(uint32_t, uint32_t, uint32_t) {
    return false;
}

bool UControl::OnKeyUp(uint32_t, uint32_t, uint32_t) {
    return false;
}

bool UControl::Bind(UDialog* dialog, int id) {
    dialog_ = dialog;
    if (id != 0) window_ = dialog->GetItem(id);
    OnBind();
    if (window_ && SetPropW(window_, kObjectProperty, this))
        procedure_ = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WndProc)));
    dialog->BindControl(this);
    return window_ != nullptr;
}

void UControl::Unbind() {
    if (procedure_) {
        RemovePropW(window_, kObjectProperty);
        // Others may have taken the window after us; then they call us until it goes.
        if (GetWindowLongPtrW(window_, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(WndProc))
            SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure_));
    }
    procedure_ = nullptr;
    window_ = nullptr;
}

LRESULT UControl::CallControl(UINT message, WPARAM first, LPARAM second) {
    return procedure_ ? CallWindowProcW(procedure_, window_, message, first, second) : 0;
}

void UControl::SendCommand(uint16_t code, LPARAM value) {
    if (!dialog_) return;
    const auto id = static_cast<WORD>(GetID());
    SendMessageW(dialog_->GetWindow(), WM_COMMAND, MAKEWPARAM(id, code), value);
}

LRESULT CALLBACK UControl::WndProc(HWND window, UINT message, WPARAM first, LPARAM second) {
    auto* const control = static_cast<UControl*>(GetPropW(window, kObjectProperty));
    if (!control) return DefWindowProcW(window, message, first, second);
    const WNDPROC procedure = control->procedure_;
    if (message == WM_NCDESTROY) {
        control->OnDestroy();
        control->Unbind();
    } else if (control->OnMessage(message, first, second)) {
        return 0;
    }
    return CallWindowProcW(procedure, window, message, first, second);
}

bool UControl::OnMessage(UINT message, WPARAM first, LPARAM second) {
    const auto flags = static_cast<uint32_t>(first);
    const CPoint at = CPoint::OfMessage(second);
    switch (message) {
    case WM_PAINT:
        return OnPaint();
    case WM_MOUSEMOVE:
        return OnMouseMove(flags, at);
    case WM_LBUTTONDOWN:
        return OnLButtonDown(flags, at);
    case WM_LBUTTONUP:
        return OnLButtonUp(flags, at);
    case WM_LBUTTONDBLCLK:
        return OnLButtonDoubleClick(flags, at);
    case WM_RBUTTONDOWN:
        return OnRButtonDown(flags, at);
    case WM_RBUTTONUP:
        return OnRButtonUp(flags, at);
    case WM_RBUTTONDBLCLK:
        return OnRButtonDoubleClick(flags, at);
    case WM_KEYDOWN:
        return OnKeyDown(flags, LOWORD(second), HIWORD(second));
    case WM_KEYUP:
        return OnKeyUp(flags, LOWORD(second), HIWORD(second));
    default:
        return false;
    }
}
