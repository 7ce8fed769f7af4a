// The user that the host runs for.
#pragma once

#include <string>

namespace win32host {

// The name of the current user in UTF-8. It names the user's tree in the registry.
std::string CurrentUserName();

// The name of the user who owns the process, whoever control.h says the host runs for.
std::string ProcessOwnerName();

} // namespace win32host
