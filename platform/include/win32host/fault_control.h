// Faults on demand: operations of the layer that fail, or end the process, at a chosen point. For
// tests; the module never includes this.
#pragma once

#include <windows.h>

#pragma GCC visibility push(default)
namespace win32host {

// What can fail. Kinds are added to name several.
enum FaultKind : DWORD {
    FAULT_FILE_OPEN = 0x0001,
    FAULT_FILE_READ = 0x0002,
    FAULT_FILE_WRITE = 0x0004,
    FAULT_FILE_NAME = 0x0008,     // deleting, moving and copying files
    FAULT_REGISTRY_READ = 0x0010, // opening and listing keys, reading values
    FAULT_REGISTRY_WRITE = 0x0020,
    FAULT_REGISTRY_DELETE = 0x0040, // of a value or a key
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

// What happens to the operations of some kinds, counted over all threads from the moment that the
// plan is made.
struct FaultPlan {
    DWORD kinds = 0;
    DWORD point = 1;        // the operation that fails first, from 1
    DWORD error = 0;        // a Win32 error code; for ports and jobs an error that fits is found
    bool partly = false;    // what writes gets half of its bytes through first
    bool from_then = false; // all operations behind the first fail as well
    bool kills = false;     // the process ends there, as by SIGKILL; after half of the bytes when
                            // `partly` is set
};

// Replaces the plan. ResetControl drops it.
void PlanFault(const FaultPlan& plan);
void ForgetFaults();

// Whether the point of the plan was reached.
bool FaultHappened();

// How many operations of the plan's kinds there were since it was made.
DWORD FaultPoints();

// The handles and the registry keys that this process has open.
size_t OpenHandles();
size_t OpenKeys();

} // namespace win32host
#pragma GCC visibility pop
