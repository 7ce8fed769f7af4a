// The print spooler: printers, drivers, ports and printer data.
//
// A printer is named "NAME" or, on another machine, "\\SERVER\NAME". Names are compared without
// regard to case. Unless stated otherwise, a function that fails answers FALSE and GetLastError
// says why.
//
// Functions that fill a buffer write the level's structures at its start, followed by the texts
// that they point to. `*needed` always receives the total size; ERROR_INSUFFICIENT_BUFFER if `size`
// is less, ERROR_INVALID_LEVEL for a level that is not listed with the function. Texts that a
// record lacks are empty, never null.
#pragma once

#include <winbase.h>
#include <windef.h>
#include <wingdi.h>
#include <winnt.h>

// ---- Access to printers -------------------------------------------------------------------------

#define SERVER_ACCESS_ADMINISTER 0x00000001
#define SERVER_ACCESS_ENUMERATE 0x00000002
#define PRINTER_ACCESS_ADMINISTER 0x00000004
#define PRINTER_ACCESS_USE 0x00000008
#define JOB_ACCESS_ADMINISTER 0x00000010
#define PRINTER_ALL_ACCESS                                                                         \
    (STANDARD_RIGHTS_REQUIRED | PRINTER_ACCESS_ADMINISTER | PRINTER_ACCESS_USE)
#define PRINTER_READ (STANDARD_RIGHTS_READ | PRINTER_ACCESS_USE)
#define PRINTER_WRITE (STANDARD_RIGHTS_WRITE | PRINTER_ACCESS_USE)
#define PRINTER_EXECUTE (STANDARD_RIGHTS_EXECUTE | PRINTER_ACCESS_USE)

typedef struct PRINTER_DEFAULTSW {
    LPWSTR pDatatype;
    PDEVMODEW pDevMode;
    ACCESS_MASK DesiredAccess;
} PRINTER_DEFAULTSW;
typedef PRINTER_DEFAULTSW* PPRINTER_DEFAULTSW;
typedef PRINTER_DEFAULTSW* LPPRINTER_DEFAULTSW;

// ---- Printers -----------------------------------------------------------------------------------

#define PRINTER_ATTRIBUTE_QUEUED 0x00000001
#define PRINTER_ATTRIBUTE_DIRECT 0x00000002
#define PRINTER_ATTRIBUTE_DEFAULT 0x00000004
#define PRINTER_ATTRIBUTE_SHARED 0x00000008
#define PRINTER_ATTRIBUTE_NETWORK 0x00000010
#define PRINTER_ATTRIBUTE_HIDDEN 0x00000020
#define PRINTER_ATTRIBUTE_LOCAL 0x00000040
#define PRINTER_ATTRIBUTE_ENABLE_DEVQ 0x00000080
#define PRINTER_ATTRIBUTE_KEEPPRINTEDJOBS 0x00000100
#define PRINTER_ATTRIBUTE_DO_COMPLETE_FIRST 0x00000200
#define PRINTER_ATTRIBUTE_WORK_OFFLINE 0x00000400
#define PRINTER_ATTRIBUTE_ENABLE_BIDI 0x00000800
#define PRINTER_ATTRIBUTE_RAW_ONLY 0x00001000
#define PRINTER_ATTRIBUTE_PUBLISHED 0x00002000

#define PRINTER_ENUM_DEFAULT 0x00000001
#define PRINTER_ENUM_LOCAL 0x00000002
#define PRINTER_ENUM_CONNECTIONS 0x00000004
#define PRINTER_ENUM_NAME 0x00000008
#define PRINTER_ENUM_REMOTE 0x00000010
#define PRINTER_ENUM_SHARED 0x00000020
#define PRINTER_ENUM_NETWORK 0x00000040
#define PRINTER_ENUM_ICON8 0x00800000

typedef struct PRINTER_INFO_1W {
    DWORD Flags;         // PRINTER_ENUM_ICON8
    LPWSTR pDescription; // name, driver name and location, separated by commas
    LPWSTR pName;
    LPWSTR pComment;
} PRINTER_INFO_1W;
typedef PRINTER_INFO_1W* PPRINTER_INFO_1W;
typedef PRINTER_INFO_1W* LPPRINTER_INFO_1W;

