// The interface between GDI and a printer driver's rendering module: the module's entry points, its
// description of the device, and what printer drivers say about halftones.
#pragma once

#include <windef.h>
#include <wingdi.h>

// Chromaticities and luminance in ten-thousandths.
typedef struct CIECHROMA {
    LONG x;
    LONG y;
    LONG Y;
} CIECHROMA;

// The colours of a device and, in ten-thousandths, the mixing of its dyes.
typedef struct COLORINFO {
    CIECHROMA Red;
    CIECHROMA Green;
    CIECHROMA Blue;
    CIECHROMA Cyan;
    CIECHROMA Magenta;
    CIECHROMA Yellow;
    CIECHROMA AlignmentWhite;
    LONG RedGamma;
    LONG GreenGamma;
    LONG BlueGamma;
    LONG MagentaInCyanDye;
    LONG YellowInCyanDye;
    LONG CyanInMagentaDye;
    LONG YellowInMagentaDye;
    LONG CyanInYellowDye;
    LONG MagentaInYellowDye;
} COLORINFO;

typedef struct DEVHTINFO {
    DWORD HTFlags;       // HT_FLAG_
    DWORD HTPatternSize; // HT_PATSIZE_
    DWORD DevPelsDPI;
    COLORINFO ColorInfo;
} DEVHTINFO;
static_assert(sizeof(DEVHTINFO) == 132, "layout");

// What the system's dialog for a device's halftones edits.
#define DEVHTADJF_COLOR_DEVICE 0x00000001
#define DEVHTADJF_ADDITIVE_DEVICE 0x00000002

typedef struct DEVHTADJDATA {
    DWORD DeviceFlags; // DEVHTADJF_ bits
    DWORD DeviceXDPI;
    DWORD DeviceYDPI;
    DEVHTINFO* pDefHTInfo;
    DEVHTINFO* pAdjHTInfo;
} DEVHTADJDATA;

#define HT_FLAG_HAS_BLACK_DYE 0x00000002

// Halftone patterns, of which each size has a plain and a modified one.
#define HT_PATSIZE_4x4_M 3
#define HT_PATSIZE_6x6_M 5
#define HT_PATSIZE_8x8_M 7
#define HT_PATSIZE_10x10_M 9
#define HT_PATSIZE_12x12_M 11
#define HT_PATSIZE_14x14_M 13
#define HT_PATSIZE_16x16_M 15

// ---- The rendering module -----------------------------------------------------------------------

DECLARE_HANDLE(DHPDEV); // the module's own device
DECLARE_HANDLE(DHSURF); // the module's own surface
DECLARE_HANDLE(HDEV);   // GDI's device
DECLARE_HANDLE(HSURF);  // GDI's surface

// The surface that is drawn on, as the module's functions are told of it.
typedef struct SURFOBJ {
    DHSURF dhsurf;
    HSURF hsurf;
    DHPDEV dhpdev;
    HDEV hdev;
    SIZE sizlBitmap;
    ULONG cjBits;
    PVOID pvBits;
    PVOID pvScan0;
    LONG lDelta;
    ULONG iUniq;
    ULONG iBitmapFormat;
    USHORT iType;
    USHORT fjBitmap;
} SURFOBJ;

// The description of a device, from which GetDeviceCaps answers.
typedef struct GDIINFO {
    ULONG ulVersion; // of the driver
    ULONG ulTechnology;
    ULONG ulHorzSize; // of the printable area: millimetres, or micrometres if negative
    ULONG ulVertSize;
    ULONG ulHorzRes; // the same in pixels
    ULONG ulVertRes;
    ULONG cBitsPixel;
    ULONG cPlanes;
    ULONG ulNumColors;
    ULONG flRaster;
    ULONG ulLogPixelsX; // per inch
    ULONG ulLogPixelsY;
    ULONG flTextCaps;
    ULONG ulDACRed;
    ULONG ulDACGreen;
    ULONG ulDACBlue;
    ULONG ulAspectX;
    ULONG ulAspectY;
    ULONG ulAspectXY;
    LONG xStyleStep;
    LONG yStyleStep;
    LONG denStyleStep;
    POINTL ptlPhysOffset; // of the printable area on the paper
    SIZE szlPhysSize;     // of the paper in pixels
    ULONG ulNumPalReg;
    COLORINFO ciDevice;
    ULONG ulDevicePelsDPI;
    ULONG ulPrimaryOrder;
    ULONG ulHTPatternSize;
    ULONG ulHTOutputFormat;
    ULONG flHTFlags;
    ULONG ulVRefresh;
    ULONG ulBltAlignment;
    ULONG ulPanningHorzRes;
    ULONG ulPanningVertRes;
    ULONG xPanningAlignment;
    ULONG yPanningAlignment;
    ULONG cxHTPat;
    ULONG cyHTPat;
    LPBYTE pHTPatA;
    LPBYTE pHTPatB;
    LPBYTE pHTPatC;
    ULONG flShadeBlend;
    ULONG ulPhysicalPixelCharacteristics;
    ULONG ulPhysicalPixelGamma;
} GDIINFO;

