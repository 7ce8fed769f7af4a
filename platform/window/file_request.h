// What a file dialog was asked for, and what it makes of a name that the user typed.
#pragma once

#include <windows.h>

#include <commdlg.h>

#include <string>
#include <string_view>
#include <vector>

namespace win32host {

struct FileFilter {
    std::u16string text;
    std::vector<std::u16string> patterns; // "*.txt"
};

struct FileRequest {
    FileRequest(const OPENFILENAMEW& request, bool saves);

    bool saves;
    DWORD flags;
    std::vector<FileFilter> filters;
    size_t filter = 0; // the chosen one
    std::u16string title;
    std::u16string folder; // the one shown first
    std::u16string name;   // the one proposed
    std::u16string default_extension;

    // The patterns of the chosen filter; "*" without filters.
    std::vector<std::u16string> Patterns() const;
    // The extension for names without one: the filter's, if it has a plain one, else the default.
    std::u16string ExtensionToAdd() const;
};

// Whether a name fits a pattern with '*' and '?'; "*.*" fits every name.
bool FitsPattern(std::u16string_view name, std::u16string_view pattern);

// The full path of a name in a folder; names may be absolute.
std::u16string PathIn(std::u16string_view folder, std::u16string_view name);
// Everything before the last separator; "C:\" for a file in it.
std::u16string FolderOf(const std::u16string& path);
bool IsFolder(const std::u16string& path);
// Whether what was found in a folder is a folder to show: its own name is not, and the one above is
// only where there is one.
bool IsShownFolder(const WIN32_FIND_DATAW& found, std::u16string_view folder);
bool IsThere(const std::u16string& path);
// Whether no file can have this name.
bool IsInvalid(std::u16string_view name);

// The names in a text: each in quotes, or one without any.
std::vector<std::u16string> NamesIn(std::u16string_view text);

// Stores the chosen paths, which are in one folder. False with FNERR_BUFFERTOOSMALL.
[[nodiscard]] bool StorePaths(OPENFILENAMEW& request, const std::vector<std::u16string>& paths);

} // namespace win32host
