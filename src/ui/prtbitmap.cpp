#include "ui/prtbitmap.h"

#include <algorithm>
#include <cstddef>
#include <mutex>

#include "core/memory.h"
#include "locale/prtlocale.h"
#include "spooler/driver_utility.h"

namespace {

constexpr const WCHAR* kClass = TEXT("prtbitmap");
constexpr const WCHAR* kNumberProperty = TEXT("bitmap");

// Messages of the class; each answers 1.
constexpr UINT kSetBitmap = 0x401;       // stretch, BITMAPINFO
constexpr UINT kSetColor = 0x402;        // colour
constexpr UINT kSetBitmapHandle = 0x403; // stretch, HBITMAP

std::mutex g_users_lock;
int g_users = 0;

// The number of entries in a picture's colour table.
int ColorsOf(const BITMAPINFOHEADER& header) {
    if (header.biBitCount > 8) return static_cast<int>(header.biClrUsed);
    return header.biClrUsed ? static_cast<int>(header.biClrUsed) : 1 << header.biBitCount;
}

const void* PixelsOf(const BITMAPINFO& bitmap) {
    const auto masks = bitmap.bmiHeader.biCompression == BI_BITFIELDS ? 3u : 0u;
    return reinterpret_cast<const char*>(&bitmap) + bitmap.bmiHeader.biSize +
           (masks + static_cast<size_t>(ColorsOf(bitmap.bmiHeader))) * sizeof(RGBQUAD);
}

HPALETTE MakePalette(const BITMAPINFO& bitmap) {
    const int count = std::min(ColorsOf(bitmap.bmiHeader), 256);
    if (bitmap.bmiHeader.biBitCount > 8 || count == 0) return nullptr;
    struct {
        WORD version, count;
        PALETTEENTRY colors[256];
    } entries = {0x300, static_cast<WORD>(count), {}};
    static_assert(offsetof(decltype(entries), colors) == offsetof(LOGPALETTE, palPalEntry));
    const auto* const colors = reinterpret_cast<const RGBQUAD*>(
        reinterpret_cast<const char*>(&bitmap) + bitmap.bmiHeader.biSize);
    for (int i = 0; i < count; ++i)
        entries.colors[i] = {colors[i].rgbRed, colors[i].rgbGreen, colors[i].rgbBlue, 0};
    return CreatePalette(reinterpret_cast<const LOGPALETTE*>(&entries));
}

// Where a picture of this size lies in the control.
RECT PlaceOf(const RECT& client, int width, int height, bool stretch) {
    if (stretch) return client;
    const int left = (client.right - width) / 2, top = (client.bottom - height) / 2;
    return {left, top, left + width, top + height};
}

} // namespace

void prtbitmap::Register() {
    const std::scoped_lock lock(g_users_lock);
    if (g_users++ > 0) return;
    WNDCLASSW definition = {};
    definition.style = CS_HREDRAW | CS_VREDRAW;
    definition.lpfnWndProc = WndProc;
    definition.cbWndExtra = sizeof(void*);
    definition.hInstance = DriverUtility::GetModuleHandle();
    definition.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    definition.lpszClassName = kClass;
    RegisterClassW(&definition);
}

void prtbitmap::Unregister() {
    const std::scoped_lock lock(g_users_lock);
    if (g_users > 0 && --g_users == 0) UnregisterClassW(kClass, DriverUtility::GetModuleHandle());
}

bool prtbitmap::SetBitmap(HWND window, const prtlocale& locale, int id, bool stretch) {
    const void* const bitmap = locale.LockBitmap(id);
    if (!window || !SendMessageW(window, kSetBitmap, stretch, reinterpret_cast<LPARAM>(bitmap)))
        return false;
    if (!bitmap) return false;
    SetPropW(window, kNumberProperty, reinterpret_cast<HANDLE>(static_cast<INT_PTR>(id)));
    return true;
}

bool prtbitmap::SetBitmapHandle(HWND window, HBITMAP bitmap, bool stretch) {
    return window &&
           SendMessageW(window, kSetBitmapHandle, stretch, reinterpret_cast<LPARAM>(bitmap)) != 0;
}

void prtbitmap::SetColor(COLORREF color) {
    SendMessageW(window_, kSetColor, color, 0);
}

prtbitmap* prtbitmap::GetObjectW(HWND window) {
    WCHAR name[16] = {};
    if (!window || !GetClassNameW(window, name, 16) || !(OString(name) == OString(kClass)))
        return nullptr;
    return reinterpret_cast<prtbitmap*>(GetWindowLongPtrW(window, 0));
}

prtbitmap::~prtbitmap() {
    if (palette_) DeleteObject(palette_);
}

