// Where windows lie, and whether they show. Windows are changed by their own threads only; others
// wait until that is done.
#include "host/guarded.h"
#include "window/focus.h"
#include "window/frame.h"
#include "window/painting.h"
#include "window/window.h"

#include <algorithm>

namespace win32host {
namespace {

// Moves noted by DeferWindowPos.
class DeferredMoves : public HandleObject {
public:
    std::vector<WINDOWPOS> moves;
};

bool SameSize(const RECT& a, const RECT& b) {
    return a.right - a.left == b.right - b.left && a.bottom - a.top == b.bottom - b.top;
}

void Reorder(const Window& window, HWND after) {
    if (after == window.handle) return;
    std::lock_guard guard(WindowLock());
    TakeOutOfOrder(window);
    PlaceInOrder(window, after);
    // What a window owns stays before it.
    if (window.IsChildWindow()) return;
    const std::vector<HWND> tops = TopWindows();
    for (auto i = tops.rbegin(); i != tops.rend(); ++i) {
        const auto owned = FindWindowObject(*i);
        if (owned && owned->owner == window.handle) Reorder(*owned, HWND_TOP);
    }
}

// Keeps the changed position and tells the window.
void Place(const std::shared_ptr<Window>& window, const WINDOWPOS& position) {
    const RECT before = window->rect;
    RECT rect = before;
    if (!(position.flags & SWP_NOMOVE)) {
        rect.right += position.x - rect.left;
        rect.bottom += position.y - rect.top;
        rect.left = position.x;
        rect.top = position.y;
    }
    if (!(position.flags & SWP_NOSIZE)) {
        rect.right = rect.left + std::max(position.cx, 0);
        rect.bottom = rect.top + std::max(position.cy, 0);
    }
    if (!(position.flags & SWP_NOZORDER)) Reorder(*window, position.hwndInsertAfter);
    window->rect = rect;
    if (position.flags & SWP_SHOWWINDOW) window->style |= WS_VISIBLE;
    if (position.flags & SWP_HIDEWINDOW) window->style &= ~static_cast<DWORD>(WS_VISIBLE);
    if (position.flags & SWP_FRAMECHANGED || !SameSize(before, rect)) UpdateClient(*window);
}

} // namespace
} // namespace win32host

using namespace win32host;

extern "C" {

BOOL WINAPI GetWindowRect(HWND window, LPRECT rect) {
    const auto found = WindowOf(window);
    if (!found) return FALSE;
    if (!rect) return Fail(ERROR_INVALID_PARAMETER);
    const POINT origin = ScreenOrigin(*found);
    *rect = {origin.x, origin.y, origin.x + found->rect.right - found->rect.left,
             origin.y + found->rect.bottom - found->rect.top};
    return TRUE;
}

BOOL WINAPI GetClientRect(HWND window, LPRECT rect) {
    const auto found = WindowOf(window);
    if (!found) return FALSE;
    if (!rect) return Fail(ERROR_INVALID_PARAMETER);
    const RECT& client = found->client;
    *rect = {0, 0, client.right - client.left, client.bottom - client.top};
    return TRUE;
}

BOOL WINAPI ClientToScreen(HWND window, LPPOINT point) {
    const auto found = WindowOf(window);
    if (!found || !point) return FALSE;
    const POINT origin = ClientOrigin(*found);
    point->x += origin.x;
    point->y += origin.y;
    return TRUE;
}

BOOL WINAPI ScreenToClient(HWND window, LPPOINT point) {
    const auto found = WindowOf(window);
    if (!found || !point) return FALSE;
    const POINT origin = ClientOrigin(*found);
    point->x -= origin.x;
    point->y -= origin.y;
    return TRUE;
}

int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count) {
    POINT shift = {};
    if (from) ClientToScreen(from, &shift);
    if (to) ScreenToClient(to, &shift);
    for (UINT i = 0; points && i < count; ++i) {
        points[i].x += shift.x;
        points[i].y += shift.y;
    }
    return MAKELONG(shift.x, shift.y);
}

BOOL WINAPI SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags) {
    const auto found = WindowOf(window);
    if (!found) return FALSE;
    if (found->queue != ThisQueue())
        return DoInThread(found->queue, [=] {
                   return LRESULT{SetWindowPos(window, after, x, y, width, height, flags)};
               }) != 0;
    WINDOWPOS position = {window, after, x, y, width, height, flags};
    const RECT& rect = found->rect;
    if (flags & SWP_NOMOVE) {
        position.x = rect.left;
        position.y = rect.top;
    }
    if (flags & SWP_NOSIZE) {
        position.cx = rect.right - rect.left;
        position.cy = rect.bottom - rect.top;
    }
    if (!(flags & SWP_NOSENDCHANGING)) {
        SendMessageW(window, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&position));
        if (!FindWindowObject(window)) return FALSE;
    }
    if (position.x == rect.left && position.y == rect.top) position.flags |= SWP_NOMOVE;
    if (position.cx == rect.right - rect.left && position.cy == rect.bottom - rect.top)
        position.flags |= SWP_NOSIZE;
    const bool was_visible = found->Has(WS_VISIBLE);
    if (position.flags & SWP_HIDEWINDOW && was_visible) {
        found->style &= ~static_cast<DWORD>(WS_VISIBLE);
        LeaveWindow(window);
        if (!FindWindowObject(window)) return FALSE;
    }
    Place(found, position);
    if (found->Has(WS_VISIBLE)) InvalidateRect(window, nullptr, TRUE);
    constexpr UINT kNothing = SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER;
    const bool changed = (position.flags & kNothing) != kNothing ||
                         position.flags & (SWP_FRAMECHANGED | SWP_SHOWWINDOW | SWP_HIDEWINDOW);
    if (changed) {
        SendMessageW(window, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&position));
    }
    if (!(flags & SWP_NOACTIVATE) && FindWindowObject(window) && !found->IsChildWindow() &&
        found->Has(WS_VISIBLE) && !(flags & SWP_HIDEWINDOW))
        Activate(window);
    return TRUE;
}

BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint) {
    const UINT redraw = repaint ? 0u : SWP_NOREDRAW;
    return SetWindowPos(window, nullptr, x, y, width, height,
                        SWP_NOZORDER | SWP_NOACTIVATE | redraw);
}

BOOL WINAPI BringWindowToTop(HWND window) {
    return SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}

HANDLE WINAPI BeginDeferWindowPos(int count) {
    if (count < 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return Guarded(HANDLE(nullptr), [] { return NewHandle(std::make_shared<DeferredMoves>()); });
}

HANDLE WINAPI DeferWindowPos(HANDLE positions, HWND window, HWND after, int x, int y, int width,
                             int height, UINT flags) {
    const auto found = Find<DeferredMoves>(positions);
    if (!found || !WindowOf(window)) return nullptr;
    return Guarded(HANDLE(nullptr), [&] {
        found->moves.push_back({window, after, x, y, width, height, flags});
        return positions;
    });
}

BOOL WINAPI EndDeferWindowPos(HANDLE positions) {
    const auto found = Close<DeferredMoves>(positions);
    if (!found) return FALSE;
    for (const WINDOWPOS& move : found->moves)
        SetWindowPos(move.hwnd, move.hwndInsertAfter, move.x, move.y, move.cx, move.cy, move.flags);
    return TRUE;
}

BOOL WINAPI ShowWindow(HWND window, int show) {
    const auto found = WindowOf(window);
    if (!found) return FALSE;
    if (found->queue != ThisQueue())
        return DoInThread(found->queue, [=] { return LRESULT{ShowWindow(window, show)}; }) != 0;
    const bool was_visible = found->Has(WS_VISIBLE);
    const bool visible = show != SW_HIDE;
    if (visible == was_visible) {
        const bool activates = show == SW_SHOWNORMAL || show == SW_SHOW || show == SW_RESTORE;
        if (visible && activates && !found->IsChildWindow()) Activate(window);
        return was_visible;
    }
    SendMessageW(window, WM_SHOWWINDOW, visible, 0);
    if (!FindWindowObject(window)) return was_visible;
    UINT flags = SWP_NOMOVE | SWP_NOSIZE | (visible ? SWP_SHOWWINDOW : SWP_HIDEWINDOW);
    const bool quiet =
        found->IsChildWindow() || show == SW_SHOWNA || show == SW_SHOWNOACTIVATE || !visible;
    if (quiet) flags |= SWP_NOACTIVATE | SWP_NOZORDER;
    SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, flags);
    return was_visible;
}

BOOL WINAPI IsWindowVisible(HWND window) {
    auto found = WindowOf(window);
    while (found) {
        if (!found->Has(WS_VISIBLE)) return FALSE;
        if (!found->parent) return TRUE;
        found = FindWindowObject(found->parent);
    }
    return FALSE;
}

BOOL WINAPI EnableWindow(HWND window, BOOL enable) {
    const auto found = WindowOf(window);
    if (!found) return FALSE;
    if (found->queue != ThisQueue())
        return DoInThread(found->queue, [=] { return LRESULT{EnableWindow(window, enable)}; }) != 0;
    const bool was_disabled = found->Has(WS_DISABLED);
    if (!enable && !was_disabled) {
        SendMessageW(window, WM_CANCELMODE, 0, 0);
        if (!FindWindowObject(window)) return FALSE;
        found->style |= WS_DISABLED;
        if (GetFocus() == window) SetFocus(nullptr);
        if (!FindWindowObject(window)) return FALSE;
        SendMessageW(window, WM_ENABLE, FALSE, 0);
    } else if (enable && was_disabled) {
        found->style &= ~static_cast<DWORD>(WS_DISABLED);
        SendMessageW(window, WM_ENABLE, TRUE, 0);
    }
    return was_disabled;
}

BOOL WINAPI IsWindowEnabled(HWND window) {
    const auto found = WindowOf(window);
    return found && !found->Has(WS_DISABLED);
}

BOOL WINAPI IsWindowUnicode(HWND window) {
    return WindowOf(window) != nullptr;
}

} // extern "C"
