#include "window/painting.h"

#include "gdi/drawing_context.h"
#include "host/guarded.h"

#include <algorithm>

namespace win32host {
namespace {

thread_local const PictureInProgress* t_picture = nullptr;

RECT ClientOf(const Window& window) {
    return {0, 0, window.client.right - window.client.left,
            window.client.bottom - window.client.top};
}

RECT Union(const RECT& a, const RECT& b) {
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

// What of the window's client area (or of all of it) is inside of everything that it is in, on the
// screen.
RECT VisiblePart(const Window& window, bool whole) {
    const POINT origin = whole ? ScreenOrigin(window) : ClientOrigin(window);
    const int width =
        whole ? window.rect.right - window.rect.left : window.client.right - window.client.left;
    const int height =
        whole ? window.rect.bottom - window.rect.top : window.client.bottom - window.client.top;
    RECT part = {origin.x, origin.y, origin.x + width, origin.y + height};
    for (auto outer = FindWindowObject(window.parent); outer;
         outer = FindWindowObject(outer->parent)) {
        const POINT start = ClientOrigin(*outer);
        const RECT client = ClientOf(*outer);
        part.left = std::max(part.left, start.x);
        part.top = std::max(part.top, start.y);
        part.right = std::min(part.right, start.x + client.right);
        part.bottom = std::min(part.bottom, start.y + client.bottom);
    }
    part.right = std::max(part.left, part.right);
    part.bottom = std::max(part.top, part.bottom);
    return part;
}

HDC ContextOf(const Window& window, bool whole) {
    if (!t_picture) return NewSurfaceContext(nullptr, {0, 0}, {0, 0, 0, 0});
    const POINT base = t_picture->origin;
    const POINT origin = whole ? ScreenOrigin(window) : ClientOrigin(window);
    RECT clip = VisiblePart(window, whole);
    clip.left -= base.x;
    clip.right -= base.x;
    clip.top -= base.y;
    clip.bottom -= base.y;
    return NewSurfaceContext(t_picture->surface, {origin.x - base.x, origin.y - base.y}, clip);
}

void Unmark(Window& window) {
    if (window.needs_paint) --window.queue->windows_to_paint;
    window.needs_paint = false;
    window.needs_erase = false;
}

void EraseIfNeeded(Window& window, HDC dc, PAINTSTRUCT& paint) {
    paint.fErase = FALSE;
    if (!window.needs_erase) return;
    window.needs_erase = false;
    paint.fErase = !SendMessageW(window.handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0);
}

} // namespace

void SetPicture(const PictureInProgress* picture) {
    t_picture = picture;
}

const PictureInProgress* CurrentPicture() {
    return t_picture;
}

void MarkForPaint(Window& window, const RECT* rect, bool erase) {
    const RECT client = ClientOf(window);
    const RECT area = rect ? *rect : client;
    if (!window.needs_paint) ++window.queue->windows_to_paint;
    window.update = window.needs_paint ? Union(window.update, area) : area;
    window.needs_paint = true;
    window.needs_erase = window.needs_erase || erase;
}

void ForgetPaint(Window& window) {
    Unmark(window);
}

HWND WindowToPaint(MessageQueue& queue, HWND within) {
    std::vector<HWND> windows = within ? std::vector<HWND>{within} : ChildrenOf(nullptr);
    while (!windows.empty()) {
        const HWND handle = windows.back();
        windows.pop_back();
        const auto window = FindWindowObject(handle);
        if (!window || window->queue.get() != &queue || !window->Has(WS_VISIBLE)) continue;
        if (window->needs_paint && IsWindowVisible(handle)) return handle;
        windows.insert(windows.end(), window->children.begin(), window->children.end());
    }
    // What is marked is hidden: it is marked again when it is shown.
    return nullptr;
}

} // namespace win32host

using namespace win32host;

extern "C" {

BOOL WINAPI InvalidateRect(HWND window, const RECT* rect, BOOL erase) {
    if (!window) {
        for (HWND top : ChildrenOf(nullptr))
            RedrawWindow(top, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
        return TRUE;
    }
    const auto found = WindowOf(window);
    if (!found) return FALSE;
    if (found->queue != ThisQueue()) {
        const RECT area = rect ? *rect : RECT{};
        AskThread(found->queue, [=, all = !rect] {
            return LRESULT{InvalidateRect(window, all ? nullptr : &area, erase)};
        });
        return TRUE;
    }
    if (found->draws && found->Has(WS_VISIBLE)) MarkForPaint(*found, rect, erase != FALSE);
    return TRUE;
}

BOOL WINAPI ValidateRect(HWND window, const RECT* rect) {
    const auto found = WindowOf(window);
    if (!found) return FALSE;
    if (!rect) Unmark(*found);
    return TRUE;
}

BOOL WINAPI UpdateWindow(HWND window) {
    const auto found = WindowOf(window);
    if (!found) return FALSE;
    if (found->needs_paint && IsWindowVisible(window)) SendMessageW(window, WM_PAINT, 0, 0);
    return TRUE;
}

BOOL WINAPI RedrawWindow(HWND window, const RECT* rect, HRGN, UINT flags) {
    const auto found = WindowOf(window);
    if (!found) return FALSE;
    if (flags & RDW_INVALIDATE) InvalidateRect(window, rect, (flags & RDW_ERASE) != 0);
    if (flags & RDW_VALIDATE) ValidateRect(window, rect);
    if (flags & RDW_ALLCHILDREN)
        for (HWND child : ChildrenOf(window)) RedrawWindow(child, nullptr, nullptr, flags);
    if (flags & RDW_UPDATENOW && FindWindowObject(window)) UpdateWindow(window);
    return TRUE;
}

BOOL WINAPI GetUpdateRect(HWND window, LPRECT rect, BOOL) {
    const auto found = WindowOf(window);
    if (!found) return FALSE;
    if (rect) *rect = found->needs_paint ? found->update : RECT{};
    return found->needs_paint;
}

HDC WINAPI BeginPaint(HWND window, LPPAINTSTRUCT paint) {
    const auto found = WindowOf(window);
    if (!found || !paint) return nullptr;
    return Guarded(HDC(nullptr), [&] {
        *paint = {};
        paint->rcPaint = found->needs_paint && !t_picture ? found->update : ClientOf(*found);
        paint->hdc = ContextOf(*found, false);
        const bool erases = found->needs_erase;
        Unmark(*found);
        found->needs_erase = erases && !t_picture;
        EraseIfNeeded(*found, paint->hdc, *paint);
        return paint->hdc;
    });
}

BOOL WINAPI EndPaint(HWND, const PAINTSTRUCT* paint) {
    return !paint || ReleaseSurfaceContext(paint->hdc);
}

HDC WINAPI GetDC(HWND window) {
    return Guarded(HDC(nullptr), [&]() -> HDC {
        if (!window) return NewSurfaceContext(nullptr, {0, 0}, {0, 0, 0, 0});
        const auto found = WindowOf(window);
        return found ? ContextOf(*found, false) : nullptr;
    });
}

HDC WINAPI GetWindowDC(HWND window) {
    return Guarded(HDC(nullptr), [&]() -> HDC {
        const auto found = WindowOf(window);
        return found ? ContextOf(*found, true) : nullptr;
    });
}

int WINAPI ReleaseDC(HWND, HDC dc) {
    return ReleaseSurfaceContext(dc);
}

} // extern "C"
