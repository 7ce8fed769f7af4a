#include "ui/prtbitmap.h"

#include <algorithm>
#include <new>

#include "core/locks.h"
#include "locale/prtlocale.h"
#include "spooler/driver_utility.h"

namespace {

constexpr WCHAR kBitmapClass[] = TEXT("prtbitmap");
constexpr int kDesignResolution = 96;

// Sheets on several threads may use the class.
OCriticalSection& ClassLock() {
    static OCriticalSection lock;
    return lock;
}

int g_bitmap_class_users = 0;

int ColorsOf(const BITMAPINFOHEADER& header) {
    if (header.biBitCount > 8) return 0;
    const int all = 1 << header.biBitCount;
    return header.biClrUsed != 0 ? std::min(static_cast<int>(header.biClrUsed), all) : all;
}

const BYTE* PixelsOf(const BITMAPINFO* picture) {
    const BITMAPINFOHEADER& header = picture->bmiHeader;
    return reinterpret_cast<const BYTE*>(picture) + header.biSize +
           static_cast<size_t>(ColorsOf(header)) * sizeof(RGBQUAD);
}

// A palette of the picture's colours; null if it has none of its own.
HPALETTE PaletteOf(const BITMAPINFO* picture) {
    const int count = picture ? ColorsOf(picture->bmiHeader) : 0;
    if (count == 0) return nullptr;
    struct {
        WORD version = 0x300;
        WORD count = 0;
        PALETTEENTRY entries[256];
    } palette;
    palette.count = static_cast<WORD>(count);
    const auto* colors = reinterpret_cast<const RGBQUAD*>(reinterpret_cast<const BYTE*>(picture) +
                                                          picture->bmiHeader.biSize);
    for (int i = 0; i < count; ++i)
        palette.entries[i] = {colors[i].rgbRed, colors[i].rgbGreen, colors[i].rgbBlue, 0};
    return CreatePalette(reinterpret_cast<const LOGPALETTE*>(&palette));
}

} // namespace

bool prtbitmap::Register() {
    const OSingleLock lock(&ClassLock(), true);
    if (g_bitmap_class_users == 0) {
        WNDCLASSW window_class = {};
        window_class.style = CS_HREDRAW | CS_VREDRAW;
        window_class.lpfnWndProc = WindowProcedure;
        window_class.cbWndExtra = sizeof(prtbitmap*);
        window_class.hInstance = DriverUtility::GetModuleHandle();
        window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        window_class.lpszClassName = kBitmapClass;
        if (!RegisterClassW(&window_class)) return false;
    }
    ++g_bitmap_class_users;
    return true;
}

void prtbitmap::Unregister() {
    const OSingleLock lock(&ClassLock(), true);
    if (g_bitmap_class_users > 0 && --g_bitmap_class_users == 0)
        UnregisterClassW(kBitmapClass, DriverUtility::GetModuleHandle());
}

void prtbitmap::SetBitmap(HWND window, const prtlocale& locale, int id, bool stretch) {
    if (!window) return;
    SendMessageW(window, BITMAP_SET, stretch, reinterpret_cast<LPARAM>(locale.LockBitmap(id)));
}

void prtbitmap::SetBitmapHandle(HWND window, HBITMAP bitmap) {
    if (window) SendMessageW(window, BITMAP_SET_HANDLE, FALSE, reinterpret_cast<LPARAM>(bitmap));
}

void prtbitmap::SetColor(uint32_t color) {
    plain_ = true;
    color_ = color;
    InvalidateRect(window_, nullptr, FALSE);
}

prtbitmap* prtbitmap::GetObjectW(HWND window) {
    return reinterpret_cast<prtbitmap*>(GetWindowLongPtrW(window, 0));
}

LRESULT CALLBACK prtbitmap::WindowProcedure(HWND window, UINT message, WPARAM first,
                                            LPARAM second) {
    prtbitmap* object = GetObjectW(window);
    if (message == WM_NCCREATE) {
        object = new (std::nothrow) prtbitmap(window);
        if (!object) return FALSE;
        SetWindowLongPtrW(window, 0, reinterpret_cast<LONG_PTR>(object));
    } else if (message == WM_NCDESTROY && object) {
        SetWindowLongPtrW(window, 0, 0);
        delete object;
        object = nullptr;
    }
    return object ? object->Handle(message, first, second)
                  : DefWindowProcW(window, message, first, second);
}

