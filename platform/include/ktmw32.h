// Transactions over the registry: everything done in one becomes visible at once, or not at all.
//
// A transaction belongs to the thread that made it. Once a key has been opened in it, everything
// that this thread does in the registry of that machine is part of it, and other writers there
// wait. If that key is opened for reading only they do not wait, and everything that is read is as
// it was at one moment. With the registries of several machines, each one is all or nothing by
// itself.
#pragma once

#include <windows.h>

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// INVALID_HANDLE_VALUE on failure. `description` is ignored; everything else must be null or 0.
// CloseHandle rolls back what was not committed.
HANDLE WINAPI CreateTransaction(LPSECURITY_ATTRIBUTES security, void* unit_of_work, DWORD options,
                                DWORD isolation_level, DWORD isolation_flags, DWORD timeout,
                                LPWSTR description);
// FALSE, with everything undone, if it cannot be stored or if a disk failure has already undone it.
// ERROR_TRANSACTION_NOT_ACTIVE if it has ended, and on another thread.
BOOL WINAPI CommitTransaction(HANDLE transaction);
BOOL WINAPI RollbackTransaction(HANDLE transaction);

WIN32HOST_END_C
#pragma GCC visibility pop
