// How windows are related, and how they are found.
#include "host/guarded.h"
#include "host/text.h"
#include "window/window.h"

#include <algorithm>

namespace win32host {
namespace {

HWND SiblingOf(const Window& window, int step) {
    std::lock_guard guard(WindowLock());
    const auto& siblings = SiblingsOf(window);
    const auto place = std::find(siblings.begin(), siblings.end(), window.handle);
    if (place == siblings.end()) return nullptr;
    const auto index = place - siblings.begin() + step;
    return index < 0 || index >= static_cast<ptrdiff_t>(siblings.size())
               ? nullptr
               : siblings[static_cast<size_t>(index)];
}

HWND FirstOrLast(const Window& window, bool first) {
    std::lock_guard guard(WindowLock());
    const auto& siblings = SiblingsOf(window);
    if (siblings.empty()) return nullptr;
    return first ? siblings.front() : siblings.back();
}

bool EnumerateBelow(HWND parent, WNDENUMPROC procedure, LPARAM parameter) {
    for (HWND child : ChildrenOf(parent)) {
        if (!FindWindowObject(child)) continue;
        if (!procedure(child, parameter)) return false;
        if (FindWindowObject(child) && !EnumerateBelow(child, procedure, parameter)) return false;
    }
    return true;
}

bool Matches(HWND window, const WindowClass* window_class, LPCWSTR text) {
    const auto found = FindWindowObject(window);
    if (!found) return false;
    if (window_class && found->window_class.get() != window_class) return false;
    if (!text) return true;
    const int length = GetWindowTextLengthW(window);
    std::u16string own(static_cast<size_t>(length) + 1, u'\0');
    own.resize(static_cast<size_t>(GetWindowTextW(window, own.data(), length + 1)));
    return SameName(own, text);
}

// The innermost visible window under a point of the screen.
HWND DeepestAt(HWND window, POINT point) {
    for (HWND child : ChildrenOf(window)) {
        RECT rect;
        const auto found = FindWindowObject(child);
        if (!found || !found->Has(WS_VISIBLE) || found->Has(WS_DISABLED)) continue;
        if (!GetWindowRect(child, &rect) || point.x < rect.left || point.x >= rect.right ||
            point.y < rect.top || point.y >= rect.bottom)
            continue;
        const auto place = MAKELONG(point.x, point.y);
        if (SendMessageW(child, WM_NCHITTEST, 0, place) == HTTRANSPARENT) continue;
        return DeepestAt(child, point);
    }
    return window;
}

} // namespace
} // namespace win32host

using namespace win32host;

