// Windows.
#pragma once

#include <windef.h>

#include <winuser/message.h>

// ---- Styles -------------------------------------------------------------------------------------

#define WS_OVERLAPPED 0x00000000
#define WS_POPUP 0x80000000
#define WS_CHILD 0x40000000
#define WS_MINIMIZE 0x20000000
#define WS_VISIBLE 0x10000000
#define WS_DISABLED 0x08000000
#define WS_CLIPSIBLINGS 0x04000000
#define WS_CLIPCHILDREN 0x02000000
#define WS_MAXIMIZE 0x01000000
#define WS_CAPTION 0x00C00000
#define WS_BORDER 0x00800000
#define WS_DLGFRAME 0x00400000
#define WS_VSCROLL 0x00200000
#define WS_HSCROLL 0x00100000
#define WS_SYSMENU 0x00080000
#define WS_THICKFRAME 0x00040000
#define WS_GROUP 0x00020000
#define WS_TABSTOP 0x00010000
#define WS_MINIMIZEBOX 0x00020000
#define WS_MAXIMIZEBOX 0x00010000
#define WS_OVERLAPPEDWINDOW                                                                        \
    (WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX)
#define WS_POPUPWINDOW (WS_POPUP | WS_BORDER | WS_SYSMENU)
#define WS_CHILDWINDOW WS_CHILD

#define WS_EX_DLGMODALFRAME 0x00000001
#define WS_EX_NOPARENTNOTIFY 0x00000004
#define WS_EX_TOPMOST 0x00000008
#define WS_EX_TRANSPARENT 0x00000020
#define WS_EX_TOOLWINDOW 0x00000080
#define WS_EX_WINDOWEDGE 0x00000100
#define WS_EX_CLIENTEDGE 0x00000200
#define WS_EX_CONTEXTHELP 0x00000400
#define WS_EX_RIGHT 0x00001000
#define WS_EX_CONTROLPARENT 0x00010000
#define WS_EX_STATICEDGE 0x00020000
#define WS_EX_NOACTIVATE 0x08000000

#define CS_VREDRAW 0x0001
#define CS_HREDRAW 0x0002
#define CS_DBLCLKS 0x0008
#define CS_PARENTDC 0x0080
#define CS_SAVEBITS 0x0800
#define CS_GLOBALCLASS 0x4000

#define CW_USEDEFAULT ((int)0x80000000)

// ---- Offsets of GetWindowLongPtrW and GetClassLongPtrW ------------------------------------------

#define GWL_STYLE (-16)
#define GWL_EXSTYLE (-20)
#define GWLP_WNDPROC (-4)
#define GWLP_HINSTANCE (-6)
#define GWLP_HWNDPARENT (-8)
#define GWLP_ID (-12)
#define GWLP_USERDATA (-21)

#define GCLP_HBRBACKGROUND (-10)
#define GCL_STYLE (-26)

// ---- Relations and positions --------------------------------------------------------------------

#define GW_HWNDFIRST 0
#define GW_HWNDLAST 1
#define GW_HWNDNEXT 2
#define GW_HWNDPREV 3
#define GW_OWNER 4
#define GW_CHILD 5

#define GA_PARENT 1
#define GA_ROOT 2
#define GA_ROOTOWNER 3

#define HWND_DESKTOP ((HWND)0)
#define HWND_TOP ((HWND)0)
#define HWND_BOTTOM ((HWND)1)
#define HWND_TOPMOST ((HWND)(LONG_PTR)(-1))
#define HWND_NOTOPMOST ((HWND)(LONG_PTR)(-2))

#define SWP_NOSIZE 0x0001
#define SWP_NOMOVE 0x0002
#define SWP_NOZORDER 0x0004
#define SWP_NOREDRAW 0x0008
#define SWP_NOACTIVATE 0x0010
#define SWP_FRAMECHANGED 0x0020
#define SWP_SHOWWINDOW 0x0040
#define SWP_HIDEWINDOW 0x0080
#define SWP_NOCOPYBITS 0x0100
#define SWP_NOOWNERZORDER 0x0200
#define SWP_NOSENDCHANGING 0x0400

#define SW_HIDE 0
#define SW_SHOWNORMAL 1
#define SW_NORMAL 1
#define SW_SHOWMINIMIZED 2
#define SW_SHOWMAXIMIZED 3
#define SW_SHOWNOACTIVATE 4
#define SW_SHOW 5
#define SW_SHOWNA 8
#define SW_RESTORE 9
#define SW_SHOWDEFAULT 10

#define RDW_INVALIDATE 0x0001
#define RDW_ERASE 0x0004
#define RDW_VALIDATE 0x0008
#define RDW_ALLCHILDREN 0x0080
#define RDW_UPDATENOW 0x0100
#define RDW_FRAME 0x0400

