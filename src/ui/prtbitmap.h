// A picture control of the driver's own.
#pragma once

#include <windows.h>

#include <cstdint>

class prtlocale;

// The window class "prtbitmap": a child window that shows a bitmap resource, a bitmap handle or a
// plain colour. A picture that is not stretched keeps its proportions: it is shown in the middle,
// as large as its pixels are at the screen's resolution, or smaller if the control is. A click
// sends the parent a command with the control's identifier.
//
// Messages of the class, which answer 1; the pictures stay the caller's and must outlive their use:
//   BITMAP_SET         wParam stretch, lParam a BITMAPINFO followed by its pixels, or null
//   BITMAP_SET_COLOR   lParam a colour reference
//   BITMAP_SET_HANDLE  wParam stretch, lParam an HBITMAP, or null
class prtbitmap {
public:
    enum : UINT { BITMAP_SET = 0x401, BITMAP_SET_COLOR = 0x402, BITMAP_SET_HANDLE = 0x403 };

    // Register the class at the first call and unregister it at the last. Not counted if
    // registering fails.
    static bool Register();
    static void Unregister();

    // Show a bitmap of the language libraries, or a handle. Nothing for a null window; nothing is
    // shown for a bitmap that the libraries lack.
    static void SetBitmap(HWND window, const prtlocale& locale, int id, bool stretch);
    static void SetBitmapHandle(HWND window, HBITMAP bitmap);

    // Shows a plain colour (a colour reference).
    void SetColor(uint32_t color);

    // The object of a window of this class; null while it is made and after it has ended.
    static prtbitmap* GetObjectW(HWND window);

private:
    explicit prtbitmap(HWND window)
        : window_(window) {}

    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM first, LPARAM second);
    LRESULT Handle(UINT message, WPARAM first, LPARAM second);

    void Show(const BITMAPINFO* picture, HBITMAP bitmap, bool stretch);
    void Paint();
    // The size of the picture in pixels; 0 by 0 without one.
    SIZE PictureSize() const;
    // Where the picture goes in the client area.
    RECT PlaceOf(const RECT& client, HDC dc) const;
    void Draw(HDC dc, const RECT& place) const;
    // Makes the picture's colours those of the screen, as far as a screen with a palette can.
    bool RealizeColors();

    HWND window_;
    const BITMAPINFO* picture_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    bool stretch_ = false;
    bool plain_ = false;
    uint32_t color_ = 0;
};
