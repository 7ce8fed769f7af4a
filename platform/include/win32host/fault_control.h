// Faults on demand: makes operations of the layer fail, or end the process, at a chosen point. For
// tests; the module never includes this.
#pragma once

#include <windows.h>

#pragma GCC visibility push(default)
namespace win32host {

// What can fail. Several kinds are combined with `|`.
enum FaultKind : DWORD {
    FAULT_FILE_OPEN = 0x0001,
    FAULT_FILE_READ = 0x0002,
    FAULT_FILE_WRITE = 0x0004,
    FAULT_FILE_NAME = 0x0008,     // deleting, moving and copying files
    FAULT_REGISTRY_READ = 0x0010, // opening and listing keys, reading values
    FAULT_REGISTRY_WRITE = 0x0020,
    FAULT_REGISTRY_DELETE = 0x0040, // deleting a value or a key
    FAULT_REGISTRY_KEY = 0x0080,    // making a key
    FAULT_REGISTRY_COMMIT = 0x0100, // the end of a transaction
    FAULT_SPOOL_WRITE = 0x0200,     // the bytes of a job on their way to the spooler's file
    FAULT_SPOOL_END = 0x0400,       // giving a job's file its name
    FAULT_PORT_OPEN = 0x0800,
    FAULT_PORT_WRITE = 0x1000,

    FAULT_FILES = 0x000F,
    FAULT_REGISTRY = 0x01F0,
    FAULT_REGISTRY_CHANGES = 0x01E0,
    FAULT_SPOOLER = 0x1E00
};

// What happens to operations of some kinds, counted over all threads from the moment the plan is
// made.
struct FaultPlan {
    DWORD kinds = 0;
    DWORD point = 1;        // the first operation to fail, counted from 1
    DWORD error = 0;        // a Win32 error code; ports report one of their own
    bool partly = false;    // half of a write is done first, even if the process then ends
    bool from_then = false; // all operations after the first fail as well
    bool kills = false;     // the process ends there, as by SIGKILL
};

// Replaces the plan. ResetControl drops it.
void PlanFault(const FaultPlan& plan);
void ForgetFaults();

// True if the plan's point was reached.
bool FaultHappened();

// How many operations of the plan's kinds there have been since it was made.
DWORD FaultPoints();

// How many handles and registry keys this process has open.
size_t OpenHandles();
size_t OpenKeys();

} // namespace win32host
#pragma GCC visibility pop
