// How windows come and go.
#include "host/guarded.h"
#include "host/text.h"
#include "window/focus.h"
#include "window/frame.h"
#include "window/painting.h"
#include "window/window.h"

#include <algorithm>

namespace win32host {
namespace {

constexpr RECT kDefaultPlace = {60, 60, 660, 460};

void SendParentNotify(const Window& window, UINT event) {
    if (!window.IsChildWindow() || (window.extended_style & WS_EX_NOPARENTNOTIFY)) return;
    SendMessageW(window.parent, WM_PARENTNOTIFY, static_cast<WPARAM>(MAKELONG(event, window.id)),
                 reinterpret_cast<LPARAM>(window.handle));
}

// Takes the window out of everything that knows it and closes its handle.
void Forget(const std::shared_ptr<Window>& window) {
    ForgetPaint(*window);
    ForgetWindow(window->handle);
    std::lock_guard guard(WindowLock());
    TakeOutOfOrder(*window);
    --window->window_class->windows;
    (void)Close<Window>(window->handle);
}

// Sends WM_DESTROY from the outermost inwards.
void SendDestroy(HWND window) {
    const auto found = FindWindowObject(window);
    if (!found) return;
    found->destroying = true;
    SendMessageW(window, WM_DESTROY, 0, 0);
    if (!FindWindowObject(window)) return;
    for (HWND child : ChildrenOf(window)) SendDestroy(child);
}

// Sends WM_NCDESTROY from the innermost outwards.
void SendEnd(HWND window) {
    for (HWND child : ChildrenOf(window)) SendEnd(child);
    const auto found = FindWindowObject(window);
    if (!found) return;
    SendMessageW(window, WM_NCDESTROY, 0, 0);
    if (FindWindowObject(window)) Forget(found);
}

void DestroyOwned(HWND owner) {
    for (HWND top : ChildrenOf(nullptr)) {
        const auto found = FindWindowObject(top);
        if (found && found->owner == owner) DestroyWindow(top);
    }
}

// Where a new window lies, with the system's choice in place of CW_USEDEFAULT.
RECT PlaceOf(DWORD style, int x, int y, int width, int height) {
    if (!(style & (WS_CHILD | WS_POPUP))) {
        if (x == CW_USEDEFAULT) {
            x = kDefaultPlace.left;
            y = kDefaultPlace.top;
        }
        if (width == CW_USEDEFAULT) {
            width = kDefaultPlace.right - kDefaultPlace.left;
            height = kDefaultPlace.bottom - kDefaultPlace.top;
        }
    } else {
        if (x == CW_USEDEFAULT) x = y = 0;
        if (width == CW_USEDEFAULT) width = height = 0;
    }
    return {x, y, x + std::max(width, 0), y + std::max(height, 0)};
}

std::shared_ptr<Window> MakeWindow(const std::shared_ptr<WindowClass>& window_class,
                                   const CREATESTRUCTW& create) {
    auto window = std::make_shared<Window>();
    window->window_class = window_class;
    window->queue = ThisQueue();
    window->procedure = window_class->procedure;
    window->style = static_cast<DWORD>(create.style) & ~static_cast<DWORD>(WS_VISIBLE);
    if (!(create.style & static_cast<LONG>(WS_CHILD))) {
        window->style |= WS_CLIPSIBLINGS;
        if (!(create.style & static_cast<LONG>(WS_POPUP))) window->style |= WS_CAPTION;
    }
    window->extended_style = create.dwExStyle;
    window->module = create.hInstance;
    window->extra.resize(static_cast<size_t>(window_class->window_extra));
    if (window->IsChildWindow()) {
        window->id = reinterpret_cast<LONG_PTR>(create.hMenu);
        window->parent = create.hwndParent;
    } else if (create.hwndParent && create.hwndParent != HWND_MESSAGE) {
        window->owner = GetAncestor(create.hwndParent, GA_ROOT);
    }
    window->rect =
        PlaceOf(static_cast<DWORD>(create.style), create.x, create.y, create.cx, create.cy);
    const HANDLE handle = NewHandle(window);
    if (!handle) return nullptr;
    window->handle = static_cast<HWND>(handle);
    std::lock_guard guard(WindowLock());
    ++window_class->windows;
    // New children come last, new windows at the top first.
    PlaceInOrder(*window, window->IsChildWindow() ? HWND_BOTTOM : HWND_TOP);
    return window;
}

// The messages of a new window. False if it refused, or was destroyed meanwhile.
bool Introduce(const std::shared_ptr<Window>& window, CREATESTRUCTW& create) {
    const HWND handle = window->handle;
    const auto parameter = reinterpret_cast<LPARAM>(&create);
    if (!SendMessageW(handle, WM_NCCREATE, 0, parameter)) {
        if (FindWindowObject(handle)) Forget(window);
        return false;
    }
    UpdateClient(*window);
    if (SendMessageW(handle, WM_CREATE, 0, parameter) == -1) {
        if (FindWindowObject(handle)) DestroyWindow(handle);
        return false;
    }
    if (!FindWindowObject(handle)) return false;
    const RECT client = window->client;
    SendMessageW(handle, WM_SIZE, SIZE_RESTORED,
                 MAKELONG(client.right - client.left, client.bottom - client.top));
    SendMessageW(handle, WM_MOVE, 0,
                 MAKELONG(window->rect.left + client.left, window->rect.top + client.top));
    return FindWindowObject(handle) != nullptr;
}

} // namespace
} // namespace win32host

