// Folder searches, and the existence test by an 8-bit name.
#include "files/attributes.h"
#include "files/paths.h"
#include "host/handles.h"
#include "host/text.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace {

using win32host::FailWith;

struct Found {
    std::u16string name;
    std::string path;
};

class Search : public win32host::HandleObject {
public:
    std::vector<Found> entries;
    size_t next = 0;
    std::mutex lock;
};

// Whether `name` matches a pattern of '*' (any text) and '?' (one unit, or none at the end).
bool Matches(std::u16string_view pattern, std::u16string_view name) {
    size_t p = 0;
    size_t n = 0;
    size_t star = std::u16string_view::npos;
    size_t star_name = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == u'*') {
            star = p++;
            star_name = n;
        } else if (p < pattern.size() && (pattern[p] == u'?' || win32host::UpperOf(pattern[p]) ==
                                                                    win32host::UpperOf(name[n]))) {
            ++p;
            ++n;
        } else if (star != std::u16string_view::npos) {
            p = star + 1;
            n = ++star_name;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && (pattern[p] == u'*' || pattern[p] == u'?')) ++p;
    return p == pattern.size();
}

FILETIME FileTimeOf(const timespec& time) {
    constexpr int64_t kSecondsFrom1601To1970 = 11644473600;
    const int64_t ticks = (static_cast<int64_t>(time.tv_sec) + kSecondsFrom1601To1970) * 10000000 +
                          static_cast<int64_t>(time.tv_nsec) / 100;
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(static_cast<uint64_t>(ticks) >> 32)};
}

// False if the file has gone in the meantime.
bool Describe(const Found& found, WIN32_FIND_DATAW& data) {
    struct stat info = {};
    if (stat(found.path.c_str(), &info) != 0 && lstat(found.path.c_str(), &info) != 0) return false;
    data = {};
    data.dwFileAttributes = win32host::AttributesOf(info, found.path);
    data.ftCreationTime = FileTimeOf(info.st_ctim);
    data.ftLastAccessTime = FileTimeOf(info.st_atim);
    data.ftLastWriteTime = FileTimeOf(info.st_mtim);
    if (!S_ISDIR(info.st_mode)) {
        data.nFileSizeHigh = static_cast<DWORD>(static_cast<uint64_t>(info.st_size) >> 32);
        data.nFileSizeLow = static_cast<DWORD>(info.st_size);
    }
    std::copy(found.name.begin(), found.name.end(), data.cFileName);
    return true;
}

bool Next(Search& search, WIN32_FIND_DATAW& data) {
    std::lock_guard guard(search.lock);
    while (search.next < search.entries.size())
        if (Describe(search.entries[search.next++], data)) return true;
    return false;
}

// Lists every match in `folder` in the order in which Windows' own file system would. Names that
// are too long for the record are left out.
bool List(const std::string& folder, std::u16string_view pattern, std::vector<Found>& entries) {
    std::unique_ptr<DIR, int (*)(DIR*)> directory(opendir(folder.c_str()), closedir);
    if (!directory) {
        FailWith(errno, folder + "/"); // the folder is the path to the files
        return false;
    }
    while (const dirent* entry = readdir(directory.get())) {
        std::u16string name = win32host::Utf16(entry->d_name);
        if (name.size() < MAX_PATH && Matches(pattern, name))
            entries.push_back({std::move(name), folder + "/" + entry->d_name});
    }
    const auto order = [](const Found& a, const Found& b) {
        return std::lexicographical_compare(
            a.name.begin(), a.name.end(), b.name.begin(), b.name.end(),
            [](char16_t x, char16_t y) { return win32host::UpperOf(x) < win32host::UpperOf(y); });
    };
    std::sort(entries.begin(), entries.end(), order);
    return true;
}

// Splits the path into folder and pattern. The pattern is kept away from path resolution, which
// knows no wildcards.
bool Find(std::u16string_view path, std::vector<Found>& entries) {
    const std::u16string_view pattern = win32host::FileNameOf(path);
    if (pattern.empty()) {
        SetLastError(path.empty() ? ERROR_PATH_NOT_FOUND : ERROR_FILE_NOT_FOUND);
        return false;
    }
    std::u16string folder(path.substr(0, path.size() - pattern.size()));
    if (pattern == u"." || pattern == u"..") { // names a folder as an entry of its parent
        const std::u16string full = win32host::FullPath(path);
        if (full.size() <= 3) {
            SetLastError(ERROR_FILE_NOT_FOUND);
            return false;
        }
        return Find(full, entries);
    }
    if (folder.empty()) folder = u".";
    const auto host = win32host::HostPath(folder);
    return host && List(*host, pattern == u"*.*" ? u"*" : pattern, entries);
}

} // namespace

extern "C" {

HANDLE WINAPI FindFirstFileW(LPCWSTR pattern, LPWIN32_FIND_DATAW data) {
    auto search = std::make_shared<Search>();
    if (!Find(pattern ? std::u16string_view(pattern) : std::u16string_view(), search->entries))
        return INVALID_HANDLE_VALUE;
    if (!Next(*search, *data)) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return INVALID_HANDLE_VALUE;
    }
    const HANDLE handle = win32host::NewHandle(search);
    return handle ? handle : INVALID_HANDLE_VALUE;
}

BOOL WINAPI FindNextFileW(HANDLE search, LPWIN32_FIND_DATAW data) {
    const auto found = win32host::Find<Search>(search);
    if (!found) return FALSE;
    if (Next(*found, *data)) return TRUE;
    SetLastError(ERROR_NO_MORE_FILES);
    return FALSE;
}

BOOL WINAPI FindClose(HANDLE search) {
    return win32host::Close<Search>(search) != nullptr;
}

HFILE WINAPI OpenFile(LPCSTR name, LPOFSTRUCT info, UINT style) {
    const auto fail = [&](DWORD error) {
        info->nErrCode = static_cast<WORD>(error);
        SetLastError(error);
        return HFILE_ERROR;
    };
    std::memset(info, 0, sizeof(*info));
    info->cBytes = sizeof(*info);
    if (!(style & OF_EXIST)) return fail(ERROR_NOT_SUPPORTED);
    WCHAR wide[MAX_PATH] = {};
    if (!name || !MultiByteToWideChar(CP_ACP, 0, name, -1, wide, MAX_PATH))
        return fail(ERROR_INVALID_NAME);
    const std::u16string full = win32host::FullPath(wide);
    if (!WideCharToMultiByte(CP_ACP, 0, full.c_str(), -1, info->szPathName, OFS_MAXPATHNAME,
                             nullptr, nullptr))
        return fail(ERROR_FILENAME_EXCED_RANGE);
    const DWORD attributes = GetFileAttributesW(full.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return fail(GetLastError());
    if (attributes & FILE_ATTRIBUTE_DIRECTORY) return fail(ERROR_FILE_NOT_FOUND);
    info->fFixedDisk = 1;
    return 1;
}

} // extern "C"
