// Transactions over the registry: everything that is done in one becomes visible at once, or not at
// all.
//
// A transaction belongs to the thread that made it. From the first key that is opened in it, all
// that this thread does in the registry of that machine is part of it, and other writers there
// wait. When that key is opened for reading alone they do not: what is read is then of one moment.
// With the registries of several machines each is all or nothing by itself.
#pragma once

#include <windows.h>

#pragma GCC visibility push(default)
WIN32HOST_BEGIN_C

// INVALID_HANDLE_VALUE on failure. Everything but `description` must be null or 0, which is not
// looked at. CloseHandle rolls back what was not committed.
HANDLE WINAPI CreateTransaction(LPSECURITY_ATTRIBUTES security, void* unit_of_work, DWORD options,
                                DWORD isolation_level, DWORD isolation_flags, DWORD timeout,
                                LPWSTR description);
// FALSE, with everything undone, when it cannot be stored and when a failure of the disk has undone
// it before. ERROR_TRANSACTION_NOT_ACTIVE when it has ended and on another thread.
BOOL WINAPI CommitTransaction(HANDLE transaction);
BOOL WINAPI RollbackTransaction(HANDLE transaction);

WIN32HOST_END_C
#pragma GCC visibility pop