using namespace win32host;

extern "C" {

HWND WINAPI CreateWindowExW(DWORD extended_style, LPCWSTR class_name, LPCWSTR text, DWORD style,
                            int x, int y, int width, int height, HWND parent, HMENU menu,
                            HINSTANCE module, LPVOID parameter) {
    return Guarded(static_cast<HWND>(nullptr), [&]() -> HWND {
        const auto window_class = ClassOf(class_name);
        const bool is_child = (style & (WS_CHILD | WS_POPUP)) == WS_CHILD;
        DWORD error = NO_ERROR;
        if (!window_class)
            error = ERROR_CANNOT_FIND_WND_CLASS;
        else if (is_child && !parent)
            error = ERROR_TLW_WITH_WSCHILD;
        else if (parent && parent != HWND_MESSAGE && !FindWindowObject(parent))
            error = ERROR_INVALID_WINDOW_HANDLE;
        if (error != NO_ERROR) {
            SetLastError(error);
            return nullptr;
        }
        if (extended_style & WS_EX_DLGMODALFRAME || (style & WS_CAPTION) == WS_CAPTION ||
            style & WS_THICKFRAME)
            extended_style |= WS_EX_WINDOWEDGE;
        CREATESTRUCTW create = {parameter, module,     menu,
                                parent,    height,     width,
                                y,         x,          static_cast<LONG>(style),
                                text,      class_name, extended_style};
        const auto window = MakeWindow(window_class, create);
        if (!window) return nullptr;
        const HWND handle = window->handle;
        const RECT place = window->rect;
        create.x = place.left;
        create.y = place.top;
        create.cx = place.right - place.left;
        create.cy = place.bottom - place.top;
        if (!Introduce(window, create)) return nullptr;
        SendParentNotify(*window, WM_CREATE);
        if (style & WS_VISIBLE && FindWindowObject(handle))
            ShowWindow(handle, window->IsChildWindow() ? SW_SHOWNA : SW_SHOW);
        return FindWindowObject(handle) ? handle : nullptr;
    });
}

BOOL WINAPI DestroyWindow(HWND window) {
    const auto found = WindowOf(window);
    if (!found) return FALSE;
    if (found->queue != ThisQueue()) return Fail(ERROR_ACCESS_DENIED);
    if (found->destroying) return TRUE;
    found->destroying = true;
    SendParentNotify(*found, WM_DESTROY);
    if (!FindWindowObject(window)) return TRUE;
    if (!found->IsChildWindow()) DestroyOwned(window);
    if (found->Has(WS_VISIBLE) && FindWindowObject(window)) {
        if (found->IsChildWindow())
            ShowWindow(window, SW_HIDE);
        else
            SetWindowPos(window, nullptr, 0, 0, 0, 0,
                         SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
    }
    if (!FindWindowObject(window)) return TRUE;
    LeaveWindow(window);
    if (!FindWindowObject(window)) return TRUE;
    SendDestroy(window);
    SendEnd(window);
    return TRUE;
}

} // extern "C"