typedef struct PRINTER_INFO_2W {
    LPWSTR pServerName; // "\\SERVER"; null for a printer of this machine
    LPWSTR pPrinterName;
    LPWSTR pShareName;
    LPWSTR pPortName;
    LPWSTR pDriverName;
    LPWSTR pComment;
    LPWSTR pLocation;
    PDEVMODEW pDevMode; // the default document settings; null if not set
    LPWSTR pSepFile;
    LPWSTR pPrintProcessor;
    LPWSTR pDatatype;
    LPWSTR pParameters;
    PSECURITY_DESCRIPTOR pSecurityDescriptor; // always null here
    DWORD Attributes;                         // PRINTER_ATTRIBUTE_ bits
    DWORD Priority;                           // 1 (lowest) to 99
    DWORD DefaultPriority;
    DWORD StartTime; // minutes after midnight, Universal Time
    DWORD UntilTime;
    DWORD Status;
    DWORD cJobs;
    DWORD AveragePPM;
} PRINTER_INFO_2W;
typedef PRINTER_INFO_2W* PPRINTER_INFO_2W;
typedef PRINTER_INFO_2W* LPPRINTER_INFO_2W;

typedef struct PRINTER_INFO_2A {
    LPSTR pServerName;
    LPSTR pPrinterName;
    LPSTR pShareName;
    LPSTR pPortName;
    LPSTR pDriverName;
    LPSTR pComment;
    LPSTR pLocation;
    DEVMODEA* pDevMode;
    LPSTR pSepFile;
    LPSTR pPrintProcessor;
    LPSTR pDatatype;
    LPSTR pParameters;
    PSECURITY_DESCRIPTOR pSecurityDescriptor;
    DWORD Attributes;
    DWORD Priority;
    DWORD DefaultPriority;
    DWORD StartTime;
    DWORD UntilTime;
    DWORD Status;
    DWORD cJobs;
    DWORD AveragePPM;
} PRINTER_INFO_2A;
typedef PRINTER_INFO_2A* PPRINTER_INFO_2A;
typedef PRINTER_INFO_2A* LPPRINTER_INFO_2A;

typedef struct PRINTER_INFO_4W {
    LPWSTR pPrinterName;
    LPWSTR pServerName; // null for a printer of this machine
    DWORD Attributes;   // PRINTER_ATTRIBUTE_LOCAL or PRINTER_ATTRIBUTE_NETWORK
} PRINTER_INFO_4W;
typedef PRINTER_INFO_4W* PPRINTER_INFO_4W;
typedef PRINTER_INFO_4W* LPPRINTER_INFO_4W;

// Only the default document settings: everybody's.
typedef struct PRINTER_INFO_8W {
    PDEVMODEW pDevMode; // null if not set
} PRINTER_INFO_8W;
typedef PRINTER_INFO_8W* PPRINTER_INFO_8W;
typedef PRINTER_INFO_8W* LPPRINTER_INFO_8W;

// The user's own.
typedef struct PRINTER_INFO_9W {
    PDEVMODEW pDevMode;
} PRINTER_INFO_9W;
typedef PRINTER_INFO_9W* PPRINTER_INFO_9W;
typedef PRINTER_INFO_9W* LPPRINTER_INFO_9W;

// ---- Drivers ------------------------------------------------------------------------------------

#define APD_STRICT_UPGRADE 0x00000001
#define APD_STRICT_DOWNGRADE 0x00000002
#define APD_COPY_ALL_FILES 0x00000004
#define APD_COPY_NEW_FILES 0x00000008
#define APD_COPY_FROM_DIRECTORY 0x00000010

typedef struct DRIVER_INFO_2W {
    DWORD cVersion; // 3, a driver of user mode
    LPWSTR pName;
    LPWSTR pEnvironment;
    LPWSTR pDriverPath;
    LPWSTR pDataFile;
    LPWSTR pConfigFile;
} DRIVER_INFO_2W;
typedef DRIVER_INFO_2W* PDRIVER_INFO_2W;
typedef DRIVER_INFO_2W* LPDRIVER_INFO_2W;