typedef struct DEVINFO {
    ULONG flGraphicsCaps;
    LOGFONTW lfDefaultFont;
    LOGFONTW lfAnsiVarFont;
    LOGFONTW lfAnsiFixFont;
    ULONG cFonts;
    ULONG iDitherFormat;
    USHORT cxDither;
    USHORT cyDither;
    HPALETTE hpalDefault;
    ULONG flGraphicsCaps2;
} DEVINFO;

// The module's functions, each with its number.
typedef INT_PTR(WINAPI* PFN)();
typedef struct DRVFN {
    ULONG iFunc;
    PFN pfn;
} DRVFN;
typedef struct DRVENABLEDATA {
    ULONG iDriverVersion;
    ULONG c;
    DRVFN* pdrvfn;
} DRVENABLEDATA;

#define DDI_DRIVER_VERSION_NT5 0x00030000

#define INDEX_DrvEnablePDEV 0
#define INDEX_DrvCompletePDEV 1
#define INDEX_DrvDisablePDEV 2
#define INDEX_DrvBitBlt 18
#define INDEX_DrvEscape 24
#define INDEX_DrvSendPage 32
#define INDEX_DrvStartPage 33
#define INDEX_DrvEndDoc 34
#define INDEX_DrvStartDoc 35

// DrvEndDoc: the document is dropped.
#define ED_ABORTDOC 0x00000001

// The module's exports, which hand over its functions and tell it that it is no longer needed.
typedef BOOL(WINAPI* PFN_DrvEnableDriver)(ULONG version, ULONG size, DRVENABLEDATA* data);
typedef void(WINAPI* PFN_DrvDisableDriver)();

// Makes a device with the settings of a DEVMODE. The module fills as much of GDIINFO and DEVINFO as
// there is room for, and writes its output to the printer handle `driver`.
typedef DHPDEV(WINAPI* PFN_DrvEnablePDEV)(DEVMODEW* dev_mode, LPWSTR log_address,
                                          ULONG pattern_count, HSURF* patterns, ULONG caps_size,
                                          ULONG* caps, ULONG info_size, DEVINFO* info, HDEV dev,
                                          LPWSTR device_name, HANDLE driver);
typedef void(WINAPI* PFN_DrvCompletePDEV)(DHPDEV device, HDEV dev);
typedef void(WINAPI* PFN_DrvDisablePDEV)(DHPDEV device);
typedef BOOL(WINAPI* PFN_DrvStartDoc)(SURFOBJ* surface, LPWSTR name, DWORD job);
typedef BOOL(WINAPI* PFN_DrvStartPage)(SURFOBJ* surface);
typedef BOOL(WINAPI* PFN_DrvSendPage)(SURFOBJ* surface);
typedef BOOL(WINAPI* PFN_DrvEndDoc)(SURFOBJ* surface, ULONG flags);
typedef ULONG(WINAPI* PFN_DrvEscape)(SURFOBJ* surface, ULONG escape, ULONG input_size, PVOID input,
                                     ULONG output_size, PVOID output);

struct CLIPOBJ;
struct XLATEOBJ;
struct BRUSHOBJ;
using ROP4 = ULONG; // a ternary raster operation in each of the two low bytes

// Combines a rectangle of the target with a source and a pattern. This host only asks for
// operations that need neither, 0x0000 for black and 0xFFFF for white; the rectangle is on the
// page, and all other pointers are null.
using PFN_DrvBitBlt = BOOL(WINAPI*)(SURFOBJ* target, SURFOBJ* source, SURFOBJ* mask, CLIPOBJ* clip,
                                    XLATEOBJ* colors, RECTL* target_area, POINTL* source_start,
                                    POINTL* mask_start, BRUSHOBJ* brush, POINTL* brush_start,
                                    ROP4 operation);
