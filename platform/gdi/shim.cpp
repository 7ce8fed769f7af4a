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