typedef struct DRIVER_INFO_3W {
    DWORD cVersion;
    LPWSTR pName;
    LPWSTR pEnvironment;
    LPWSTR pDriverPath;
    LPWSTR pDataFile;
    LPWSTR pConfigFile;
    LPWSTR pHelpFile;
    LPWSTR pDependentFiles; // each ended by a zero, the list by another one
    LPWSTR pMonitorName;
    LPWSTR pDefaultDataType;
} DRIVER_INFO_3W;
typedef DRIVER_INFO_3W* PDRIVER_INFO_3W;
typedef DRIVER_INFO_3W* LPDRIVER_INFO_3W;

typedef struct DRIVER_INFO_3A {
    DWORD cVersion;
    LPSTR pName;
    LPSTR pEnvironment;
    LPSTR pDriverPath;
    LPSTR pDataFile;
    LPSTR pConfigFile;
    LPSTR pHelpFile;
    LPSTR pDependentFiles;
    LPSTR pMonitorName;
    LPSTR pDefaultDataType;
} DRIVER_INFO_3A;
typedef DRIVER_INFO_3A* PDRIVER_INFO_3A;
typedef DRIVER_INFO_3A* LPDRIVER_INFO_3A;

typedef struct DRIVER_INFO_6W {
    DWORD cVersion;
    LPWSTR pName;
    LPWSTR pEnvironment;
    LPWSTR pDriverPath;
    LPWSTR pDataFile;
    LPWSTR pConfigFile;
    LPWSTR pHelpFile;
    LPWSTR pDependentFiles;
    LPWSTR pMonitorName;
    LPWSTR pDefaultDataType;
    LPWSTR pszzPreviousNames; // a list like pDependentFiles
    FILETIME ftDriverDate;
    DWORDLONG dwlDriverVersion;
    LPWSTR pszMfgName;
    LPWSTR pszOEMUrl;
    LPWSTR pszHardwareID;
    LPWSTR pszProvider;
} DRIVER_INFO_6W;
typedef DRIVER_INFO_6W* PDRIVER_INFO_6W;
typedef DRIVER_INFO_6W* LPDRIVER_INFO_6W;

// ---- Ports --------------------------------------------------------------------------------------

#define PORT_TYPE_WRITE 0x0001
#define PORT_TYPE_READ 0x0002
#define PORT_TYPE_REDIRECTED 0x0004
#define PORT_TYPE_NET_ATTACHED 0x0008

typedef struct PORT_INFO_2W {
    LPWSTR pPortName;
    LPWSTR pMonitorName;
    LPWSTR pDescription;
    DWORD fPortType;
    DWORD Reserved;
} PORT_INFO_2W;
typedef PORT_INFO_2W* PPORT_INFO_2W;
typedef PORT_INFO_2W* LPPORT_INFO_2W;

// ---- Documents and jobs -------------------------------------------------------------------------

typedef struct DOC_INFO_1W {
    LPWSTR pDocName;
    LPWSTR pOutputFile; // null: the printer's port
    LPWSTR pDatatype;   // null: the printer's
} DOC_INFO_1W;
typedef DOC_INFO_1W* PDOC_INFO_1W;
typedef DOC_INFO_1W* LPDOC_INFO_1W;

// A job's status: no bit is set while it waits in the spooler.
#define JOB_STATUS_PAUSED 0x00000001
#define JOB_STATUS_ERROR 0x00000002
#define JOB_STATUS_DELETING 0x00000004
#define JOB_STATUS_SPOOLING 0x00000008
#define JOB_STATUS_PRINTING 0x00000010
#define JOB_STATUS_PRINTED 0x00000080

typedef struct JOB_INFO_1W {
    DWORD JobId;
    LPWSTR pPrinterName;
    LPWSTR pMachineName;
    LPWSTR pUserName;
    LPWSTR pDocument;
    LPWSTR pDatatype;
    LPWSTR pStatus; // what went wrong; null if nothing did
    DWORD Status;   // JOB_STATUS_ bits
    DWORD Priority;
    DWORD Position; // from 1
    DWORD TotalPages;
    DWORD PagesPrinted;
    SYSTEMTIME Submitted; // Universal Time
} JOB_INFO_1W;
typedef JOB_INFO_1W* PJOB_INFO_1W;
typedef JOB_INFO_1W* LPJOB_INFO_1W;

