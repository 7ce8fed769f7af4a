// The exported functions of the status monitor, which does the two-way traffic with printers for
// the driver's configuration module. Texts are in the ANSI code page where they are 8-bit.
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
// under the name of its question. The job is deleted, unless the printer keeps what it printed or
// its port never printed it. 1 when at least one answer came; 0 when none did, when the printer
// cannot answer on its port, or when there is no such job. `parent` is not used: nothing is shown.
QSTMON_API int WINAPI Query(HWND parent, LPSTR command_line);

// What the spooler asks when a printer has no data of that name: requests of the configuration
// module, written as names.
//
//   <xpml><port action='get' name='type'/>...     facts about the port: type, bidirectional,
//                                                 ip_address, udp_port, monitor_name, description,
//                                                 protocol
//   <xpml><printer name='NAME'/>...               that the monitor knows the printer
//   <xpml><registry action='export'...           how much is new in the printer's shared settings
//   <xpml><registry action='import'...           that a client's are to be taken over: 4 bytes
//                                                each, see shadow_server.h
//   Monitoring Supported and a number             one byte, 1 when the printer can be monitored
//   Network Sharing and a number                  one byte, 1 when the printer's settings are
//                                                 shared with those who connect to it
//
// Answers as GetPrinterData does: ERROR_MORE_DATA with the size that it takes, and
// ERROR_FILE_NOT_FOUND for every other name and for what is not known about the port.
QSTMON_API DWORD WINAPI MonitorPrinterData(LPCWSTR printer, LPCWSTR name, LPDWORD type, LPBYTE data,
                                           DWORD size, LPDWORD needed);

// Whether a job that starts with these bytes is for the monitor and not for the printer: a query
// job. The spooler keeps it for Query.
QSTMON_API BOOL WINAPI MonitorTakesJob(LPCWSTR printer, const BYTE* start, DWORD size);

// Started through rundll32: `open "PRINTER"` or `close "PRINTER"`. There is no window to monitor
// in; the printer is remembered, or forgotten, as one of those that the user wants monitored.
QSTMON_API void CALLBACK StatusMonitor(HWND parent, HINSTANCE instance, LPSTR command_line,
                                       int show);

#ifdef __cplusplus
}
#endif
