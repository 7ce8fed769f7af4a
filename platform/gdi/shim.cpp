#include "gdi/drawing_context.h"
#include "host/guarded.h"
#include <windows.h>
namespace win32host {
HDC NewSurfaceContext(std::shared_ptr<Surface>, POINT, RECT) {
    return static_cast<HDC>(NewHandle(std::make_shared<DrawingContext>(DrawingContext::ScreenCaps(), false)));
}
BOOL ReleaseSurfaceContext(HDC dc) { return Guarded(FALSE, [&] { return Close<DrawingContext>(dc) ? TRUE : FALSE; }); }
}
extern "C" {
DWORD WINAPI GetSysColor(int) { return 0; }
HBRUSH WINAPI GetSysColorBrush(int) { return nullptr; }
int WINAPI FillRect(HDC, const RECT*, HBRUSH) { return 1; }
COLORREF WINAPI SetTextColor(HDC, COLORREF) { return 0; }
COLORREF WINAPI SetBkColor(HDC, COLORREF) { return 0; }
}
// Until drawing is there, nothing shows.
#include "window/look.h"
namespace win32host::look {
int Scaled(HDC, int size) { return size; }
COLORREF TextColor(State) { return 0; }
COLORREF SelectionColor(State) { return 0; }
COLORREF SelectionTextColor(State) { return 0; }
void DrawPushButton(HDC, const RECT&, State) {}
void DrawCheckMark(HDC, const RECT&, State) {}
void DrawRadioMark(HDC, const RECT&, State) {}
int MarkSize(HDC) { return 13; }
int MarkGap(HDC) { return 4; }
void DrawGroupBox(HDC, const RECT&, int, int, int) {}
void DrawFocus(HDC, const RECT&) {}
void DrawFieldBorder(HDC, const RECT&, State) {}
void DrawSpinButton(HDC, const RECT&, Arrow, State) {}
void DrawTrack(HDC, const RECT&, State) {}
void DrawThumb(HDC, const RECT&, State) {}
void DrawTick(HDC, POINT, POINT, State) {}
void DrawProgress(HDC, const RECT&, int, int) {}
}
extern "C" {
int WINAPI DrawTextW(HDC, LPCWSTR, int, LPRECT, UINT) { return 0; }
BOOL WINAPI DrawEdge(HDC, LPRECT, UINT, UINT) { return TRUE; }
int WINAPI FrameRect(HDC, const RECT*, HBRUSH) { return 1; }
int WINAPI SetBkMode(HDC, int) { return TRANSPARENT; }
COLORREF WINAPI GetTextColor(HDC) { return 0; }
BOOL WINAPI ExtTextOutW(HDC, int, int, UINT, const RECT*, LPCWSTR, UINT, const INT*) { return TRUE; }
BOOL WINAPI BitBlt(HDC, int, int, int, int, HDC, int, int, DWORD) { return TRUE; }
BOOL WINAPI StretchBlt(HDC, int, int, int, int, HDC, int, int, int, int, DWORD) { return TRUE; }
HBITMAP WINAPI LoadBitmapW(HINSTANCE, LPCWSTR) { return nullptr; }
int WINAPI GetObjectW(HGDIOBJ, int, LPVOID) { return 0; }
}
extern "C" {
HBRUSH WINAPI CreateSolidBrush(COLORREF) { return nullptr; }
HGDIOBJ WINAPI GetStockObject(int) { return nullptr; }
int WINAPI IntersectClipRect(HDC, int, int, int, int) { return 1; }
int WINAPI SaveDC(HDC) { return 1; }
BOOL WINAPI RestoreDC(HDC, int) { return TRUE; }
}
namespace win32host::look {
COLORREF FieldColor(State) { return 0; }
void DrawSelection(HDC, const RECT&, State) {}
}