typedef struct JOB_INFO_2W {
    DWORD JobId;
    LPWSTR pPrinterName;
    LPWSTR pMachineName;
    LPWSTR pUserName;
    LPWSTR pDocument;
    LPWSTR pNotifyName;
    LPWSTR pDatatype;
    LPWSTR pPrintProcessor;
    LPWSTR pParameters;
    LPWSTR pDriverName;
    LPDEVMODEW pDevMode;
    LPWSTR pStatus;
    PSECURITY_DESCRIPTOR pSecurityDescriptor;
    DWORD Status;
    DWORD Priority;
    DWORD Position;
    DWORD StartTime;
    DWORD UntilTime;
    DWORD TotalPages;
    DWORD Size; // bytes
    SYSTEMTIME Submitted;
    DWORD Time;
    DWORD PagesPrinted;
} JOB_INFO_2W;
typedef JOB_INFO_2W* PJOB_INFO_2W;
typedef JOB_INFO_2W* LPJOB_INFO_2W;

#define JOB_CONTROL_PAUSE 1
#define JOB_CONTROL_RESUME 2
#define JOB_CONTROL_CANCEL 3
#define JOB_CONTROL_RESTART 4
#define JOB_CONTROL_DELETE 5

// Printer data of a print server: the folder of the jobs' files, which are named by the jobs'
// numbers ("00007.SPL").
#define SPLREG_DEFAULT_SPOOL_DIRECTORY TEXT("DefaultSpoolDirectory")

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// ---- Opening ------------------------------------------------------------------------------------

// Opens a printer with the rights in `defaults`, or PRINTER_ACCESS_USE without it. A null or empty
// name is the print server of this machine and "\\SERVER" that of another one: such a handle has no
// printer, and functions that need one answer ERROR_INVALID_HANDLE. ERROR_INVALID_PRINTER_NAME if
// there is no such printer, ERROR_RPC_SERVER_UNAVAILABLE if its server cannot be reached,
// ERROR_ACCESS_DENIED if the user may not have the rights: only administrators and power users may
// administer.
BOOL WINAPI OpenPrinterW(LPWSTR name, LPHANDLE printer, LPPRINTER_DEFAULTSW defaults);
BOOL WINAPI ClosePrinter(HANDLE printer);

// ---- Printers -----------------------------------------------------------------------------------

// Levels 1, 2, 4, 8 and 9. Level 9 gives everybody's default settings to a user who has none.
BOOL WINAPI GetPrinterW(HANDLE printer, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed);
// Level 2, in the ANSI code page.
BOOL WINAPI GetPrinterA(HANDLE printer, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed);

// `command` is 0. Level 2 makes the PRINTER_INFO_2W `info` the printer's record: server name, jobs,
// status and security descriptor are ignored, and a null pDevMode leaves the default document
// settings as they are. Level 8 sets only these, and level 9 the user's own, which a null pDevMode
// removes. The driver (DrvConvertDevMode) converts settings that are not in its own layout, if it
// can. ERROR_INVALID_PARAMETER if they are not a DEVMODE. Level 9 needs PRINTER_ACCESS_USE, the
// others PRINTER_ACCESS_ADMINISTER.
BOOL WINAPI SetPrinterW(HANDLE printer, DWORD level, LPBYTE info, DWORD command);

// Adds the printer that the PRINTER_INFO_2W `info` describes (level 2) and tells its driver.
// Answers a handle with all rights, or null on failure. An empty print processor, data type or
// priority gets its default: WinPrint, RAW or 1. `server` must be null or empty: printers are added
// to this machine.
HANDLE WINAPI AddPrinterW(LPWSTR server, DWORD level, LPBYTE info);

// Deletes the printer with its data; its handle stays open for ClosePrinter. Needs
// PRINTER_ACCESS_ADMINISTER.
BOOL WINAPI DeletePrinter(HANDLE printer);

