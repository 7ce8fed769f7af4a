#include "window/focus.h"

#include "host/guarded.h"
#include "window/window.h"

#include <cstring>

namespace win32host {
namespace {

POINT g_pointer = {};

bool IsIn(HWND outer, HWND window) {
    return window && (outer == window || IsChild(outer, window));
}

void SendActivate(HWND window, bool active, HWND other) {
    if (!FindWindowObject(window)) return;
    const auto found = FindWindowObject(window);
    found->frame_active = active;
    SendMessageW(window, WM_NCACTIVATE, active, 0);
    if (!FindWindowObject(window)) return;
    SendMessageW(window, WM_ACTIVATE, active ? WA_ACTIVE : WA_INACTIVE,
                 reinterpret_cast<LPARAM>(other));
}

// A window that can take over from one that goes.
HWND NextToActivate(HWND leaving) {
    const auto found = FindWindowObject(leaving);
    const auto owner = found ? FindWindowObject(found->owner) : nullptr;
    if (owner && owner->queue == ThisQueue() && IsWindowVisible(owner->handle) &&
        IsWindowEnabled(owner->handle))
        return owner->handle;
    for (HWND top : ChildrenOf(nullptr)) {
        const auto other = FindWindowObject(top);
        if (top != leaving && other && other->queue == ThisQueue() && other->Has(WS_VISIBLE) &&
            !other->Has(WS_DISABLED))
            return top;
    }
    return nullptr;
}

void MoveFocus(HWND window) {
    MessageQueue& queue = *ThisQueue();
    const HWND before = queue.focus;
    if (before == window) return;
    queue.focus = window;
    if (before && FindWindowObject(before))
        SendMessageW(before, WM_KILLFOCUS, reinterpret_cast<WPARAM>(window), 0);
    if (queue.focus == window && window && FindWindowObject(window))
        SendMessageW(window, WM_SETFOCUS, reinterpret_cast<WPARAM>(before), 0);
}

} // namespace

void Activate(HWND window) {
    MessageQueue& queue = *ThisQueue();
    const HWND before = queue.active;
    if (before == window) return;
    queue.active = window;
    if (before) SendActivate(before, false, window);
    if (queue.active != window) return;
    if (window) {
        SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        SendActivate(window, true, before);
    }
    // The keyboard follows.
    if (queue.active == window && queue.focus && !IsIn(window, queue.focus)) MoveFocus(window);
}

void LeaveWindow(HWND window) {
    MessageQueue& queue = *ThisQueue();
    if (IsIn(window, queue.capture)) ReleaseCapture();
    const bool had_focus = IsIn(window, queue.focus);
    if (queue.active == window) {
        const HWND next = NextToActivate(window);
        Activate(next);
        if (IsIn(window, queue.focus)) MoveFocus(nullptr);
    } else if (had_focus) {
        const auto found = FindWindowObject(window);
        MoveFocus(found && found->IsChildWindow() ? found->parent : nullptr);
    }
}

} // namespace win32host

using namespace win32host;

extern "C" {

HWND WINAPI GetFocus() {
    return ThisQueue()->focus;
}

HWND WINAPI SetFocus(HWND window) {
    const HWND before = ThisQueue()->focus;
    if (!window) {
        MoveFocus(nullptr);
        return before;
    }
    const auto wanted = WindowOf(window);
    if (!wanted || wanted->queue != ThisQueue()) return nullptr;
    if (window == before) return before;
    // A window inside a disabled one cannot have it.
    for (HWND outer = window; outer;) {
        const auto found = FindWindowObject(outer);
        if (!found) break;
        if (found->Has(WS_DISABLED)) return nullptr;
        outer = found->IsChildWindow() ? found->parent : nullptr;
    }
    Activate(GetAncestor(window, GA_ROOT));
    if (!FindWindowObject(window)) return before;
    MoveFocus(window);
    return before;
}

HWND WINAPI GetActiveWindow() {
    return ThisQueue()->active;
}

HWND WINAPI SetActiveWindow(HWND window) {
    const HWND before = ThisQueue()->active;
    const auto found = window ? WindowOf(window) : nullptr;
    if (window && (!found || found->IsChildWindow() || found->queue != ThisQueue())) return nullptr;
    if (found && found->Has(WS_DISABLED)) return before;
    Activate(window);
    return before;
}

HWND WINAPI GetForegroundWindow() {
    return ThisQueue()->active;
}

BOOL WINAPI SetForegroundWindow(HWND window) {
    const auto found = WindowOf(window);
    if (!found || found->IsChildWindow()) return FALSE;
    if (found->queue != ThisQueue())
        return DoInThread(found->queue, [=] { return LRESULT{SetForegroundWindow(window)}; }) != 0;
    Activate(window);
    return TRUE;
}

HWND WINAPI GetCapture() {
    return ThisQueue()->capture;
}

HWND WINAPI SetCapture(HWND window) {
    MessageQueue& queue = *ThisQueue();
    const HWND before = queue.capture;
    if (window && !WindowOf(window)) return nullptr;
    queue.capture = window;
    if (before && FindWindowObject(before))
        SendMessageW(before, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(window));
    return before;
}

BOOL WINAPI ReleaseCapture() {
    SetCapture(nullptr);
    return TRUE;
}

SHORT WINAPI GetKeyState(int key) {
    if (key < 0 || key > 255) return 0;
    const BYTE state = ThisQueue()->keys[key];
    return static_cast<SHORT>((state & 0x80 ? 0x8000 : 0) | (state & 1));
}

SHORT WINAPI GetAsyncKeyState(int key) {
    return GetKeyState(key);
}

BOOL WINAPI GetKeyboardState(PBYTE keys) {
    if (!keys) return Fail(ERROR_INVALID_PARAMETER);
    memcpy(keys, ThisQueue()->keys, sizeof(ThisQueue()->keys));
    return TRUE;
}

BOOL WINAPI SetKeyboardState(LPBYTE keys) {
    if (!keys) return Fail(ERROR_INVALID_PARAMETER);
    memcpy(ThisQueue()->keys, keys, sizeof(ThisQueue()->keys));
    return TRUE;
}

BOOL WINAPI GetCursorPos(LPPOINT point) {
    if (!point) return Fail(ERROR_INVALID_PARAMETER);
    std::lock_guard guard(WindowLock());
    *point = g_pointer;
    return TRUE;
}

BOOL WINAPI SetCursorPos(int x, int y) {
    std::lock_guard guard(WindowLock());
    g_pointer = {x, y};
    return TRUE;
}

} // extern "C"
