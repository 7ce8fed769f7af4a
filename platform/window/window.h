// The windows of this process: what a window handle names, and the tree that they form.
#pragma once

#include "host/handles.h"
#include "window/queue.h"
#include "window/scroll_bars.h"

#include <windows.h>

#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace win32host {

struct WindowClass {
    std::u16string name;
    UINT style = 0;
    WNDPROC procedure = nullptr;
    int window_extra = 0;
    HINSTANCE module = nullptr;
    HICON icon = nullptr;
    HCURSOR cursor = nullptr;
    HBRUSH background = nullptr;
    ATOM atom = 0;
    size_t windows = 0; // that exist
};

// Guards the classes and everything of a window that another thread may look at. Never held while a
// window procedure runs.
std::recursive_mutex& WindowLock();

class Window : public HandleObject {
public:
    HWND handle = nullptr;
    std::shared_ptr<WindowClass> window_class;
    std::shared_ptr<MessageQueue> queue; // of the thread that made it
    WNDPROC procedure = nullptr;
    DWORD style = 0;
    DWORD extended_style = 0;
    LONG_PTR id = 0;
    HINSTANCE module = nullptr;
    LONG_PTR user_data = 0;
    std::vector<BYTE> extra;
    std::vector<std::pair<std::u16string, HANDLE>> properties;
    std::u16string text;

    HWND parent = nullptr;      // whose client area it is in; null at the top
    HWND owner = nullptr;       // of a window at the top
    std::vector<HWND> children; // the uppermost first

    RECT rect = {};   // in the parent's client area, or on the screen
    RECT client = {}; // in the window itself

    bool destroying = false;
    bool draws = true; // WM_SETREDRAW
    bool needs_paint = false;
    bool needs_erase = false;
    RECT update = {}; // in the client area
    bool frame_active = false;
    ScrollBar horizontal;
    ScrollBar vertical;
    std::shared_ptr<struct DialogState> dialog; // of a dialog

    bool Has(DWORD bits) const { return (style & bits) == bits; }
    bool IsChildWindow() const { return (style & (WS_CHILD | WS_POPUP)) == WS_CHILD; }
};

// The window, or null with ERROR_INVALID_WINDOW_HANDLE.
std::shared_ptr<Window> WindowOf(HWND window);
// The same without touching the last error.
std::shared_ptr<Window> FindWindowObject(HWND window);

// The class with this name, or with this atom in place of one; null if there is none.
std::shared_ptr<WindowClass> ClassOf(LPCWSTR name);

// The windows at the top, the uppermost first. The lock must be held.
std::vector<HWND>& TopWindows();
// The list that a window is in: its parent's children or the windows at the top.
std::vector<HWND>& SiblingsOf(const Window& window);
// Puts the window into its list after `after` (HWND_TOP, HWND_BOTTOM, or a sibling).
void PlaceInOrder(const Window& window, HWND after);
void TakeOutOfOrder(const Window& window);

// Where the window, or its client area, starts on the screen.
POINT ScreenOrigin(const Window& window);
POINT ClientOrigin(const Window& window);

// The handles of a list that still name windows. Copies may be walked while procedures run.
std::vector<HWND> ChildrenOf(HWND window);

// Destroys what a thread leaves behind, without a word to the windows.
void DropWindowsOf(const MessageQueue* queue);

} // namespace win32host
