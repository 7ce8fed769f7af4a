// What the window classes of controls have in common: one object per window, which handles its
// messages.
#pragma once

#include "host/guarded.h"

#include <windows.h>

#include <new>

namespace win32host {

class Control {
public:
    explicit Control(HWND window)
        : window_(window) {}
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    // The control's window procedure. Called for every message from WM_NCCREATE to WM_NCDESTROY.
    // Messages that the control does not know go to DefWindowProcW. Whoever is notified may destroy
    // the window: the object stays until the last message that it is handling is done.
    virtual LRESULT Handle(UINT message, WPARAM first, LPARAM second) = 0;

protected:
    HWND Self() const { return window_; }
    HWND Parent() const { return GetParent(window_); }
    int Id() const { return static_cast<int>(GetWindowLongPtrW(window_, GWLP_ID)); }
    DWORD Style() const { return static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE)); }
    // Sends WM_COMMAND with a notification code to the parent.
    void NotifyCommand(int code) const {
        SendMessageW(Parent(), WM_COMMAND,
                     static_cast<WPARAM>(MAKELONG(static_cast<WORD>(Id()), code)),
                     reinterpret_cast<LPARAM>(window_));
    }

private:
    template <class T>
    friend LRESULT CALLBACK ControlProcedure(HWND window, UINT message, WPARAM first,
                                             LPARAM second);

    HWND window_;
    int running_ = 0; // messages that are being handled
    bool gone_ = false;
};

// The window procedure of a class whose windows are controls of type T. The class has room for one
// pointer in each window's extra bytes, at 0.
template <class T>
LRESULT CALLBACK ControlProcedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    auto* control = reinterpret_cast<Control*>(GetWindowLongPtrW(window, 0));
    if (!control) {
        if (message != WM_NCCREATE) return DefWindowProcW(window, message, first, second);
        control = new (std::nothrow) T(window);
        if (!control) return FALSE;
        SetWindowLongPtrW(window, 0, reinterpret_cast<LONG_PTR>(control));
    }
    ++control->running_;
    const LRESULT answer =
        Guarded(LRESULT(0), [&] { return control->Handle(message, first, second); });
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, 0, 0);
        control->gone_ = true;
    }
    if (--control->running_ == 0 && control->gone_) delete control;
    return answer;
}

// Registers the class. `style`: CS_ bits.
template <class T>
void RegisterControl(LPCWSTR name, UINT style) {
    WNDCLASSW window_class = {};
    window_class.style = style | CS_GLOBALCLASS;
    window_class.lpfnWndProc = ControlProcedure<T>;
    window_class.cbWndExtra = sizeof(void*);
    window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    window_class.lpszClassName = name;
    RegisterClassW(&window_class);
}

// Registers the classes of all controls; control_classes.cpp lists them.
void RegisterControls();

} // namespace win32host