// Levels 1, 2 and 4: the printers of this machine (PRINTER_ENUM_LOCAL), the user's connections
// (PRINTER_ENUM_CONNECTIONS), or the printers of the machine `name` (PRINTER_ENUM_NAME).
// PRINTER_ENUM_SHARED with any of them leaves out what is not shared.
BOOL WINAPI EnumPrintersW(DWORD flags, LPWSTR name, DWORD level, LPBYTE buffer, DWORD size,
                          LPDWORD needed, LPDWORD returned);

// ---- Connections --------------------------------------------------------------------------------

// Connects the user to "\\SERVER\NAME": installs the printer's driver from the server if this
// machine lacks it, and tells the driver. An existing connection is left alone.
BOOL WINAPI AddPrinterConnectionW(LPWSTR name);
BOOL WINAPI DeletePrinterConnectionW(LPWSTR name);

// ---- Drivers ------------------------------------------------------------------------------------

// Levels 3 and 6. The files, named with their full paths or as files of the driver directory, are
// copied to the folder of installed drivers. `flags` has APD_COPY_ALL_FILES, APD_COPY_NEW_FILES
// (newer files there stay), APD_STRICT_UPGRADE (fails with ERROR_INVALID_PARAMETER if any file
// there is newer) or APD_STRICT_DOWNGRADE (if any is older), and may have APD_COPY_FROM_DIRECTORY.
BOOL WINAPI AddPrinterDriverExW(LPWSTR server, DWORD level, PBYTE info, DWORD flags);
// The same with APD_COPY_NEW_FILES.
BOOL WINAPI AddPrinterDriverW(LPWSTR server, DWORD level, LPBYTE info);

// Removes a driver but not its files. ERROR_PRINTER_DRIVER_IN_USE while a printer has it.
BOOL WINAPI DeletePrinterDriverW(LPWSTR server, LPWSTR environment, LPWSTR driver);

// Levels 2, 3 and 6; files have their full paths.
BOOL WINAPI EnumPrinterDriversW(LPWSTR server, LPWSTR environment, DWORD level, LPBYTE buffer,
                                DWORD size, LPDWORD needed, LPDWORD returned);
// Levels 2, 3 and 6: the printer's driver as it is installed on this machine.
BOOL WINAPI GetPrinterDriverW(HANDLE printer, LPWSTR environment, DWORD level, LPBYTE buffer,
                              DWORD size, LPDWORD needed);
// Level 3, in the ANSI code page.
BOOL WINAPI GetPrinterDriverA(HANDLE printer, LPSTR environment, DWORD level, LPBYTE buffer,
                              DWORD size, LPDWORD needed);
// Level 1: the folder for a driver's files, as a zero-terminated text.
BOOL WINAPI GetPrinterDriverDirectoryW(LPWSTR server, LPWSTR environment, DWORD level,
                                       LPBYTE directory, DWORD size, LPDWORD needed);

// ---- Printer data -------------------------------------------------------------------------------

// These answer an error code. ERROR_MORE_DATA if `size` is too small, with the value's size in
// `*needed`; ERROR_FILE_NOT_FOUND if there is no such value. The driver's language monitor is asked
// for a value that is not stored. Setting and deleting need PRINTER_ACCESS_ADMINISTER. The A
// functions take and give texts (REG_SZ, REG_EXPAND_SZ, REG_MULTI_SZ) in the ANSI code page.
DWORD WINAPI GetPrinterDataW(HANDLE printer, LPWSTR name, LPDWORD type, LPBYTE data, DWORD size,
                             LPDWORD needed);
DWORD WINAPI GetPrinterDataA(HANDLE printer, LPSTR name, LPDWORD type, LPBYTE data, DWORD size,
                             LPDWORD needed);
// The same for a value of any key below the printer's, "PrinterDriverData\\Settings"; setting makes
// the key. ERROR_INVALID_PARAMETER without a key.
DWORD WINAPI GetPrinterDataExW(HANDLE printer, LPCWSTR key, LPCWSTR name, LPDWORD type, LPBYTE data,
                               DWORD size, LPDWORD needed);
DWORD WINAPI SetPrinterDataExW(HANDLE printer, LPCWSTR key, LPCWSTR name, DWORD type, LPBYTE data,
                               DWORD size);
