// Transactions of callers, and those for the layer's own records.
#pragma once

#include "registry/locations.h"

#include <winerror.h>
#include <winreg.h>

namespace win32host::registry {

// Makes a transaction (a handle of CreateTransaction) cover what the calling thread does in a
// registry. Others may write there meanwhile unless it is for `writing`. One that is not can still
// write as long as nobody else has, and gets ERROR_BUSY otherwise.
LSTATUS Enlist(HANDLE transaction, Location location, bool writing);

// Covers what the calling thread does in the registry of a key until Commit; without that,
// everything is undone when the object is destroyed. Inside another transaction of the thread it is
// part of that. Nothing throws.
class KeyTransaction {
public:
    explicit KeyTransaction(HKEY key) noexcept;
    ~KeyTransaction();
    KeyTransaction(const KeyTransaction&) = delete;
    KeyTransaction& operator=(const KeyTransaction&) = delete;

    // Commits if `done` is success. Answers the first error otherwise.
    LSTATUS Commit(LSTATUS done) noexcept;

private:
    Store* store_ = nullptr;
    LSTATUS status_ = ERROR_SUCCESS;
};

} // namespace win32host::registry