LRESULT CALLBACK prtbitmap::WndProc(HWND window, UINT message, WPARAM first, LPARAM second) {
    auto* picture = reinterpret_cast<prtbitmap*>(GetWindowLongPtrW(window, 0));
    if (message == WM_NCCREATE) {
        picture = new (kCounted) prtbitmap(window);
        if (!picture) return FALSE;
        SetWindowLongPtrW(window, 0, reinterpret_cast<LONG_PTR>(picture));
    }
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, 0, 0);
        RemovePropW(window, kNumberProperty);
        delete picture;
        picture = nullptr;
    }
    return picture ? picture->OnMessage(message, first, second)
                   : DefWindowProcW(window, message, first, second);
}

LRESULT prtbitmap::OnMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case kSetBitmap:
        Show(reinterpret_cast<const BITMAPINFO*>(second), nullptr, first != 0);
        return 1;
    case kSetBitmapHandle:
        Show(nullptr, reinterpret_cast<HBITMAP>(second), first != 0);
        return 1;
    case kSetColor:
        Show(nullptr, nullptr, false);
        color_ = static_cast<COLORREF>(first);
        plain_ = true;
        return 1;
    case WM_PAINT:
        Paint();
        return 0;
    case WM_PRINTCLIENT: {
        RECT client = {};
        GetClientRect(window_, &client);
        Draw(reinterpret_cast<HDC>(first), client);
        return 0;
    }
    case WM_GETDLGCODE:
        return DLGC_STATIC;
    case WM_LBUTTONDOWN:
        SendMessageW(GetParent(window_), WM_COMMAND,
                     MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID(window_)), 0),
                     reinterpret_cast<LPARAM>(window_));
        return 0;
    case WM_PALETTECHANGED:
        if (reinterpret_cast<HWND>(first) == window_) return 0;
        [[fallthrough]];
    case WM_QUERYNEWPALETTE:
    case WM_PALETTEISCHANGING:
        return RealizePicture();
    default:
        return DefWindowProcW(window_, message, first, second);
    }
}

void prtbitmap::Show(const BITMAPINFO* bitmap, HBITMAP handle, bool stretch) {
    if (palette_) DeleteObject(palette_);
    palette_ = bitmap ? MakePalette(*bitmap) : nullptr;
    bitmap_ = bitmap;
    handle_ = handle;
    stretch_ = stretch;
    plain_ = false;
    RemovePropW(window_, kNumberProperty);
    InvalidateRect(window_, nullptr, TRUE);
}

void prtbitmap::Paint() {
    PAINTSTRUCT paint = {};
    const HDC dc = BeginPaint(window_, &paint);
    if (!dc) return;
    RECT client = {};
    GetClientRect(window_, &client);
    Draw(dc, client);
    EndPaint(window_, &paint);
}

void prtbitmap::Draw(HDC dc, const RECT& client) const {
    if (plain_) {
        if (const HBRUSH brush = CreateSolidBrush(color_)) {
            FillRect(dc, &client, brush);
            DeleteObject(brush);
        }
    } else if (bitmap_) {
        const BITMAPINFOHEADER& header = bitmap_->bmiHeader;
        const int width = header.biWidth;
        const int height = header.biHeight < 0 ? -header.biHeight : header.biHeight;
        const RECT place = PlaceOf(client, width, height, stretch_);
        const HPALETTE before = SelectPicture(dc);
        SetStretchBltMode(dc, HALFTONE);
        StretchDIBits(dc, place.left, place.top, place.right - place.left, place.bottom - place.top,
                      0, 0, width, height, PixelsOf(*bitmap_), bitmap_, DIB_RGB_COLORS, SRCCOPY);
        if (before) SelectPalette(dc, before, TRUE);
    } else if (handle_) {
        BITMAP size = {};
        const HDC memory = CreateCompatibleDC(dc);
        if (memory && ::GetObjectW(handle_, sizeof size, &size)) {
            const RECT place = PlaceOf(client, size.bmWidth, size.bmHeight, stretch_);
            const HGDIOBJ before = SelectObject(memory, handle_);
            SetStretchBltMode(dc, HALFTONE);
            StretchBlt(dc, place.left, place.top, place.right - place.left,
                       place.bottom - place.top, memory, 0, 0, size.bmWidth, size.bmHeight,
                       SRCCOPY);
            SelectObject(memory, before);
        }
        if (memory) DeleteDC(memory);
    }
}

HPALETTE prtbitmap::SelectPicture(HDC dc) const {
    if (!palette_) return nullptr;
    const HPALETTE before = SelectPalette(dc, palette_, FALSE);
    RealizePalette(dc);
    return before;
}

bool prtbitmap::RealizePicture() {
    const HDC dc = palette_ ? GetDC(window_) : nullptr;
    if (!dc) return false;
    const HPALETTE before = SelectPalette(dc, palette_, FALSE);
    const UINT changed = RealizePalette(dc);
    if (before) SelectPalette(dc, before, TRUE);
    ReleaseDC(window_, dc);
    if (changed != 0 && changed != GDI_ERROR) InvalidateRect(window_, nullptr, TRUE);
    return changed != 0 && changed != GDI_ERROR;
}
