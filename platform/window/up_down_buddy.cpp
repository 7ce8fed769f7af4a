// The buddies of up-down controls, whose arrow keys the control takes.
#include "window/up_down.h"

namespace win32host {
namespace {

// Properties of a buddy: its up-down control, and the window procedure that it had before.
constexpr LPCWSTR kControlProperty = u"win32host.up_down";
constexpr LPCWSTR kProcedureProperty = u"win32host.up_down.procedure";

LRESULT CALLBACK BuddyProcedure(HWND buddy, UINT message, WPARAM first, LPARAM second) {
    const auto before = reinterpret_cast<WNDPROC>(GetPropW(buddy, kProcedureProperty));
    const auto control = static_cast<HWND>(GetPropW(buddy, kControlProperty));
    if (message == WM_KEYDOWN && control && SendMessageW(control, UpDown::kBuddyKey, first, 0))
        return 0;
    if (message == WM_NCDESTROY) {
        RemovePropW(buddy, kControlProperty);
        RemovePropW(buddy, kProcedureProperty);
        if (control) SendMessageW(control, UDM_SETBUDDY, 0, 0);
    }
    return CallWindowProcW(before ? before : DefWindowProcW, buddy, message, first, second);
}

} // namespace

LRESULT UpDown::SetBuddy(HWND buddy) {
    const HWND before = buddy_;
    LeaveBuddy();
    buddy_ = buddy && IsWindow(buddy) ? buddy : nullptr;
    if (!buddy_) return reinterpret_cast<LRESULT>(before);
    if (Style() & UDS_ARROWKEYS) {
        SetPropW(buddy_, kControlProperty, Self());
        if (!GetPropW(buddy_, kProcedureProperty)) {
            const LONG_PTR procedure =
                SetWindowLongPtrW(buddy_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(BuddyProcedure));
            SetPropW(buddy_, kProcedureProperty, reinterpret_cast<HANDLE>(procedure));
        }
    }
    StandAtBuddy();
    return reinterpret_cast<LRESULT>(before);
}

void UpDown::LeaveBuddy() {
    const HWND buddy = buddy_;
    buddy_ = nullptr;
    if (!buddy || GetPropW(buddy, kControlProperty) != Self()) return;
    RemovePropW(buddy, kControlProperty);
    // Somebody who subclassed the buddy later still calls the procedure, which then does nothing.
    if (GetWindowLongPtrW(buddy, GWLP_WNDPROC) != reinterpret_cast<LONG_PTR>(BuddyProcedure))
        return;
    SetWindowLongPtrW(buddy, GWLP_WNDPROC,
                      reinterpret_cast<LONG_PTR>(GetPropW(buddy, kProcedureProperty)));
    RemovePropW(buddy, kProcedureProperty);
}

void RegisterUpDown() {
    RegisterControl<UpDown>(UPDOWN_CLASSW, CS_HREDRAW | CS_VREDRAW);
}

} // namespace win32host

extern "C" HWND WINAPI CreateUpDownControl(DWORD style, int x, int y, int width, int height,
                                           HWND parent, int id, HINSTANCE module, HWND buddy,
                                           int upper, int lower, int position) {
    const HWND control =
        CreateWindowExW(0, UPDOWN_CLASSW, nullptr, style, x, y, width, height, parent,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), module, nullptr);
    if (!control) return nullptr;
    SendMessageW(control, UDM_SETBUDDY, reinterpret_cast<WPARAM>(buddy), 0);
    SendMessageW(control, UDM_SETRANGE32, static_cast<WPARAM>(static_cast<INT_PTR>(lower)), upper);
    SendMessageW(control, UDM_SETPOS32, 0, position);
    return control;
}
