// Messages: their numbers, queues, window procedures, timers and hooks.
#pragma once

#include <windef.h>

typedef LRESULT(CALLBACK* WNDPROC)(HWND window, UINT message, WPARAM first, LPARAM second);
typedef void(CALLBACK* TIMERPROC)(HWND window, UINT message, UINT_PTR timer, DWORD time);
typedef LRESULT(CALLBACK* HOOKPROC)(int code, WPARAM first, LPARAM second);

// Two words in one parameter.
#define MAKEWPARAM(low, high) ((WPARAM)(DWORD)MAKELONG(low, high))
#define MAKELPARAM(low, high) ((LPARAM)(DWORD)MAKELONG(low, high))
#define MAKELRESULT(low, high) ((LRESULT)(DWORD)MAKELONG(low, high))

#define WM_NULL 0x0000
#define WM_CREATE 0x0001
#define WM_DESTROY 0x0002
#define WM_MOVE 0x0003
#define WM_SIZE 0x0005
#define WM_ACTIVATE 0x0006
#define WM_SETFOCUS 0x0007
#define WM_KILLFOCUS 0x0008
#define WM_ENABLE 0x000A
#define WM_SETREDRAW 0x000B
#define WM_SETTEXT 0x000C
#define WM_GETTEXT 0x000D
#define WM_GETTEXTLENGTH 0x000E
#define WM_PAINT 0x000F
#define WM_CLOSE 0x0010
#define WM_QUIT 0x0012
#define WM_ERASEBKGND 0x0014
#define WM_SYSCOLORCHANGE 0x0015
#define WM_SHOWWINDOW 0x0018
#define WM_ACTIVATEAPP 0x001C
#define WM_CANCELMODE 0x001F
#define WM_SETCURSOR 0x0020
#define WM_MOUSEACTIVATE 0x0021
#define WM_CHILDACTIVATE 0x0022
#define WM_GETMINMAXINFO 0x0024
#define WM_NEXTDLGCTL 0x0028
#define WM_DRAWITEM 0x002B
#define WM_MEASUREITEM 0x002C
#define WM_DELETEITEM 0x002D
#define WM_VKEYTOITEM 0x002E
#define WM_CHARTOITEM 0x002F
#define WM_SETFONT 0x0030
#define WM_GETFONT 0x0031
#define WM_COMPAREITEM 0x0039
#define WM_WINDOWPOSCHANGING 0x0046
#define WM_WINDOWPOSCHANGED 0x0047
#define WM_NOTIFY 0x004E
#define WM_HELP 0x0053
#define WM_NOTIFYFORMAT 0x0055
#define WM_CONTEXTMENU 0x007B
#define WM_STYLECHANGING 0x007C
#define WM_STYLECHANGED 0x007D
#define WM_GETICON 0x007F
#define WM_SETICON 0x0080
#define WM_NCCREATE 0x0081
#define WM_NCDESTROY 0x0082
#define WM_NCCALCSIZE 0x0083
#define WM_NCHITTEST 0x0084
#define WM_NCPAINT 0x0085
#define WM_NCACTIVATE 0x0086
#define WM_GETDLGCODE 0x0087
#define WM_NCLBUTTONDOWN 0x00A1
#define WM_KEYFIRST 0x0100
#define WM_KEYDOWN 0x0100
#define WM_KEYUP 0x0101
#define WM_CHAR 0x0102
#define WM_SYSKEYDOWN 0x0104
#define WM_SYSKEYUP 0x0105
#define WM_SYSCHAR 0x0106
#define WM_KEYLAST 0x0109
#define WM_INITDIALOG 0x0110
#define WM_COMMAND 0x0111
#define WM_SYSCOMMAND 0x0112
#define WM_TIMER 0x0113
#define WM_HSCROLL 0x0114
#define WM_VSCROLL 0x0115
#define WM_INITMENU 0x0116
#define WM_INITMENUPOPUP 0x0117
#define WM_MENUSELECT 0x011F
#define WM_MENUCHAR 0x0120
#define WM_ENTERIDLE 0x0121
#define WM_UNINITMENUPOPUP 0x0125
#define WM_CHANGEUISTATE 0x0127
#define WM_UPDATEUISTATE 0x0128
#define WM_QUERYUISTATE 0x0129
#define WM_CTLCOLORMSGBOX 0x0132
#define WM_CTLCOLOREDIT 0x0133
#define WM_CTLCOLORLISTBOX 0x0134
#define WM_CTLCOLORBTN 0x0135
#define WM_CTLCOLORDLG 0x0136
#define WM_CTLCOLORSCROLLBAR 0x0137
#define WM_CTLCOLORSTATIC 0x0138
#define WM_MOUSEFIRST 0x0200
#define WM_MOUSEMOVE 0x0200
#define WM_LBUTTONDOWN 0x0201
#define WM_LBUTTONUP 0x0202
#define WM_LBUTTONDBLCLK 0x0203
#define WM_RBUTTONDOWN 0x0204
#define WM_RBUTTONUP 0x0205
#define WM_RBUTTONDBLCLK 0x0206
#define WM_MOUSEWHEEL 0x020A
#define WM_MOUSELAST 0x020D
#define WM_PARENTNOTIFY 0x0210
#define WM_ENTERMENULOOP 0x0211
#define WM_EXITMENULOOP 0x0212
#define WM_CAPTURECHANGED 0x0215
#define WM_CUT 0x0300
#define WM_COPY 0x0301
#define WM_PASTE 0x0302
#define WM_CLEAR 0x0303
#define WM_UNDO 0x0304
#define WM_QUERYNEWPALETTE 0x030F
#define WM_PALETTEISCHANGING 0x0310
#define WM_PALETTECHANGED 0x0311
#define WM_PRINT 0x0317
#define WM_PRINTCLIENT 0x0318
#define WM_USER 0x0400
#define WM_APP 0x8000