extern "C" {

HWND WINAPI GetParent(HWND window) {
    const auto found = WindowOf(window);
    if (!found) return nullptr;
    if (found->Has(WS_POPUP)) return found->owner;
    return found->IsChildWindow() ? found->parent : nullptr;
}

HWND WINAPI SetParent(HWND child, HWND parent) {
    const auto found = WindowOf(child);
    if (!found || (parent && !WindowOf(parent))) return nullptr;
    if (parent && (parent == child || IsChild(child, parent))) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const bool visible = found->Has(WS_VISIBLE);
    if (visible) ShowWindow(child, SW_HIDE);
    std::unique_lock guard(WindowLock());
    const HWND before = found->parent;
    TakeOutOfOrder(*found);
    found->parent = parent;
    PlaceInOrder(*found, HWND_TOP);
    guard.unlock();
    if (visible) ShowWindow(child, SW_SHOWNA);
    return before;
}

HWND WINAPI GetAncestor(HWND window, UINT flags) {
    auto found = WindowOf(window);
    if (!found) return nullptr;
    if (flags == GA_PARENT) return found->parent;
    while (found->parent || (flags == GA_ROOTOWNER && found->owner)) {
        const auto next = FindWindowObject(found->parent ? found->parent : found->owner);
        if (!next) break;
        found = next;
    }
    return found->handle;
}

HWND WINAPI GetWindow(HWND window, UINT relation) {
    const auto found = WindowOf(window);
    if (!found) return nullptr;
    switch (relation) {
    case GW_HWNDFIRST:
        return FirstOrLast(*found, true);
    case GW_HWNDLAST:
        return FirstOrLast(*found, false);
    case GW_HWNDNEXT:
        return SiblingOf(*found, 1);
    case GW_HWNDPREV:
        return SiblingOf(*found, -1);
    case GW_OWNER:
        return found->owner;
    case GW_CHILD: {
        std::lock_guard guard(WindowLock());
        return found->children.empty() ? nullptr : found->children.front();
    }
    default:
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
}

HWND WINAPI GetTopWindow(HWND window) {
    const auto children = ChildrenOf(window);
    return children.empty() ? nullptr : children.front();
}

HWND WINAPI GetLastActivePopup(HWND window) {
    if (!WindowOf(window)) return nullptr;
    for (HWND top : ChildrenOf(nullptr)) {
        const auto found = FindWindowObject(top);
        if (found && found->owner == window && found->Has(WS_VISIBLE)) return top;
    }
    return window;
}

BOOL WINAPI IsChild(HWND parent, HWND window) {
    auto found = FindWindowObject(window);
    while (found && found->IsChildWindow()) {
        if (found->parent == parent) return parent != nullptr;
        found = FindWindowObject(found->parent);
    }
    return FALSE;
}

BOOL WINAPI EnumWindows(WNDENUMPROC procedure, LPARAM parameter) {
    if (!procedure) return Fail(ERROR_INVALID_PARAMETER);
    for (HWND top : ChildrenOf(nullptr))
        if (FindWindowObject(top) && !procedure(top, parameter)) return FALSE;
    return TRUE;
}

BOOL WINAPI EnumChildWindows(HWND parent, WNDENUMPROC procedure, LPARAM parameter) {
    if (!procedure) return Fail(ERROR_INVALID_PARAMETER);
    return EnumerateBelow(parent, procedure, parameter);
}

BOOL WINAPI EnumThreadWindows(DWORD thread, WNDENUMPROC procedure, LPARAM parameter) {
    if (!procedure) return Fail(ERROR_INVALID_PARAMETER);
    for (HWND top : ChildrenOf(nullptr)) {
        const auto found = FindWindowObject(top);
        if (found && found->queue->thread == thread && !procedure(top, parameter)) return FALSE;
    }
    return TRUE;
}

HWND WINAPI FindWindowW(LPCWSTR class_name, LPCWSTR text) {
    return FindWindowExW(nullptr, nullptr, class_name, text);
}

HWND WINAPI FindWindowExW(HWND parent, HWND after, LPCWSTR class_name, LPCWSTR text) {
    const auto window_class = class_name ? ClassOf(class_name) : nullptr;
    if (class_name && !window_class) return nullptr;
    bool passed = after == nullptr;
    for (HWND child : ChildrenOf(parent == HWND_MESSAGE ? nullptr : parent)) {
        if (passed && Matches(child, window_class.get(), text)) return child;
        passed = passed || child == after;
    }
    return nullptr;
}

HWND WINAPI WindowFromPoint(POINT point) {
    return DeepestAt(nullptr, point);
}

HWND WINAPI ChildWindowFromPoint(HWND parent, POINT point) {
    const auto found = WindowOf(parent);
    if (!found) return nullptr;
    for (HWND child : ChildrenOf(parent)) {
        const auto below = FindWindowObject(child);
        if (below && point.x >= below->rect.left && point.x < below->rect.right &&
            point.y >= below->rect.top && point.y < below->rect.bottom)
            return child;
    }
    const RECT& client = found->client;
    return point.x >= 0 && point.y >= 0 && point.x < client.right - client.left &&
                   point.y < client.bottom - client.top
               ? parent
               : nullptr;
}

} // extern "C"
