// The Win32 attributes that files of this machine show.
#pragma once

#include <windows.h>

#include <sys/stat.h>

#include <string>

namespace win32host {

// True for a file (not a folder) that nobody may write.
bool IsReadOnly(const struct stat& info);

// Folders are directories, files that nobody may write are read-only, and names that begin with a
// dot are hidden.
DWORD AttributesOf(const struct stat& info, const std::string& path);

} // namespace win32host
