// Share modes of open files, for all processes of the host.
#pragma once

#include <windows.h>

namespace win32host {

// Claims the file behind `fd` for reading, writing or deleting (`access`: FILE_SHARE_READ, _WRITE
// and _DELETE for what is wanted) and lets others do what `share` says. False if it conflicts with
// somebody else's claim. The claim ends when the open file is closed.
//
// Where the file system has no locks, or the file was opened for writing only, every claim
// succeeds.
bool ClaimFile(int fd, DWORD access, DWORD share);

} // namespace win32host