LRESULT prtbitmap::Handle(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_PAINT:
        Paint();
        return 0;
    case WM_ERASEBKGND:
        return 1; // all of it is painted
    case WM_GETDLGCODE:
        return DLGC_STATIC;
    case WM_LBUTTONDOWN:
        SendMessageW(GetParent(window_), WM_COMMAND,
                     static_cast<WPARAM>(GetWindowLongPtrW(window_, GWLP_ID)) & 0xFFFF,
                     reinterpret_cast<LPARAM>(window_));
        return 0;
    case WM_QUERYNEWPALETTE:
        return RealizeColors();
    case WM_PALETTECHANGED:
        if (reinterpret_cast<HWND>(first) != window_) RealizeColors();
        return 0;
    case BITMAP_SET:
        Show(reinterpret_cast<const BITMAPINFO*>(second), nullptr, first != 0);
        return 1;
    case BITMAP_SET_COLOR:
        SetColor(static_cast<uint32_t>(second));
        return 1;
    case BITMAP_SET_HANDLE:
        Show(nullptr, reinterpret_cast<HBITMAP>(second), first != 0);
        return 1;
    default:
        return DefWindowProcW(window_, message, first, second);
    }
}

void prtbitmap::Show(const BITMAPINFO* picture, HBITMAP bitmap, bool stretch) {
    picture_ = picture;
    bitmap_ = bitmap;
    stretch_ = stretch;
    plain_ = false;
    InvalidateRect(window_, nullptr, FALSE);
}

SIZE prtbitmap::PictureSize() const {
    if (picture_) {
        const LONG height = picture_->bmiHeader.biHeight;
        return {picture_->bmiHeader.biWidth, height < 0 ? -height : height};
    }
    BITMAP description = {};
    if (bitmap_) ::GetObjectW(bitmap_, sizeof(description), &description);
    return {description.bmWidth, description.bmHeight};
}

RECT prtbitmap::PlaceOf(const RECT& client, HDC dc) const {
    if (stretch_) return client;
    const SIZE picture = PictureSize();
    const int resolution = GetDeviceCaps(dc, LOGPIXELSX);
    SIZE shown = {MulDiv(picture.cx, resolution, kDesignResolution),
                  MulDiv(picture.cy, resolution, kDesignResolution)};
    if (shown.cx > client.right)
        shown = {client.right, MulDiv(picture.cy, client.right, picture.cx)};
    if (shown.cy > client.bottom)
        shown = {MulDiv(picture.cx, client.bottom, picture.cy), client.bottom};
    const LONG left = (client.right - shown.cx) / 2;
    const LONG top = (client.bottom - shown.cy) / 2;
    return {left, top, left + shown.cx, top + shown.cy};
}

void prtbitmap::Draw(HDC dc, const RECT& place) const {
    const SIZE picture = PictureSize();
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    SetStretchBltMode(dc, COLORONCOLOR);
    if (picture_) {
        StretchDIBits(dc, place.left, place.top, width, height, 0, 0, picture.cx, picture.cy,
                      PixelsOf(picture_), picture_, DIB_RGB_COLORS, SRCCOPY);
        return;
    }
    const HDC memory = CreateCompatibleDC(dc);
    if (!memory) return;
    const HGDIOBJ before = SelectObject(memory, bitmap_);
    StretchBlt(dc, place.left, place.top, width, height, memory, 0, 0, picture.cx, picture.cy,
               SRCCOPY);
    SelectObject(memory, before);
    DeleteDC(memory);
}

void prtbitmap::Paint() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window_, &paint);
    if (!dc) return;
    RECT client;
    GetClientRect(window_, &client);
    if (plain_) {
        const HBRUSH brush = CreateSolidBrush(color_);
        FillRect(dc, &client, brush);
        DeleteObject(brush);
    } else {
        const SIZE picture = PictureSize();
        const bool has_picture = picture.cx > 0 && picture.cy > 0;
        if (!has_picture || !stretch_) FillRect(dc, &client, GetSysColorBrush(COLOR_BTNFACE));
        if (has_picture) {
            const HPALETTE palette = PaletteOf(picture_);
            const HPALETTE before = palette ? SelectPalette(dc, palette, FALSE) : nullptr;
            if (palette) RealizePalette(dc);
            Draw(dc, PlaceOf(client, dc));
            if (palette) {
                SelectPalette(dc, before, FALSE);
                DeleteObject(palette);
            }
        }
    }
    EndPaint(window_, &paint);
}

bool prtbitmap::RealizeColors() {
    const HPALETTE palette = PaletteOf(picture_);
    if (!palette) return false;
    const HDC dc = GetDC(window_);
    const HPALETTE before = SelectPalette(dc, palette, FALSE);
    const bool changed = RealizePalette(dc) > 0;
    SelectPalette(dc, before, FALSE);
    ReleaseDC(window_, dc);
    DeleteObject(palette);
    if (changed) InvalidateRect(window_, nullptr, FALSE);
    return changed;
}
