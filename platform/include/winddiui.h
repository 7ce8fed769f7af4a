// The interface between a printer driver's configuration module, the spooler and the common
// property sheets: the records and numbers of its entry points.
#pragma once

#include <windef.h>
#include <wingdi.h>
#include <winspool.h>

#include <compstui.h>

// ---- Printer events (DrvPrinterEvent) -----------------------------------------------------------

#define PRINTER_EVENT_CONFIGURATION_CHANGE 0
#define PRINTER_EVENT_ADD_CONNECTION 1
#define PRINTER_EVENT_DELETE_CONNECTION 2
#define PRINTER_EVENT_INITIALIZE 3
#define PRINTER_EVENT_DELETE 4
#define PRINTER_EVENT_CACHE_REFRESH 5
#define PRINTER_EVENT_CACHE_DELETE 6
#define PRINTER_EVENT_ATTRIBUTES_CHANGED 7

// The driver may not show anything.
#define PRINTER_EVENT_FLAG_NO_UI 0x00000001

// The parameter of PRINTER_EVENT_ATTRIBUTES_CHANGED.
typedef struct PRINTER_EVENT_ATTRIBUTES_INFO {
    DWORD cbSize;
    DWORD dwOldAttributes;
    DWORD dwNewAttributes;
} PRINTER_EVENT_ATTRIBUTES_INFO;
typedef PRINTER_EVENT_ATTRIBUTES_INFO* PPRINTER_EVENT_ATTRIBUTES_INFO;

// ---- Document events (DrvDocumentEvent) ---------------------------------------------------------

#define DOCUMENTEVENT_CREATEDCPRE 1
#define DOCUMENTEVENT_CREATEDCPOST 2
#define DOCUMENTEVENT_RESETDCPRE 3
#define DOCUMENTEVENT_RESETDCPOST 4
#define DOCUMENTEVENT_STARTDOC 5
#define DOCUMENTEVENT_STARTDOCPRE 5
#define DOCUMENTEVENT_STARTPAGE 6
#define DOCUMENTEVENT_ENDPAGE 7
#define DOCUMENTEVENT_ENDDOC 8
#define DOCUMENTEVENT_ENDDOCPRE 8
#define DOCUMENTEVENT_ABORTDOC 9
#define DOCUMENTEVENT_DELETEDC 10
#define DOCUMENTEVENT_ESCAPE 11
#define DOCUMENTEVENT_ENDDOCPOST 12
#define DOCUMENTEVENT_STARTDOCPOST 13

#define DOCUMENTEVENT_SUCCESS 1
#define DOCUMENTEVENT_UNSUPPORTED 0
#define DOCUMENTEVENT_FAILURE (-1)

// The input of DOCUMENTEVENT_CREATEDCPRE. Its output is a DEVMODEW* that the driver may set to
// replace `pdm`; the driver keeps that DEVMODE until the next event.
typedef struct DOCEVENT_CREATEDCPRE {
    PWSTR pszDriver;
    PWSTR pszDevice;
    PDEVMODEW pdm;
    BOOL bIC;
} DOCEVENT_CREATEDCPRE;
typedef DOCEVENT_CREATEDCPRE* PDOCEVENT_CREATEDCPRE;

// ---- Whether a job may print (DevQueryPrintEx) --------------------------------------------------

typedef struct DEVQUERYPRINT_INFO {
    WORD cbSize;
    WORD Level;
    HANDLE hPrinter;
    PDEVMODEW pDevMode;
    LPWSTR pszErrorStr;
    DWORD cchErrorStr;
    DWORD cchNeeded;
} DEVQUERYPRINT_INFO;
typedef DEVQUERYPRINT_INFO* PDEVQUERYPRINT_INFO;

// ---- Conversion of document settings (DrvConvertDevMode) ----------------------------------------

#define CDM_CONVERT 1
#define CDM_CONVERT351 2
#define CDM_DRIVER_DEFAULT 4

// ---- Upgrade (DrvUpgradePrinter) ----------------------------------------------------------------

typedef struct DRIVER_UPGRADE_INFO_1W {
    LPWSTR pPrinterName;
    LPWSTR pOldDriverDirectory;
} DRIVER_UPGRADE_INFO_1W;
typedef DRIVER_UPGRADE_INFO_1W* PDRIVER_UPGRADE_INFO_1W;

// ---- Property sheets ----------------------------------------------------------------------------

// For DrvDocumentPropertySheets. fMode has DM_ bits.
typedef struct DOCUMENTPROPERTYHEADER {
    WORD cbSize;
    WORD Reserved;
    HANDLE hPrinter;
    LPWSTR pszPrinterName;
    PDEVMODEW pdmIn;
    PDEVMODEW pdmOut;
    DWORD cbOut; // receives the size when pdmOut is null or fMode 0
    DWORD fMode;
} DOCUMENTPROPERTYHEADER;
typedef DOCUMENTPROPERTYHEADER* PDOCUMENTPROPERTYHEADER;

// For DrvDevicePropertySheets.
typedef struct DEVICEPROPERTYHEADER {
    WORD cbSize;
    WORD Flags; // DPS_NOPERMISSION
    HANDLE hPrinter;
    LPWSTR pszPrinterName;
} DEVICEPROPERTYHEADER;
typedef DEVICEPROPERTYHEADER* PDEVICEPROPERTYHEADER;

// The user may look at the settings, but not change them.
#define DPS_NOPERMISSION 0x0001
