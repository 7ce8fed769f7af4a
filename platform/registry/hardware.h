// What the registry says of the machine's processor.
#pragma once

#include "registry/locations.h"

#include <string_view>

namespace win32host::registry {

// To be called before a key of the machine at `location` is opened. If the path leads to HARDWARE,
// and for the first time in this process, the description of the first processor is brought up to
// date: a root folder may have moved to another machine. Where it cannot be written, it stays as it
// was.
void DescribeHardware(Location location, int64_t machine_key, std::u16string_view path);

} // namespace win32host::registry
