// Windows path names and where they are on this machine.
//
//   C:\...                <root>/drive_c/...      each component in any case
//   Z:\...  /...          the machine's own files, likewise
//   \\?\C:\...            the same, blanks and dots at the end of names taken literally
//   relative, \...        on the current drive, from the process's working folder
//
// Both kinds of slash separate, except that a leading '/' is the machine's own root. ".." never
// leads above the root of its drive. Other drives and \\server\share names reach nothing.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace win32host {

#pragma GCC visibility push(default) // the fuzz target looks inside

// The full name ("C:\dir\file"). Separators become backslashes, "." and ".." are resolved, and one
// separator at the end is kept. Names of folders lose one dot at their end, the last name all
// blanks and dots. The drive's letter, a prefix and a \\server\share stay as they are. No file is
// looked at. The result is empty for a name of nothing but blanks.
std::u16string FullPath(std::u16string_view path);

// The POSIX path of a Windows path. Every component that exists is spelt as on the disk: the exact
// name if there is one, else one that differs in case only. Fails with ERROR_PATH_NOT_FOUND (empty
// name, or no such drive), ERROR_INVALID_NAME (characters that no name on C: can have) or
// ERROR_BAD_NETPATH.
std::optional<std::string> HostPath(std::u16string_view path);

#pragma GCC visibility pop

// The Windows name of an absolute POSIX path: on C: if it is below the root folder's drive_c, else
// on Z:.
std::u16string WindowsPath(std::string_view path);

// Windows folders (full names without a separator at the end).
extern const char16_t kWindowsFolder[]; // C:\WINDOWS
extern const char16_t kSystemFolder[];  // C:\WINDOWS\system32
extern const char16_t kDriversFolder[]; // C:\WINDOWS\system32\spool\drivers\w32x86

// The last component.
std::u16string_view FileNameOf(std::u16string_view path);

// Sets the last error that corresponds to `error` (an errno value) for something done to the POSIX
// path `path`. Always false, so that callers can return it.
bool FailWith(int error, const std::string& path);

} // namespace win32host
