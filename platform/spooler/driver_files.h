// The files of drivers and their way to the folder of installed drivers.
#pragma once

#include "spooler/print_server.h"

#include <string>
#include <vector>

namespace win32host {

// Copies the files to the machine's folder of installed drivers. Each is named with its path, or
// without a folder if it was put into the driver folder or is already installed. `flags` is one of
// the APD_ numbers that say what happens to newer and older files there. Nothing is copied unless
// all files exist (else ERROR_FILE_NOT_FOUND) and may be copied. FILE.mui, where the resources of a
// module are, goes with FILE. Each file appears complete: it is
// written aside and renamed. Answers an error code.
DWORD InstallDriverFiles(const PrintServer& server, const std::vector<std::u16string>& files,
                         DWORD flags);

} // namespace win32host
