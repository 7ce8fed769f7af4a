#include "window/scroll_bars.h"

#include "host/guarded.h"
#include "window/look.h"
#include "window/window.h"

#include <algorithm>

namespace win32host {

bool ScrollBar::Fits() const {
    return page > 0 ? page > most - least : most <= least;
}

bool ScrollBar::Take(const SCROLLINFO& info) {
    if (!(info.fMask & (SIF_RANGE | SIF_PAGE | SIF_POS))) return false;
    used = true;
    if (info.fMask & SIF_RANGE) {
        least = info.nMin;
        // The number of positions is an int too.
        most = std::max(info.nMin, info.nMax);
        if (static_cast<int64_t>(most) - least > INT32_MAX - 1) least = most = 0;
    }
    if (info.fMask & SIF_PAGE)
        page = static_cast<int>(
            std::min(info.nPage, static_cast<UINT>(most) - static_cast<UINT>(least) + 1));
    page = std::min(page, most - least + 1);
    if (info.fMask & SIF_POS) position = info.nPos;
    position = std::clamp(position, least, std::max(least, most - std::max(page - 1, 0)));
    return true;
}

void ScrollBar::Tell(SCROLLINFO& info) const {
    if (info.fMask & SIF_RANGE) {
        info.nMin = least;
        info.nMax = most;
    }
    if (info.fMask & SIF_PAGE) info.nPage = static_cast<UINT>(page);
    if (info.fMask & SIF_POS) info.nPos = position;
    if (info.fMask & SIF_TRACKPOS) info.nTrackPos = position;
}

void ScrollBar::Thumb(int length, int arrow, int& start, int& end) const {
    start = end = 0;
    const int track = length - 2 * arrow;
    if (disabled || Fits() || track < arrow) return;
    const int positions = most - least + 1;
    const int size =
        page > 0 ? std::max(arrow / 2, static_cast<int>(int64_t(track) * page / positions)) : arrow;
    const int last = most - std::max(page - 1, 0);
    const int free = track - size;
    start =
        arrow +
        (last > least ? static_cast<int>(int64_t(free) * (position - least) / (last - least)) : 0);
    end = start + size;
}

int ScrolledTo(HWND window, int bar, WPARAM request, int line) {
    SCROLLINFO info = {sizeof(info), SIF_ALL, 0, 0, 0, 0, 0};
    GetScrollInfo(window, bar, &info);
    const int page = std::max(1, static_cast<int>(info.nPage));
    int to = info.nPos;
    switch (LOWORD(request)) {
    case SB_LINEUP:
        to -= line;
        break;
    case SB_LINEDOWN:
        to += line;
        break;
    case SB_PAGEUP:
        to -= page;
        break;
    case SB_PAGEDOWN:
        to += page;
        break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK:
        to = HIWORD(request);
        break;
    case SB_TOP:
        to = info.nMin;
        break;
    case SB_BOTTOM:
        to = info.nMax;
        break;
    default:
        break;
    }
    return std::clamp(to, info.nMin,
                      std::max(info.nMin, info.nMax - static_cast<int>(info.nPage) + 1));
}

static void DrawBar(HDC dc, const ScrollBar& bar, const RECT& rect, bool vertical, bool enabled) {
    const int length = vertical ? rect.bottom - rect.top : rect.right - rect.left;
    const int width = vertical ? rect.right - rect.left : rect.bottom - rect.top;
    int start = 0;
    int end = 0;
    bar.Thumb(length, std::min(width, length / 2), start, end);
    look::DrawScrollBar(dc, rect, vertical, start, end,
                        enabled && !bar.disabled ? look::kNormal : look::kDisabled);
}

void DrawScrollBars(HWND window, HDC dc) {
    const auto found = FindWindowObject(window);
    if (!found || !(found->style & (WS_VSCROLL | WS_HSCROLL))) return;
    const bool enabled = !found->Has(WS_DISABLED);
    // They lie between the client area and the border, which is as wide on the right as on the
    // left.
    const RECT& client = found->client;
    const LONG right = found->rect.right - found->rect.left - client.left;
    const LONG bottom = found->rect.bottom - found->rect.top - client.top;
    if (found->Has(WS_VSCROLL))
        DrawBar(dc, found->vertical, {client.right, client.top, right, client.bottom}, true,
                enabled);
    if (found->Has(WS_HSCROLL))
        DrawBar(dc, found->horizontal, {client.left, client.bottom, client.right, bottom}, false,
                enabled);
    if (found->Has(WS_VSCROLL | WS_HSCROLL)) {
        const RECT corner = {client.right, client.bottom, right, bottom};
        FillRect(dc, &corner, GetSysColorBrush(COLOR_SCROLLBAR));
    }
}

// The bar of a window, or null with an error. Controls have theirs themselves.
static ScrollBar* BarOf(const std::shared_ptr<Window>& window, int bar) {
    if (!window) return nullptr;
    if (bar == SB_HORZ) return &window->horizontal;
    if (bar == SB_VERT) return &window->vertical;
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
}

static void Show(HWND window, DWORD bits, bool show) {
    const auto found = FindWindowObject(window);
    if (!found || found->Has(bits) == show) return;
    found->style = show ? found->style | bits : found->style & ~bits;
    SetWindowPos(window, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

} // namespace win32host

using namespace win32host;

extern "C" {

int WINAPI SetScrollInfo(HWND window, int bar, LPCSCROLLINFO info, BOOL redraw) {
    if (bar == SB_CTL)
        return static_cast<int>(SendMessageW(window, SBM_SETSCROLLINFO, static_cast<WPARAM>(redraw),
                                             reinterpret_cast<LPARAM>(info)));
    ScrollBar* const numbers = BarOf(WindowOf(window), bar);
    if (!numbers || !info || !numbers->Take(*info)) return 0;
    const int position = numbers->position;
    const DWORD style = bar == SB_VERT ? WS_VSCROLL : WS_HSCROLL;
    if (info->fMask & (SIF_RANGE | SIF_PAGE)) {
        if (info->fMask & SIF_DISABLENOSCROLL) {
            numbers->disabled = numbers->Fits();
        } else {
            Show(window, style, !numbers->Fits());
        }
    }
    if (redraw) InvalidateRect(window, nullptr, FALSE);
    return position;
}

BOOL WINAPI GetScrollInfo(HWND window, int bar, LPSCROLLINFO info) {
    if (!info || info->cbSize < offsetof(SCROLLINFO, nTrackPos) || info->cbSize > sizeof(*info))
        return Fail(ERROR_INVALID_PARAMETER);
    if (bar == SB_CTL)
        return static_cast<BOOL>(
            SendMessageW(window, SBM_GETSCROLLINFO, 0, reinterpret_cast<LPARAM>(info)));
    const auto found = WindowOf(window);
    const ScrollBar* const numbers = BarOf(found, bar);
    if (!numbers) return FALSE;
    if (!numbers->used && !found->Has(bar == SB_VERT ? WS_VSCROLL : WS_HSCROLL))
        return Fail(ERROR_NO_SCROLLBARS);
    if (info->cbSize < sizeof(*info)) info->fMask &= ~static_cast<UINT>(SIF_TRACKPOS);
    numbers->Tell(*info);
    return TRUE;
}

int WINAPI SetScrollPos(HWND window, int bar, int position, BOOL redraw) {
    const int before = GetScrollPos(window, bar);
    const SCROLLINFO info = {sizeof(info), SIF_POS, 0, 0, 0, position, 0};
    SetScrollInfo(window, bar, &info, redraw);
    return before;
}

int WINAPI GetScrollPos(HWND window, int bar) {
    SCROLLINFO info = {sizeof(info), SIF_POS, 0, 0, 0, 0, 0};
    return GetScrollInfo(window, bar, &info) ? info.nPos : 0;
}

BOOL WINAPI SetScrollRange(HWND window, int bar, int least, int most, BOOL redraw) {
    if (!IsWindow(window)) return Fail(ERROR_INVALID_WINDOW_HANDLE);
    const SCROLLINFO info = {sizeof(info), SIF_RANGE, least, most, 0, 0, 0};
    SetScrollInfo(window, bar, &info, redraw);
    return TRUE;
}

BOOL WINAPI GetScrollRange(HWND window, int bar, LPINT least, LPINT most) {
    SCROLLINFO info = {sizeof(info), SIF_RANGE, 0, 0, 0, 0, 0};
    const BOOL known = GetScrollInfo(window, bar, &info);
    if (least) *least = info.nMin;
    if (most) *most = info.nMax;
    return known;
}

BOOL WINAPI ShowScrollBar(HWND window, int bar, BOOL show) {
    if (!WindowOf(window)) return FALSE;
    if (bar == SB_CTL) {
        ShowWindow(window, show ? SW_SHOW : SW_HIDE);
        return TRUE;
    }
    if (bar == SB_HORZ || bar == SB_BOTH) Show(window, WS_HSCROLL, show != FALSE);
    if (bar == SB_VERT || bar == SB_BOTH) Show(window, WS_VSCROLL, show != FALSE);
    return TRUE;
}

BOOL WINAPI EnableScrollBar(HWND window, UINT bar, UINT arrows) {
    if (bar == SB_CTL) return static_cast<BOOL>(SendMessageW(window, SBM_ENABLE_ARROWS, arrows, 0));
    const auto found = WindowOf(window);
    if (!found) return FALSE;
    if (bar == SB_HORZ || bar == SB_BOTH) found->horizontal.disabled = arrows == ESB_DISABLE_BOTH;
    if (bar == SB_VERT || bar == SB_BOTH) found->vertical.disabled = arrows == ESB_DISABLE_BOTH;
    InvalidateRect(window, nullptr, FALSE);
    return TRUE;
}

} // extern "C"
