#include "window/frame.h"

#include "host/guarded.h"

#include <algorithm>

namespace win32host {
namespace {

constexpr int kCaption = 26;
constexpr int kSmallCaption = 18;
constexpr int kThinBorder = 1;
constexpr int kDialogFrame = 3;
constexpr int kSizeFrame = 4;
constexpr int kClientEdge = 2;
constexpr int kScrollBar = 17;

} // namespace

int ScreenPixels(int size) {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return (size * dpi + 48) / 96;
}

FrameWidths FrameOf(DWORD style, DWORD extended_style) {
    FrameWidths widths = {};
    const bool caption = (style & WS_CAPTION) == WS_CAPTION;
    const bool has_any =
        style & (WS_BORDER | WS_DLGFRAME | WS_THICKFRAME | WS_VSCROLL | WS_HSCROLL) ||
        extended_style & (WS_EX_CLIENTEDGE | WS_EX_STATICEDGE | WS_EX_DLGMODALFRAME);
    if (!has_any) return widths;
    if (style & WS_THICKFRAME)
        widths.border = ScreenPixels(kSizeFrame);
    else if (style & WS_DLGFRAME || extended_style & WS_EX_DLGMODALFRAME)
        widths.border = ScreenPixels(kDialogFrame);
    else if (style & WS_BORDER)
        widths.border = ScreenPixels(kThinBorder);
    if (extended_style & WS_EX_CLIENTEDGE)
        widths.border += ScreenPixels(kClientEdge);
    else if (extended_style & WS_EX_STATICEDGE)
        widths.border += ScreenPixels(kThinBorder);
    if (caption)
        widths.caption = ScreenPixels(extended_style & WS_EX_TOOLWINDOW ? kSmallCaption : kCaption);
    if (style & WS_VSCROLL) widths.right = ScreenPixels(kScrollBar);
    if (style & WS_HSCROLL) widths.bottom = ScreenPixels(kScrollBar);
    return widths;
}

void UpdateClient(Window& window) {
    const POINT origin = {window.rect.left, window.rect.top};
    RECT area = window.rect;
    SendMessageW(window.handle, WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&area));
    area.left -= origin.x;
    area.right -= origin.x;
    area.top -= origin.y;
    area.bottom -= origin.y;
    area.right = std::max(area.right, area.left);
    area.bottom = std::max(area.bottom, area.top);
    window.client = area;
}

} // namespace win32host

extern "C" BOOL WINAPI AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL menu,
                                          DWORD extended_style) {
    if (!rect) return win32host::Fail(ERROR_INVALID_PARAMETER);
    // Windows of this host have no menu bars, and scroll bars do not count here.
    (void)menu;
    const auto widths =
        win32host::FrameOf(style & ~static_cast<DWORD>(WS_VSCROLL | WS_HSCROLL), extended_style);
    rect->left -= widths.border;
    rect->right += widths.border;
    rect->top -= widths.border + widths.caption;
    rect->bottom += widths.border;
    return TRUE;
}