// lParam of WM_PRINT and WM_PRINTCLIENT.
#define PRF_CHECKVISIBLE 0x00000001
#define PRF_NONCLIENT 0x00000002
#define PRF_CLIENT 0x00000004
#define PRF_ERASEBKGND 0x00000008
#define PRF_CHILDREN 0x00000010
#define PRF_OWNED 0x00000020

// The low word of WM_ACTIVATE's first parameter.
#define WA_INACTIVE 0
#define WA_ACTIVE 1
#define WA_CLICKACTIVE 2

// What WM_GETDLGCODE answers: the input that a control wants for itself, and what it is.
#define DLGC_WANTARROWS 0x0001
#define DLGC_WANTTAB 0x0002
#define DLGC_WANTALLKEYS 0x0004
#define DLGC_WANTMESSAGE 0x0004
#define DLGC_HASSETSEL 0x0008
#define DLGC_DEFPUSHBUTTON 0x0010
#define DLGC_UNDEFPUSHBUTTON 0x0020
#define DLGC_RADIOBUTTON 0x0040
#define DLGC_WANTCHARS 0x0080
#define DLGC_STATIC 0x0100
#define DLGC_BUTTON 0x2000

// WM_SIZE.
#define SIZE_RESTORED 0
#define SIZE_MINIMIZED 1
#define SIZE_MAXIMIZED 2

// WM_SYSCOMMAND.
#define SC_CLOSE 0xF060
#define SC_KEYMENU 0xF100
#define SC_CONTEXTHELP 0xF180

// WM_NCHITTEST.
#define HTERROR (-2)
#define HTTRANSPARENT (-1)
#define HTNOWHERE 0
#define HTCLIENT 1
#define HTCAPTION 2

// WM_MOUSEACTIVATE.
#define MA_ACTIVATE 1
#define MA_ACTIVATEANDEAT 2
#define MA_NOACTIVATE 3
#define MA_NOACTIVATEANDEAT 4

// WM_NOTIFYFORMAT.
#define NFR_ANSI 1
#define NFR_UNICODE 2
#define NF_QUERY 3
#define NF_REQUERY 4

// WM_CHANGEUISTATE and its relatives.
#define UIS_SET 1
#define UIS_CLEAR 2
#define UIS_INITIALIZE 3
#define UISF_HIDEFOCUS 0x1
#define UISF_HIDEACCEL 0x2

// The head of every WM_NOTIFY.
typedef struct NMHDR {
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
} NMHDR;
typedef NMHDR* LPNMHDR;

