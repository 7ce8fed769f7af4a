// Share modes of open files, for all processes of the host.
#pragma once

#include <windows.h>

namespace win32host {

// Claims the file behind `fd` for somebody who reads, writes or deletes it (`access`:
// FILE_SHARE_READ, _WRITE and _DELETE for what is wanted) and lets others do what `share` says.
// False when somebody else's claim stands against it. The claim ends when the open file does.
//
// Where the file system keeps no locks, or the file was opened for writing alone, every claim is
// good.
bool ClaimFile(int fd, DWORD access, DWORD share);

} // namespace win32host
