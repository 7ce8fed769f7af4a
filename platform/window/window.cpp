#include "window/window.h"

#include "host/guarded.h"

#include <algorithm>

namespace win32host {

std::recursive_mutex& WindowLock() {
    static std::recursive_mutex* lock = new std::recursive_mutex;
    return *lock;
}

std::shared_ptr<Window> FindWindowObject(HWND window) {
    return std::dynamic_pointer_cast<Window>(FindObject(window));
}

std::shared_ptr<Window> WindowOf(HWND window) {
    auto found = FindWindowObject(window);
    if (!found) SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return found;
}

std::vector<HWND>& TopWindows() {
    static auto* windows = new std::vector<HWND>;
    return *windows;
}

std::vector<HWND>& SiblingsOf(const Window& window) {
    const auto parent = window.parent ? FindWindowObject(window.parent) : nullptr;
    return parent ? parent->children : TopWindows();
}

void PlaceInOrder(const Window& window, HWND after) {
    std::lock_guard guard(WindowLock());
    std::vector<HWND>& siblings = SiblingsOf(window);
    auto place = siblings.begin();
    if (after == HWND_BOTTOM) {
        place = siblings.end();
    } else if (after != HWND_TOP && after != HWND_TOPMOST && after != HWND_NOTOPMOST) {
        const auto found = std::find(siblings.begin(), siblings.end(), after);
        if (found != siblings.end()) place = found + 1;
    }
    siblings.insert(place, window.handle);
}

void TakeOutOfOrder(const Window& window) {
    std::lock_guard guard(WindowLock());
    std::vector<HWND>& siblings = SiblingsOf(window);
    siblings.erase(std::remove(siblings.begin(), siblings.end(), window.handle), siblings.end());
}

POINT ScreenOrigin(const Window& window) {
    POINT origin = {window.rect.left, window.rect.top};
    const auto parent = window.parent ? FindWindowObject(window.parent) : nullptr;
    if (!parent) return origin;
    const POINT base = ClientOrigin(*parent);
    return {origin.x + base.x, origin.y + base.y};
}

POINT ClientOrigin(const Window& window) {
    const POINT origin = ScreenOrigin(window);
    return {origin.x + window.client.left, origin.y + window.client.top};
}

std::vector<HWND> ChildrenOf(HWND window) {
    std::lock_guard guard(WindowLock());
    if (!window) return TopWindows();
    const auto found = FindWindowObject(window);
    return found ? found->children : std::vector<HWND>();
}

void DropWindowsOf(const MessageQueue* queue) {
    std::lock_guard guard(WindowLock());
    const std::vector<HWND> windows = TopWindows();
    std::vector<HWND> stack;
    for (HWND window : windows) {
        const auto found = FindWindowObject(window);
        if (found && found->queue.get() == queue) stack.push_back(window);
    }
    while (!stack.empty()) {
        const auto found = FindWindowObject(stack.back());
        stack.pop_back();
        if (!found) continue;
        for (HWND child : found->children) stack.push_back(child);
        TakeOutOfOrder(*found);
        if (found->window_class) --found->window_class->windows;
        (void)Close<Window>(found->handle);
    }
}

} // namespace win32host

extern "C" {

BOOL WINAPI IsWindow(HWND window) {
    return win32host::WindowOf(window) != nullptr;
}

DWORD WINAPI GetWindowThreadProcessId(HWND window, LPDWORD process) {
    const auto found = win32host::WindowOf(window);
    if (!found) return 0;
    if (process) *process = GetCurrentProcessId();
    return found->queue->thread;
}

HWND WINAPI GetDesktopWindow() {
    return nullptr;
}

} // extern "C"
