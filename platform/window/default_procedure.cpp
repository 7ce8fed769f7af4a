// What windows do with messages that they do not handle themselves.
#include "host/guarded.h"
#include "window/focus.h"
#include "window/frame.h"
#include "window/painting.h"
#include "window/window.h"

#include <algorithm>

namespace win32host {
namespace {

LRESULT SetText(Window& window, LPCWSTR text) {
    return Guarded(LRESULT(FALSE), [&]() -> LRESULT {
        std::lock_guard guard(WindowLock());
        window.text = text ? text : u"";
        return TRUE;
    });
}

LRESULT GetText(const Window& window, WPARAM size, LPARAM buffer) {
    auto* to = reinterpret_cast<LPWSTR>(buffer);
    if (!to || size == 0) return 0;
    std::lock_guard guard(WindowLock());
    const size_t count = std::min(window.text.size(), static_cast<size_t>(size) - 1);
    *std::copy_n(window.text.begin(), count, to) = u'\0';
    return static_cast<LRESULT>(count);
}

void ShrinkByFrame(const Window& window, RECT& area) {
    const FrameWidths widths = FrameOf(window.style, window.extended_style);
    area.left += widths.border;
    area.top += widths.border + widths.caption;
    area.right -= widths.border + widths.right;
    area.bottom -= widths.border + widths.bottom;
}

LRESULT Erase(const Window& window, HDC dc) {
    HBRUSH brush = window.window_class->background;
    if (!brush) return FALSE;
    RECT client;
    GetClientRect(window.handle, &client);
    FillRect(dc, &client, brush);
    return TRUE;
}

LRESULT ControlColor(UINT message, HDC dc) {
    const bool field = message == WM_CTLCOLOREDIT || message == WM_CTLCOLORLISTBOX;
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(dc, GetSysColor(field ? COLOR_WINDOW : COLOR_BTNFACE));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(field ? COLOR_WINDOW : COLOR_BTNFACE));
}

void PositionChanged(const Window& window, const WINDOWPOS& position) {
    const RECT& client = window.client;
    if (!(position.flags & SWP_NOMOVE))
        SendMessageW(window.handle, WM_MOVE, 0,
                     MAKELONG(window.rect.left + client.left, window.rect.top + client.top));
    if (!FindWindowObject(window.handle)) return;
    if (!(position.flags & SWP_NOSIZE) || position.flags & SWP_FRAMECHANGED)
        SendMessageW(window.handle, WM_SIZE, SIZE_RESTORED,
                     MAKELONG(client.right - client.left, client.bottom - client.top));
}

void ShowHelp(const Window& window) {
    HELPINFO info = {};
    info.cbSize = sizeof(info);
    info.iContextType = HELPINFO_WINDOW;
    info.iCtrlId = static_cast<int>(window.IsChildWindow() ? window.id : 0);
    info.hItemHandle = window.handle;
    GetCursorPos(&info.MousePos);
    SendMessageW(window.handle, WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
}

LRESULT ToParent(const Window& window, UINT message, WPARAM first, LPARAM second) {
    return window.IsChildWindow() ? SendMessageW(window.parent, message, first, second) : 0;
}

LRESULT Print(HWND window, HDC dc, LPARAM parts) {
    if (parts & PRF_CHECKVISIBLE && !IsWindowVisible(window)) return 0;
    const auto parameter = reinterpret_cast<WPARAM>(dc);
    if (parts & PRF_ERASEBKGND) SendMessageW(window, WM_ERASEBKGND, parameter, 0);
    if (parts & PRF_CLIENT) SendMessageW(window, WM_PRINTCLIENT, parameter, parts);
    return 0;
}

} // namespace
} // namespace win32host

using namespace win32host;