#define IDC_ARROW MAKEINTRESOURCEW(32512)
#define IDC_IBEAM MAKEINTRESOURCEW(32513)
#define IDC_WAIT MAKEINTRESOURCEW(32514)
#define IDC_HAND MAKEINTRESOURCEW(32649)
#define IDI_APPLICATION MAKEINTRESOURCEW(32512)
#define IDI_HAND MAKEINTRESOURCEW(32513)
#define IDI_QUESTION MAKEINTRESOURCEW(32514)
#define IDI_EXCLAMATION MAKEINTRESOURCEW(32515)
#define IDI_ASTERISK MAKEINTRESOURCEW(32516)

// A window class. Colour numbers plus 1 do for a brush.
typedef struct WNDCLASSW {
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCWSTR lpszMenuName;
    LPCWSTR lpszClassName;
} WNDCLASSW;
typedef WNDCLASSW* LPWNDCLASSW;

typedef struct WNDCLASSEXW {
    UINT cbSize;
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCWSTR lpszMenuName;
    LPCWSTR lpszClassName;
    HICON hIconSm;
} WNDCLASSEXW;
typedef WNDCLASSEXW* LPWNDCLASSEXW;

// lParam of WM_NCCREATE and WM_CREATE.
typedef struct CREATESTRUCTW {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCWSTR lpszName;
    LPCWSTR lpszClass;
    DWORD dwExStyle;
} CREATESTRUCTW;
typedef CREATESTRUCTW* LPCREATESTRUCTW;

typedef struct WINDOWPOS {
    HWND hwnd;
    HWND hwndInsertAfter;
    int x;
    int y;
    int cx;
    int cy;
    UINT flags;
} WINDOWPOS;
typedef WINDOWPOS* LPWINDOWPOS;

typedef struct STYLESTRUCT {
    DWORD styleOld;
    DWORD styleNew;
} STYLESTRUCT;

typedef struct PAINTSTRUCT {
    HDC hdc;
    BOOL fErase;
    RECT rcPaint;
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
} PAINTSTRUCT;
typedef PAINTSTRUCT* LPPAINTSTRUCT;

typedef BOOL(CALLBACK* WNDENUMPROC)(HWND window, LPARAM parameter);
typedef BOOL(CALLBACK* PROPENUMPROCW)(HWND window, LPCWSTR name, HANDLE value);

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// ---- Classes ------------------------------------------------------------------------------------

// Names are matched without regard to case. 0 with ERROR_CLASS_ALREADY_EXISTS for a known one.
ATOM WINAPI RegisterClassW(const WNDCLASSW* window_class);
ATOM WINAPI RegisterClassExW(const WNDCLASSEXW* window_class);
// FALSE while a window of the class exists.
BOOL WINAPI UnregisterClassW(LPCWSTR name, HINSTANCE module);
BOOL WINAPI GetClassInfoW(HINSTANCE module, LPCWSTR name, LPWNDCLASSW window_class);
BOOL WINAPI GetClassInfoExW(HINSTANCE module, LPCWSTR name, LPWNDCLASSEXW window_class);
int WINAPI GetClassNameW(HWND window, LPWSTR buffer, int size);
ULONG_PTR WINAPI GetClassLongPtrW(HWND window, int offset);
HCURSOR WINAPI LoadCursorW(HINSTANCE module, LPCWSTR name); // a handle that stays the same
HCURSOR WINAPI SetCursor(HCURSOR cursor);
HICON WINAPI LoadIconW(HINSTANCE module, LPCWSTR name);

// ---- Life ---------------------------------------------------------------------------------------

// Sends WM_NCCREATE, WM_NCCALCSIZE, WM_CREATE, WM_SIZE and WM_MOVE before it answers. Null if a
// procedure refuses. `menu` is the identifier of a child.
HWND WINAPI CreateWindowExW(DWORD extended_style, LPCWSTR class_name, LPCWSTR text, DWORD style,
                            int x, int y, int width, int height, HWND parent, HMENU menu,
                            HINSTANCE module, LPVOID parameter);
#define CreateWindowW(class_name, text, style, x, y, width, height, parent, menu, module,          \
                      parameter)                                                                   \
    CreateWindowExW(0, class_name, text, style, x, y, width, height, parent, menu, module,         \
                    parameter)
// With everything that is in it or owned by it. Only by the window's own thread.
BOOL WINAPI DestroyWindow(HWND window);
BOOL WINAPI IsWindow(HWND window);
DWORD WINAPI GetWindowThreadProcessId(HWND window, LPDWORD process);

// ---- Data ---------------------------------------------------------------------------------------

