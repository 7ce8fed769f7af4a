// Windows path names and where they lie on this machine.
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

// The full name ("C:\dir\file"): separators are backslashes, "." and ".." are resolved, and one
// separator at the end is kept. Names of folders lose one dot at their end, the last name all
// blanks and dots. The drive's letter and a prefix stay as they are. Looks at no file. A
// \\server\share name stays one. Empty for a name of nothing but blanks.
std::u16string FullPath(std::u16string_view path);

// The POSIX path of a Windows path. Every component that exists is spelt as the disk spells it: the
// exact name first, else one that differs in case only. Nothing with ERROR_PATH_NOT_FOUND (empty
// name, drive that does not exist), ERROR_INVALID_NAME (characters that no name on C: can have) or
// ERROR_BAD_NETPATH.
std::optional<std::string> HostPath(std::u16string_view path);

#pragma GCC visibility pop

// The Windows name of an absolute POSIX path: on C: below the root folder's drive_c, else on Z:.
std::u16string WindowsPath(std::string_view path);

// Windows folders (full names without a separator at the end).
extern const char16_t kWindowsFolder[]; // C:\WINDOWS
extern const char16_t kSystemFolder[];  // C:\WINDOWS\system32
extern const char16_t kDriversFolder[]; // C:\WINDOWS\system32\spool\drivers\w32x86

// The last component.
std::u16string_view FileNameOf(std::u16string_view path);

// Sets the last error that answers to `error` (an errno value) for something done to `path`, a
// POSIX path. Always false, to return it.
bool FailWith(int error, const std::string& path);

} // namespace win32host
