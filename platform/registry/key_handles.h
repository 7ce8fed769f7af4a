// The open keys of the process.
#pragma once

#include "registry/locations.h"

#include <cstdint>

namespace win32host::registry {

struct OpenKey {
    Location location = nullptr;
    int64_t id = 0;
    REGSAM access = 0;
    uint32_t generation = 0; // of the root at the time of opening
};

// A handle for the key. Throws Error if too many are open. A handle value is reused only after
// thousands of others have been opened and closed, so that a stale one is detected.
HKEY NewKeyHandle(const OpenKey& key);

// False if the handle is not open, whatever its value.
bool FindOpenKey(HKEY handle, OpenKey& key);

bool CloseKeyHandle(HKEY handle);

} // namespace win32host::registry