// Offsets from 0 are those of the extra bytes. 0 with ERROR_INVALID_INDEX outside of them. Setting
// answers the value before it.
LONG_PTR WINAPI GetWindowLongPtrW(HWND window, int offset);
LONG_PTR WINAPI SetWindowLongPtrW(HWND window, int offset, LONG_PTR value);
LONG WINAPI GetWindowLongW(HWND window, int offset);
LONG WINAPI SetWindowLongW(HWND window, int offset, LONG value);
HANDLE WINAPI GetPropW(HWND window, LPCWSTR name);
BOOL WINAPI SetPropW(HWND window, LPCWSTR name, HANDLE value);
HANDLE WINAPI RemovePropW(HWND window, LPCWSTR name);
int WINAPI EnumPropsW(HWND window, PROPENUMPROCW procedure);
BOOL WINAPI SetWindowTextW(HWND window, LPCWSTR text);
int WINAPI GetWindowTextW(HWND window, LPWSTR buffer, int size);
int WINAPI GetWindowTextLengthW(HWND window);

// ---- Relations ----------------------------------------------------------------------------------

HWND WINAPI GetParent(HWND window); // of a child its parent, of a popup its owner
HWND WINAPI SetParent(HWND child, HWND parent);
HWND WINAPI GetAncestor(HWND window, UINT flags);
HWND WINAPI GetWindow(HWND window, UINT relation);
#define GetNextWindow(window, relation) GetWindow(window, relation)
HWND WINAPI GetTopWindow(HWND window);
HWND WINAPI GetLastActivePopup(HWND window);
BOOL WINAPI IsChild(HWND parent, HWND window);
// Windows that are destroyed meanwhile are left out.
BOOL WINAPI EnumWindows(WNDENUMPROC procedure, LPARAM parameter);
BOOL WINAPI EnumChildWindows(HWND parent, WNDENUMPROC procedure, LPARAM parameter);
BOOL WINAPI EnumThreadWindows(DWORD thread, WNDENUMPROC procedure, LPARAM parameter);
// A top-level window by its class or its text; null for any.
HWND WINAPI FindWindowW(LPCWSTR class_name, LPCWSTR text);
HWND WINAPI FindWindowExW(HWND parent, HWND after, LPCWSTR class_name, LPCWSTR text);
HWND WINAPI WindowFromPoint(POINT point);
HWND WINAPI ChildWindowFromPoint(HWND parent, POINT point);

// ---- Positions ----------------------------------------------------------------------------------

BOOL WINAPI GetWindowRect(HWND window, LPRECT rect); // on the screen
BOOL WINAPI GetClientRect(HWND window, LPRECT rect); // starts at 0, 0
BOOL WINAPI ClientToScreen(HWND window, LPPOINT point);
BOOL WINAPI ScreenToClient(HWND window, LPPOINT point);
// From the coordinates of one window's client area to another's; null is the screen.
int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count);
BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
BOOL WINAPI SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags);
BOOL WINAPI BringWindowToTop(HWND window);
HANDLE WINAPI BeginDeferWindowPos(int count);
HANDLE WINAPI DeferWindowPos(HANDLE positions, HWND window, HWND after, int x, int y, int width,
                             int height, UINT flags);
BOOL WINAPI EndDeferWindowPos(HANDLE positions);
// The outer rectangle for a client area.
BOOL WINAPI AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL menu, DWORD extended_style);

// ---- State --------------------------------------------------------------------------------------

BOOL WINAPI ShowWindow(HWND window, int show);      // answers whether it was visible
BOOL WINAPI IsWindowVisible(HWND window);           // it and everything that it is in
BOOL WINAPI EnableWindow(HWND window, BOOL enable); // answers whether it was disabled
BOOL WINAPI IsWindowEnabled(HWND window);
BOOL WINAPI IsWindowUnicode(HWND window);

// ---- Painting -----------------------------------------------------------------------------------

BOOL WINAPI InvalidateRect(HWND window, const RECT* rect, BOOL erase);
BOOL WINAPI ValidateRect(HWND window, const RECT* rect);
BOOL WINAPI UpdateWindow(HWND window);
BOOL WINAPI RedrawWindow(HWND window, const RECT* rect, HRGN region, UINT flags);
BOOL WINAPI GetUpdateRect(HWND window, LPRECT rect, BOOL erase);
// Drawing shows while a picture of the window is made (win32host/picture.h), otherwise nowhere.
HDC WINAPI BeginPaint(HWND window, LPPAINTSTRUCT paint);
BOOL WINAPI EndPaint(HWND window, const PAINTSTRUCT* paint);
// Of the window's client area; of the whole screen for null. ReleaseDC answers 1.
HDC WINAPI GetDC(HWND window);
HDC WINAPI GetWindowDC(HWND window);
int WINAPI ReleaseDC(HWND window, HDC dc);

// The window behind all others. It is the parent of those at the top.
HWND WINAPI GetDesktopWindow();

WIN32HOST_END_C
#pragma GCC visibility pop
