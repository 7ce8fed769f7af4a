// Device contexts: on printers with their documents, in memory, and on windows.
#pragma once

#include <windef.h>
#include <wingdi/dev_mode.h>

// Indices of GetDeviceCaps. Sizes are in pixels unless they say otherwise.
#define DRIVERVERSION 0
#define TECHNOLOGY 2
#define HORZSIZE 4 // millimetres
#define VERTSIZE 6
#define HORZRES 8 // the printable area
#define VERTRES 10
#define BITSPIXEL 12
#define PLANES 14
#define NUMCOLORS 24
#define RASTERCAPS 38
#define SIZEPALETTE 104 // entries of the palette; the screen has none
#define ASPECTX 40
#define ASPECTY 42
#define ASPECTXY 44
#define LOGPIXELSX 88 // per inch
#define LOGPIXELSY 90
#define PHYSICALWIDTH 110 // the paper
#define PHYSICALHEIGHT 111
#define PHYSICALOFFSETX 112 // of the printable area on it
#define PHYSICALOFFSETY 113

#define DT_RASDISPLAY 1
#define DT_RASPRINTER 2

// An escape that every rendering module answers: it asks whether the module knows another one,
// whose number is the input.
#define QUERYESCSUPPORT 8

#define SP_ERROR (-1)

typedef struct DOCINFOW {
    int cbSize;
    LPCWSTR lpszDocName;
    LPCWSTR lpszOutput;   // null: the printer's port
    LPCWSTR lpszDatatype; // null: RAW
    DWORD fwType;
} DOCINFOW;
typedef DOCINFOW* LPDOCINFOW;

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// A device context on the printer `device` with the settings in `dev_mode`, or its default ones for
// null. `driver` is "WINSPOOL" or null. `output` is null or the printer's port, and is ignored.
// Null with an error if there is no such printer or no rendering module for it.
HDC WINAPI CreateDCW(LPCWSTR driver, LPCWSTR device, LPCWSTR output, const DEVMODEW* dev_mode);
// The same for questions only: documents cannot be started on it.
HDC WINAPI CreateICW(LPCWSTR driver, LPCWSTR device, LPCWSTR output, const DEVMODEW* dev_mode);
// A document that is not ended is dropped.
BOOL WINAPI DeleteDC(HDC dc);

// 0 for an index that is not listed above, and if there is no such device context.
int WINAPI GetDeviceCaps(HDC dc, int index);

// Documents. The answer is greater than 0 on success; StartDocW answers the number of the job.
// Pages belong to documents, and an open page ends with its document. Output to files is not
// supported.
int WINAPI StartDocW(HDC dc, const DOCINFOW* info);
int WINAPI StartPage(HDC dc);
int WINAPI EndPage(HDC dc);
int WINAPI EndDoc(HDC dc);
int WINAPI AbortDoc(HDC dc);

// Passes the input to the rendering module and answers what it answers: greater than 0 on success,
// 0 if it does not know the escape, less than 0 on failure.
int WINAPI ExtEscape(HDC dc, int escape, int input_size, LPCSTR input, int output_size,
                     LPSTR output);

// The units of the coordinates that drawing functions take. Contexts start with MM_TEXT, one pixel
// with y growing downwards, and have no other here. Answers the previous mode, or 0 if it cannot be
// set.
#define MM_TEXT 1
int WINAPI SetMapMode(HDC dc, int mode);
// ---- Contexts in memory -------------------------------------------------------------------------

// A context for drawing on a bitmap. It answers GetDeviceCaps like `dc`, or like the screen for
// null. It starts with a bitmap of one black pixel and with the system's font.
HDC WINAPI CreateCompatibleDC(HDC dc);

// ---- Places and states --------------------------------------------------------------------------

// Keeps everything but the bitmap. SaveDC answers a number, RestoreDC takes it, or -1 for the last
// one; those saved after it are forgotten.
int WINAPI SaveDC(HDC dc);
BOOL WINAPI RestoreDC(HDC dc, int saved);

// Where the point 0, 0 of the drawing functions lies. `previous` may be null.
BOOL WINAPI SetViewportOrgEx(HDC dc, int x, int y, LPPOINT previous);
BOOL WINAPI OffsetViewportOrgEx(HDC dc, int x, int y, LPPOINT previous);
BOOL WINAPI GetViewportOrgEx(HDC dc, LPPOINT origin);
// The logical point that lies there.
BOOL WINAPI SetWindowOrgEx(HDC dc, int x, int y, LPPOINT previous);
BOOL WINAPI LPtoDP(HDC dc, LPPOINT points, int count);
BOOL WINAPI DPtoLP(HDC dc, LPPOINT points, int count);

// ---- Clipping -----------------------------------------------------------------------------------

// What regions are like. They are rectangles or empty here.
#define RGN_ERROR 0
#define NULLREGION 1
#define SIMPLEREGION 2

HRGN WINAPI CreateRectRgn(int left, int top, int right, int bottom);
HRGN WINAPI CreateRectRgnIndirect(const RECT* rect);
int WINAPI GetRgnBox(HRGN region, LPRECT box);
// Limits drawing to a region in pixels of the device, or only to the device for null.
int WINAPI SelectClipRgn(HDC dc, HRGN region);
int WINAPI IntersectClipRect(HDC dc, int left, int top, int right, int bottom);
// What can be drawn on, in logical units.
int WINAPI GetClipBox(HDC dc, LPRECT box);
BOOL WINAPI RectVisible(HDC dc, const RECT* rect);

WIN32HOST_END_C
#pragma GCC visibility pop
