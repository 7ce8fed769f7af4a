// What the registry says of the machine's processor and of the system that the host runs on.
#pragma once

#include "registry/locations.h"

#include <string_view>

namespace win32host::registry {

// To be called before a key of the machine at `location` is opened. If the path leads to HARDWARE,
// the descriptions of the first processor and of the system are brought up to date: a root folder
// may have moved to another machine. That is done again only after another location. Where they
// cannot be written, they stay as they were.
void DescribeHardware(Location location, int64_t machine_key, std::u16string_view path);

} // namespace win32host::registry
