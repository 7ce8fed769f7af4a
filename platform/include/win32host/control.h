// Control of the host platform layer, for tests and host programs. The module never includes this.
#pragma once

#include <string>

#pragma GCC visibility push(default)
namespace win32host {

// The root folder: everything that the host keeps (drive_c/, registry.db, spool/, servers/) lies
// below it. It is $LABELHOST_ROOT, else ~/.local/share/labelhost, until SetRoot names another.
// POSIX path without a trailing slash.
std::string Root();

// Moves the whole host to another root folder, which is created when it is missing. Open registry
// connections are left behind with the old one. No handle of the old root may be used afterwards.
void SetRoot(const std::string& folder);

} // namespace win32host
#pragma GCC visibility pop
