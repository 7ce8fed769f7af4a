// The exported functions of the status monitor, which does the two-way traffic with printers for
// the driver's configuration module. 8-bit texts are in the ANSI code page.
#pragma once

#include <windows.h>

#ifndef QSTMON_API
#define QSTMON_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

// Runs a query job that the spooler has taken: `open "PRINTER" -jn JOB NAME -ji JOB NUMBER`. Sends
// the commands of the job to the printer one by one, waits for the answer to each, and stores it
// under the name of its question. The job is deleted unless the printer keeps what it printed or
// its port never printed it. 1 if at least one answer came; 0 if none did, if the printer cannot
// answer on its port, or if there is no such job. Nothing is shown. `parent` is the window
// that waits: its user can give up with Esc, and what was answered until then counts. Null or the
// desktop if there is none.
QSTMON_API int WINAPI Query(HWND parent, LPSTR command_line);

// Answers the spooler if a printer has no data of that name. The names are requests of the
// configuration module:
//
//   <xpml><port action='get' name='type'/>...     facts about the port: type, bidirectional,
//                                                 ip_address, udp_port, monitor_name, description,
//                                                 protocol
//   <xpml><printer name='NAME'/>...               that the monitor knows the printer
//   <xpml><registry action='export'...           asks for news of the shared settings: 4 bytes
//   <xpml><registry action='import'...           takes a client's over: 4 bytes (shadow_server.h)
//   Monitoring Supported and a number             one byte, 1 if the printer can be monitored
//   Network Sharing and a number                  one byte, 1 if the printer's settings are
//                                                 shared with those who connect to it
//
// Answers as GetPrinterData does: ERROR_MORE_DATA with the size that is needed, and
// ERROR_FILE_NOT_FOUND for every other name and for unknown facts about the port.
QSTMON_API DWORD WINAPI MonitorPrinterData(LPCWSTR printer, LPCWSTR name, LPDWORD type, LPBYTE data,
                                           DWORD size, LPDWORD needed);

// True if a job that starts with these bytes is a query job, which is for the monitor and not for
// the printer. The spooler keeps it for Query.
QSTMON_API BOOL WINAPI MonitorTakesJob(LPCWSTR printer, const BYTE* start, DWORD size);

// Started through rundll32: `open "PRINTER"` or `close "PRINTER"`. There is no window for
// monitoring. The printer is added to those that the user wants monitored, or removed from them.
QSTMON_API void CALLBACK StatusMonitor(HWND parent, HINSTANCE instance, LPSTR command_line,
                                       int show);

#ifdef __cplusplus
}
#endif
