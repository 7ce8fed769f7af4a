#include "window/file_request.h"

#include "files/paths.h"
#include "host/text.h"
#include "window/system_dialogs.h"

#include <algorithm>

namespace win32host {
namespace {

constexpr std::u16string_view kSeparators = u"\\/";

std::vector<std::u16string> SplitPatterns(std::u16string_view text) {
    std::vector<std::u16string> patterns;
    for (size_t start = 0; start <= text.size();) {
        const size_t end = std::min(text.find(u';', start), text.size());
        std::u16string_view pattern = text.substr(start, end - start);
        while (!pattern.empty() && pattern.front() == u' ') pattern.remove_prefix(1);
        while (!pattern.empty() && pattern.back() == u' ') pattern.remove_suffix(1);
        if (!pattern.empty()) patterns.emplace_back(pattern);
        start = end + 1;
    }
    return patterns;
}

std::vector<FileFilter> FiltersIn(LPCWSTR list) {
    std::vector<FileFilter> filters;
    while (list && *list) {
        FileFilter filter;
        filter.text = list;
        list += filter.text.size() + 1;
        const std::u16string patterns = list;
        list += patterns.size() + 1;
        filter.patterns = SplitPatterns(patterns);
        filters.push_back(std::move(filter));
    }
    return filters;
}

std::u16string CurrentFolder() {
    WCHAR folder[MAX_PATH];
    const DWORD length = GetCurrentDirectoryW(MAX_PATH, folder);
    return length > 0 && length < MAX_PATH ? folder : u"C:\\";
}

std::u16string_view NameOf(std::u16string_view path) {
    const size_t separator = path.find_last_of(kSeparators);
    return separator == std::u16string_view::npos ? path : path.substr(separator + 1);
}

} // namespace

FileRequest::FileRequest(const OPENFILENAMEW& request, bool is_save)
    : saves(is_save)
    , flags(request.Flags)
    , filters(FiltersIn(request.lpstrFilter))
    , title(CopyOf(request.lpstrTitle))
    , folder(CopyOf(request.lpstrInitialDir))
    , default_extension(CopyOf(request.lpstrDefExt)) {
    if (title.empty()) title = saves ? u"Save As" : u"Open";
    if (request.nFilterIndex > 0 && request.nFilterIndex <= filters.size())
        filter = request.nFilterIndex - 1;
    const std::u16string proposed =
        request.lpstrFile && request.nMaxFile > 0 ? request.lpstrFile : u"";
    name = NameOf(proposed);
    if (name.size() < proposed.size()) folder = FolderOf(PathIn(CurrentFolder(), proposed));
    if (folder.empty() || !IsFolder(folder)) folder = CurrentFolder();
    folder = PathIn(CurrentFolder(), folder);
}

std::vector<std::u16string> FileRequest::Patterns() const {
    if (filters.empty() || filters[filter].patterns.empty()) return {u"*"};
    return filters[filter].patterns;
}

std::u16string FileRequest::ExtensionToAdd() const {
    if (default_extension.empty()) return {};
    const std::u16string pattern = Patterns().front();
    const bool plain = pattern.size() > 2 && pattern.compare(0, 2, u"*.") == 0 &&
                       pattern.find_first_of(u"*?", 2) == std::u16string::npos;
    return plain ? pattern.substr(2) : default_extension;
}

bool FitsPattern(std::u16string_view name, std::u16string_view pattern) {
    if (pattern == u"*.*") return true;
    size_t at = 0, in = 0;
    size_t star = std::u16string_view::npos, after_star = 0;
    while (at < name.size()) {
        if (in < pattern.size() &&
            (pattern[in] == u'?' || UpperOf(pattern[in]) == UpperOf(name[at]))) {
            ++at;
            ++in;
        } else if (in < pattern.size() && pattern[in] == u'*') {
            star = in++;
            after_star = at;
        } else if (star != std::u16string_view::npos) {
            in = star + 1;
            at = ++after_star;
        } else {
            return false;
        }
    }
    while (in < pattern.size() && pattern[in] == u'*') ++in;
    return in == pattern.size();
}

std::u16string PathIn(std::u16string_view folder, std::u16string_view name) {
    const bool has_drive = name.size() > 1 && name[1] == u':';
    const bool is_rooted = !name.empty() && kSeparators.find(name[0]) != std::u16string_view::npos;
    std::u16string path;
    if (has_drive || (is_rooted && (name[0] == u'/' || name.substr(0, 2) == u"\\\\")))
        path = name;
    else if (is_rooted)
        path = std::u16string(folder.substr(0, 2)) + std::u16string(name);
    else
        path = std::u16string(folder) + u"\\" + std::u16string(name);
    path = FullPath(path);
    const bool is_drive = path.size() == 3 && path[1] == u':';
    if (path.size() > 1 && path.back() == u'\\' && !is_drive) path.pop_back();
    return path;
}

std::u16string FolderOf(const std::u16string& path) {
    const size_t separator = path.find_last_of(kSeparators);
    if (separator == std::u16string::npos) return {};
    return path.substr(0, separator == 2 && path[1] == u':' ? 3 : separator);
}

bool IsFolder(const std::u16string& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && attributes & FILE_ATTRIBUTE_DIRECTORY;
}

bool IsShownFolder(const WIN32_FIND_DATAW& found, std::u16string_view folder) {
    const std::u16string_view name = found.cFileName;
    const bool is_root = folder.size() == 3; // a drive
    return found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY && name != u"." &&
           (name != u".." || !is_root);
}

bool IsThere(const std::u16string& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool IsInvalid(std::u16string_view name) {
    if (name.size() > 1 && name[1] == u':') name.remove_prefix(2);
    return name.empty() || name.find_first_of(u"<>:\"|?*") != std::u16string_view::npos;
}

std::vector<std::u16string> NamesIn(std::u16string_view text) {
    std::vector<std::u16string> names;
    while (!text.empty() && text.back() == u' ') text.remove_suffix(1);
    while (!text.empty()) {
        if (text.front() == u' ') {
            text.remove_prefix(1);
            continue;
        }
        const bool quoted = text.front() == u'"';
        if (quoted) text.remove_prefix(1);
        const size_t end =
            std::min(quoted ? text.find(u'"') : std::u16string_view::npos, text.size());
        if (end > 0) names.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return names;
}

bool StorePaths(OPENFILENAMEW& request, const std::vector<std::u16string>& paths) {
    std::u16string stored = paths.front();
    std::u16string folder = FolderOf(stored);
    const size_t name = NameOf(stored).data() - std::u16string_view(stored).data();
    if (paths.size() > 1) {
        stored = folder;
        for (const std::u16string& path : paths) stored += u'\0' + std::u16string(NameOf(path));
        stored += u'\0';
    }
    if (!request.lpstrFile || request.nMaxFile <= stored.size()) {
        // The room that is needed.
        if (request.lpstrFile && request.nMaxFile > 0)
            request.lpstrFile[0] = static_cast<WCHAR>(stored.size() + 1);
        SetDialogError(FNERR_BUFFERTOOSMALL);
        return false;
    }
    *std::copy(stored.begin(), stored.end(), request.lpstrFile) = u'\0';
    const size_t offset = paths.size() > 1 ? folder.size() + 1 : name;
    request.nFileOffset = static_cast<WORD>(offset);
    request.nFileExtension = 0;
    if (paths.size() == 1) {
        const size_t dot = stored.find_last_of(u'.');
        if (dot != std::u16string::npos && dot >= name)
            request.nFileExtension = static_cast<WORD>(dot + 1);
        if (request.lpstrFileTitle && request.nMaxFileTitle > 0) {
            const size_t count = std::min<size_t>(stored.size() - name, request.nMaxFileTitle - 1);
            *std::copy_n(stored.begin() + static_cast<ptrdiff_t>(name), count,
                         request.lpstrFileTitle) = u'\0';
        }
    }
    return true;
}

} // namespace win32host