typedef struct MSG {
    HWND hwnd; // null: posted to the thread
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
} MSG;
typedef MSG* PMSG;
typedef MSG* LPMSG;

// WM_HELP.
#define HELPINFO_WINDOW 0x0001
#define HELPINFO_MENUITEM 0x0002
typedef struct HELPINFO {
    UINT cbSize;
    int iContextType; // HELPINFO_
    int iCtrlId;
    HANDLE hItemHandle;
    DWORD_PTR dwContextId;
    POINT MousePos;
} HELPINFO;
typedef HELPINFO* LPHELPINFO;

// PeekMessageW.
#define PM_NOREMOVE 0x0000
#define PM_REMOVE 0x0001
#define PM_NOYIELD 0x0002

#define HWND_BROADCAST ((HWND)(ULONG_PTR)0xFFFF)
#define HWND_MESSAGE ((HWND)(LONG_PTR)(-3))

// Hooks.
#define WH_MSGFILTER (-1)
#define WH_GETMESSAGE 3
#define WH_CALLWNDPROC 4
#define WH_CBT 5
#define WH_CALLWNDPROCRET 12
#define HC_ACTION 0
#define MSGF_DIALOGBOX 0
#define MSGF_MENU 2

typedef struct CWPSTRUCT {
    LPARAM lParam;
    WPARAM wParam;
    UINT message;
    HWND hwnd;
} CWPSTRUCT;
typedef CWPSTRUCT* LPCWPSTRUCT;

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// Calls the window's procedure and answers what it answers. A window of another thread is called by
// that thread, when it next looks for messages. 0 with ERROR_INVALID_WINDOW_HANDLE if there is no
// such window.
LRESULT WINAPI SendMessageW(HWND window, UINT message, WPARAM first, LPARAM second);
// Puts the message into the queue of the window's thread; of the own thread for null.
BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM first, LPARAM second);
BOOL WINAPI PostThreadMessageW(DWORD thread, UINT message, WPARAM first, LPARAM second);
void WINAPI PostQuitMessage(int exit_code);

// Takes the next message: a posted one, WM_QUIT, WM_PAINT, WM_TIMER, in this order. `window`
// restricts it to that window and its children (null: all, and those of the thread), the numbers to
// a range (both 0: all). GetMessageW waits; it answers 0 for WM_QUIT and -1 for a bad window.
// PeekMessageW answers whether there was a message.
int WINAPI GetMessageW(LPMSG message, HWND window, UINT first, UINT last);
BOOL WINAPI PeekMessageW(LPMSG message, HWND window, UINT first, UINT last, UINT flags);
BOOL WINAPI WaitMessage();
// Posts the character of a key message, if it has one.
BOOL WINAPI TranslateMessage(const MSG* message);
// Calls the window procedure, or the procedure of a timer.
LRESULT WINAPI DispatchMessageW(const MSG* message);
// Where and when the last message that was taken came about.
DWORD WINAPI GetMessagePos();
LONG WINAPI GetMessageTime();

LRESULT WINAPI CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM first,
                               LPARAM second);
LRESULT WINAPI DefWindowProcW(HWND window, UINT message, WPARAM first, LPARAM second);

// A timer of the window, or of the thread for null: its number is then a new one, or `id` if that
// names a timer of the thread. It falls due every `milliseconds` (at least 10) of GetTickCount.
UINT_PTR WINAPI SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure);
BOOL WINAPI KillTimer(HWND window, UINT_PTR id);

// Hooks of this thread: WH_CALLWNDPROC is told of messages that are sent, WH_GETMESSAGE of those
// that are taken from the queue. `thread` is the own one or 0. Others are not supported: null.
HHOOK WINAPI SetWindowsHookExW(int kind, HOOKPROC procedure, HINSTANCE module, DWORD thread);
BOOL WINAPI UnhookWindowsHookEx(HHOOK hook);
LRESULT WINAPI CallNextHookEx(HHOOK hook, int code, WPARAM first, LPARAM second);

// A number for a name, 0xC000 to 0xFFFF: the same for the same name in this process.
UINT WINAPI RegisterWindowMessageW(LPCWSTR name);

WIN32HOST_END_C
#pragma GCC visibility pop