extern "C" LRESULT WINAPI DefWindowProcW(HWND handle, UINT message, WPARAM first, LPARAM second) {
    const auto window = WindowOf(handle);
    if (!window) return 0;
    switch (message) {
    case WM_NCCREATE:
        SetText(*window, reinterpret_cast<const CREATESTRUCTW*>(second)->lpszName);
        return TRUE;
    case WM_SETTEXT:
        return SetText(*window, reinterpret_cast<LPCWSTR>(second));
    case WM_GETTEXT:
        return GetText(*window, first, second);
    case WM_GETTEXTLENGTH:
        return static_cast<LRESULT>(window->text.size());
    case WM_NCCALCSIZE:
        if (second) ShrinkByFrame(*window, *reinterpret_cast<RECT*>(second));
        return 0;
    case WM_NCHITTEST:
        return HTCLIENT;
    case WM_NCACTIVATE:
        return TRUE;
    case WM_NCPAINT:
        if (window->style & (WS_VSCROLL | WS_HSCROLL)) {
            const HDC dc = GetWindowDC(handle);
            DrawScrollBars(handle, dc);
            ReleaseDC(handle, dc);
        }
        return 0;
    case WM_CLOSE:
        DestroyWindow(handle);
        return 0;
    case WM_SETREDRAW:
        window->draws = first != 0;
        return 0;
    case WM_ERASEBKGND:
        return Erase(*window, reinterpret_cast<HDC>(first));
    case WM_PAINT: {
        PAINTSTRUCT paint;
        BeginPaint(handle, &paint);
        EndPaint(handle, &paint);
        return 0;
    }
    case WM_PRINT:
        return Print(handle, reinterpret_cast<HDC>(first), second);
    case WM_CTLCOLORMSGBOX:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORDLG:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORSCROLLBAR:
        return ControlColor(message, reinterpret_cast<HDC>(first));
    case WM_WINDOWPOSCHANGED:
        PositionChanged(*window, *reinterpret_cast<const WINDOWPOS*>(second));
        return 0;
    case WM_ACTIVATE:
        if (LOWORD(first) != WA_INACTIVE && !window->IsChildWindow()) SetFocus(handle);
        return 0;
    case WM_MOUSEACTIVATE:
        return window->IsChildWindow() ? SendMessageW(window->parent, message, first, second)
                                       : MA_ACTIVATE;
    case WM_CANCELMODE:
        if (GetCapture() == handle) ReleaseCapture();
        return 0;
    case WM_SYSCOMMAND:
        if ((first & 0xFFF0) == SC_CLOSE) SendMessageW(handle, WM_CLOSE, 0, 0);
        return 0;
    case WM_KEYUP:
        if (first == VK_F1) ShowHelp(*window);
        return 0;
    case WM_SYSKEYDOWN:
        if (first == VK_F4 && GetKeyState(VK_MENU) < 0)
            PostMessageW(GetAncestor(handle, GA_ROOT), WM_SYSCOMMAND, SC_CLOSE, 0);
        return 0;
    case WM_HELP:
    case WM_CONTEXTMENU:
    case WM_MOUSEWHEEL:
    case WM_SETCURSOR:
        return ToParent(*window, message, first, second);
    case WM_NOTIFYFORMAT:
        return second == NF_QUERY ? NFR_UNICODE : 0;
    case WM_GETICON:
    case WM_SETICON:
    default:
        return 0;
    }
}

// A key's character as a keyboard of the United States gives it.
static WPARAM CharacterOf(WPARAM key) {
    const bool shift = GetKeyState(VK_SHIFT) < 0;
    if (key >= 'A' && key <= 'Z') {
        if (GetKeyState(VK_CONTROL) < 0) return key - 'A' + 1;
        return shift ? key : key + 'a' - 'A';
    }
    if (key >= '0' && key <= '9' && !shift) return key;
    switch (key) {
    case VK_BACK:
    case VK_TAB:
    case VK_RETURN:
    case VK_ESCAPE:
    case VK_SPACE:
        return key;
    default:
        return 0;
    }
}

extern "C" BOOL WINAPI TranslateMessage(const MSG* message) {
    if (!message || (message->message != WM_KEYDOWN && message->message != WM_SYSKEYDOWN))
        return FALSE;
    if (const WPARAM character = CharacterOf(message->wParam))
        PostMessageW(message->hwnd, message->message == WM_KEYDOWN ? WM_CHAR : WM_SYSCHAR,
                     character, message->lParam);
    return TRUE;
}
