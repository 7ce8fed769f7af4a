// File attributes as the files of this machine show them.
#pragma once

#include <windows.h>

#include <sys/stat.h>

#include <string>

namespace win32host {

// A file (not a folder) that nobody may write.
bool IsReadOnly(const struct stat& info);

// Directories, files that nobody may write (read-only) and names that begin with a dot (hidden).
DWORD AttributesOf(const struct stat& info, const std::string& path);

} // namespace win32host