DWORD WINAPI SetPrinterDataW(HANDLE printer, LPWSTR name, DWORD type, LPBYTE data, DWORD size);
DWORD WINAPI SetPrinterDataA(HANDLE printer, LPSTR name, DWORD type, LPBYTE data, DWORD size);
DWORD WINAPI DeletePrinterDataW(HANDLE printer, LPWSTR name);

// ---- Ports --------------------------------------------------------------------------------------

// Level 2.
BOOL WINAPI EnumPortsW(LPWSTR server, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed,
                       LPDWORD returned);

// ---- Document settings --------------------------------------------------------------------------

// Has the printer's driver (DrvDocumentPropertySheets) make document settings. Answers the size of
// its DEVMODE if `mode` is 0, or `output` is null and nobody is to be asked. Otherwise, with
// DM_OUT_BUFFER in `mode`, stores the settings in `output` and answers IDOK: the printer's
// defaults, overridden by those of `input` with DM_IN_BUFFER. With DM_IN_PROMPT the user edits them
// in the driver's property sheets first (compstui.h); IDCANCEL if the user cancels. The driver gets
// `device`, or the printer's full name if that is null. -1 on failure: ERROR_INVALID_PARAMETER for
// an `input` that is not a DEVMODE.
LONG WINAPI DocumentPropertiesW(HWND parent, HANDLE printer, LPWSTR device, PDEVMODEW output,
                                PDEVMODEW input, DWORD mode);

// True if the DEVMODE fits in `size` bytes: its fields up to dmFields, and as much as its dmSize
// and dmDriverExtra say. ERROR_INVALID_DATA if not.
BOOL WINAPI IsValidDevmodeW(PDEVMODEW dev_mode, size_t size);

// ---- Capabilities -------------------------------------------------------------------------------

// Asks the driver of the printer `device` for a capability (DC_ numbers). A null output asks for
// the count or value only. -1 if there is no such printer, or its driver cannot be loaded or has no
// answer. `port` is ignored.
int WINAPI DeviceCapabilitiesW(LPCWSTR device, LPCWSTR port, WORD capability, LPWSTR output,
                               const DEVMODEW* dev_mode);

// ---- Documents ----------------------------------------------------------------------------------

// Starts a document on a printer (level 1, a DOC_INFO_1W without an output file). Answers the
// number of its job, or 0 on failure. ERROR_INVALID_HANDLE if the handle already has a document.
DWORD WINAPI StartDocPrinterW(HANDLE printer, DWORD level, LPBYTE info);
// These fail with ERROR_SPL_NO_STARTDOC without a document.
BOOL WINAPI StartPagePrinter(HANDLE printer);
BOOL WINAPI WritePrinter(HANDLE printer, LPVOID data, DWORD size, LPDWORD written);
BOOL WINAPI EndPagePrinter(HANDLE printer);
// Completes the job and sends it to the printer's port. Failure to send it is not a failure here:
// the job shows it, and waits for another try.
BOOL WINAPI EndDocPrinter(HANDLE printer);
// Drops the job; so does closing a printer whose document is not ended.
BOOL WINAPI AbortPrinter(HANDLE printer);

// ---- Jobs ---------------------------------------------------------------------------------------

// Levels 1 and 2: `count` jobs of the printer, starting at position `first` (0 is the oldest).
BOOL WINAPI EnumJobsW(HANDLE printer, DWORD first, DWORD count, DWORD level, LPBYTE buffer,
                      DWORD size, LPDWORD needed, LPDWORD returned);
// Levels 1 and 2. ERROR_INVALID_PARAMETER if the printer has no such job.
BOOL WINAPI GetJobW(HANDLE printer, DWORD job, DWORD level, LPBYTE buffer, DWORD size,
                    LPDWORD needed);
// Level 0 with a command: JOB_CONTROL_RESTART sends a complete job to the port again (the job shows
// a failure), JOB_CONTROL_DELETE and JOB_CONTROL_CANCEL delete it. Only administrators may control
// other people's jobs.
BOOL WINAPI SetJobW(HANDLE printer, DWORD job, DWORD level, LPBYTE info, DWORD command);

WIN32HOST_END_C
#pragma GCC visibility pop
