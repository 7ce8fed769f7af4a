// The registries there are, and the calling thread's store of each.
#pragma once

#include "registry/store.h"

#include <string>

namespace win32host::registry {

// A root folder with a registry. It is identified by its address, which is the same for the same
// folder as long as the process lives.
using Location = const std::string*;

// The registry of the current root.
Location LocalLocation();

// The registry of another machine, in the folder that servers/NAME of the current root leads to; or
// null.
Location ServerLocation(std::u16string_view name);

// The calling thread's store. It is closed when the thread ends or finds that the host has moved to
// another root. Throws Error if the database cannot be opened.
Store& StoreOf(Location location);

} // namespace win32host::registry
