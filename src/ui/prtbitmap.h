// The control that shows pictures on pages.
#pragma once

#include <windows.h>

#include "core/ostring.h"

class prtlocale;

// A control of the window class "prtbitmap", which dialog templates name. It shows a bitmap of the
// language libraries, a bitmap handle or a plain colour; at first nothing. What it shows belongs to
// others and must outlive it. Clicking it sends its dialog a command with its identifier.
//
// The number of the resource that it shows is its window property "bitmap", which is absent for
// anything else.
class prtbitmap {
public:
    // Make the window class known to the process while there is a user of it; calls are counted.
    static void Register();
    static void Unregister();

    // Show something in a control of this class. `stretch` fills the control with the picture;
    // otherwise it is shown pixel for pixel in the middle. False, and nothing shown, for a resource
    // that does not exist; false for a window of another class.
    static bool SetBitmap(HWND window, const prtlocale& locale, int id, bool stretch);
    static bool SetBitmapHandle(HWND window, HBITMAP bitmap, bool stretch = false);
    void SetColor(COLORREF color);

    // The object of a control, or null for a window of another class.
    static prtbitmap* GetObjectW(HWND window);

private:
    explicit prtbitmap(HWND window)
        : window_(window) {}
    ~prtbitmap();

    static LRESULT CALLBACK WndProc(HWND window, UINT message, WPARAM first, LPARAM second);
    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second);
    void Show(const BITMAPINFO* bitmap, HBITMAP handle, bool stretch);
    void Paint();
    void Draw(HDC dc, const RECT& client) const;
    // Uses the colours of a picture with a colour table. Whether the system's palette changed.
    bool RealizePicture();
    HPALETTE SelectPicture(HDC dc) const;

    HWND window_;
    const BITMAPINFO* bitmap_ = nullptr;
    HBITMAP handle_ = nullptr;
    HPALETTE palette_ = nullptr;
    COLORREF color_ = 0;
    bool stretch_ = false;
    bool plain_ = false;
};
