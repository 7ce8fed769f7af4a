// Control of the registry, for tests and host programs. The module never includes this.
#pragma once

#include <windows.h>

#pragma GCC visibility push(default)
namespace win32host {

// Makes the key `path` below `root` and everything under it read-only (or writable again) for every
// process: opening it for writing answers ERROR_ACCESS_DENIED, reading succeeds. Handles that are
// already open keep their rights. The key is made if it is missing. False on failure.
bool SetKeyReadOnly(HKEY root, const WCHAR* path, bool read_only);

} // namespace win32host
#pragma GCC visibility pop
