// The open keys of the process.
#pragma once

#include "registry/locations.h"

#include <cstdint>

namespace win32host::registry {

struct OpenKey {
    Location location = nullptr;
    int64_t id = 0;
    REGSAM access = 0;
    uint32_t generation = 0; // of the root when it was opened
};

// A handle for the key; throws Error when too many are open. A handle value comes back only after
// thousands of others have been opened and closed, so that a stale one is found out.
HKEY NewKeyHandle(const OpenKey& key);

// False when the handle is not an open one, whatever its value is.
bool FindOpenKey(HKEY handle, OpenKey& key);

bool CloseKeyHandle(HKEY handle);

} // namespace win32host::registry
