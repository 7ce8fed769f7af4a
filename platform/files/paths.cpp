#include "files/paths.h"

#include "host/root.h"
#include "host/text.h"

#include <windows.h>

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <vector>

namespace win32host {

const char16_t kWindowsFolder[] = u"C:\\WINDOWS";
const char16_t kSystemFolder[] = u"C:\\WINDOWS\\system32";
const char16_t kDriversFolder[] = u"C:\\WINDOWS\\system32\\spool\\drivers\\w32x86";

namespace {

bool IsSlash(char16_t c) {
    return c == u'\\' || c == u'/';
}

bool HasDrive(std::u16string_view path) {
    const char16_t letter = path.empty() ? u'\0' : UpperOf(path[0]);
    return path.size() >= 2 && path[1] == u':' && letter >= u'A' && letter <= u'Z';
}

std::u16string CurrentFolder() {
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::current_path(error);
    return error ? std::u16string(u"Z:\\") : WindowsPath(folder.string());
}

std::vector<std::u16string_view> Components(std::u16string_view path) {
    std::vector<std::u16string_view> parts;
    for (size_t start = 0; start < path.size();) {
        const size_t end = std::min(path.find_first_of(u"\\/", start), path.size());
        if (end > start) parts.push_back(path.substr(start, end - start));
        start = end + 1;
    }
    return parts;
}

// A component without the characters that do not count: one dot at the end of a folder, all blanks
// and dots at the end of the last name.
std::u16string_view TrimComponent(std::u16string_view name, bool is_last) {
    if (is_last) return name.substr(0, name.find_last_not_of(u" .") + 1);
    const bool one_dot = name.ends_with(u'.') && !name.ends_with(u"..");
    return name.substr(0, name.size() - one_dot);
}

// Resolves "." and ".." in `path`. `trim` is off for literal names. The first `root` components
// always stay.
std::u16string Resolve(std::u16string_view path, bool trim, size_t root = 0) {
    std::vector<std::u16string_view> kept;
    bool is_folder = IsSlash(path.back());
    const std::vector<std::u16string_view> parts = Components(path);
    for (size_t i = 0; i < parts.size(); ++i) {
        const bool is_last = i + 1 == parts.size() && !is_folder;
        std::u16string_view part = parts[i];
        if (part == u"..") {
            if (kept.size() > root) kept.pop_back();
        } else if (part != u".") {
            if (trim) part = TrimComponent(part, is_last);
            if (!part.empty())
                kept.push_back(part);
            else if (is_last)
                is_folder = true;
        }
    }
    std::u16string resolved;
    for (std::u16string_view part : kept) (resolved += u'\\') += part;
    if (resolved.empty() || (is_folder && kept.size() > root)) resolved += u'\\';
    return resolved;
}

// The name in `folder` that differs from `name` in case only, or empty.
std::string OtherCase(const std::string& folder, std::u16string_view name) {
    std::unique_ptr<DIR, int (*)(DIR*)> directory(opendir(folder.c_str()), closedir);
    std::string found;
    while (directory) {
        const dirent* entry = readdir(directory.get());
        if (!entry) break;
        // Several may match; the first by its bytes, so that the answer does not depend on the
        // order on disk.
        if (SameName(Utf16(entry->d_name), name) && (found.empty() || found > entry->d_name))
            found = entry->d_name;
    }
    return found;
}

bool Exists(const std::string& path) {
    struct stat info;
    return lstat(path.c_str(), &info) == 0;
}

// The prefix, if any, that makes a name one of the system's own, to which nothing is added.
std::u16string_view PrefixOf(std::u16string_view path) {
    const bool has = path.starts_with(u"\\\\?\\") || path.starts_with(u"\\\\.\\");
    return path.substr(0, has ? 4 : 0);
}

// True if the name after a prefix is that of a share on a server.
bool IsShare(std::u16string_view name) {
    return name.size() >= 4 && SameName(name.substr(0, 3), u"UNC") && IsSlash(name[3]);
}

// The full form of a name without its prefix; `has_prefix` says whether it had one.
std::u16string FullName(std::u16string_view path, bool has_prefix, bool trim) {
    if (path.find_first_not_of(u' ') == std::u16string_view::npos) return std::u16string();
    if (has_prefix) {
        if (HasDrive(path) && path.size() > 2)
            return std::u16string(path.substr(0, 2)) + Resolve(path.substr(2), trim);
        return Resolve(path, trim, IsShare(path) ? 3 : 0).substr(1); // a share or a device
    }
    if (path.starts_with(u"\\\\")) return u"\\" + Resolve(path, trim, 2);
    if (path[0] == u'/') return u"Z:" + Resolve(path, trim);

    const std::u16string folder = CurrentFolder();
    const std::u16string_view current(folder), current_drive = current.substr(0, 2);
    const bool has_drive = HasDrive(path);
    const std::u16string drive(has_drive ? path.substr(0, 2) : current_drive);
    const std::u16string rest(has_drive ? path.substr(2) : path);
    if (!rest.empty() && IsSlash(rest[0])) return drive + Resolve(rest, trim);
    if (!SameName(drive, current_drive)) return drive + Resolve(u"\\" + rest, trim);
    return folder.substr(0, 2) + Resolve(folder.substr(2) + u"\\" + rest, trim);
}

} // namespace

std::u16string FullPath(std::u16string_view path) {
    const std::u16string_view prefix = PrefixOf(path);
    return std::u16string(prefix) + FullName(path.substr(prefix.size()), !prefix.empty(), true);
}

std::optional<std::string> HostPath(std::u16string_view path) {
    const std::u16string_view prefix = PrefixOf(path);
    const std::u16string full =
        FullName(path.substr(prefix.size()), !prefix.empty(), prefix != u"\\\\?\\");
    const bool is_share = prefix.empty() ? full.starts_with(u"\\\\") : IsShare(full);
    if (is_share) {
        SetLastError(ERROR_BAD_NETPATH);
        return std::nullopt;
    }
    // After a prefix, "C:.." is the name of a device, whatever it looks like.
    const bool has_drive = HasDrive(full) && (full.size() == 2 || IsSlash(full[2]));
    const char16_t drive = has_drive ? UpperOf(full[0]) : u'\0';
    const bool on_c = drive == u'C';
    if (!on_c && drive != u'Z') {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return std::nullopt;
    }
    if (full.find(u'\0') != std::u16string::npos ||
        (on_c && full.find_first_of(u"<>:\"|?*", 2) != std::u16string::npos)) {
        SetLastError(ERROR_INVALID_NAME);
        return std::nullopt;
    }

    std::string host = on_c ? Root() + "/drive_c" : std::string();
    bool exists = true;
    for (std::u16string_view part : Components(std::u16string_view(full).substr(2))) {
        std::string name = Utf8(part);
        if (exists && !Exists(host + "/" + name)) {
            const std::string other = OtherCase(host.empty() ? "/" : host, part);
            if (other.empty())
                exists = false;
            else
                name = other;
        }
        (host += '/') += name;
    }
    return host.empty() ? "/" : host;
}

std::u16string WindowsPath(std::string_view path) {
    const std::string drive_c = Root() + "/drive_c";
    const bool on_c =
        path.starts_with(drive_c) && (path.size() == drive_c.size() || path[drive_c.size()] == '/');
    if (on_c) path.remove_prefix(drive_c.size());
    std::u16string name = (on_c ? u"C:" : u"Z:") + Utf16(path);
    std::replace(name.begin(), name.end(), u'/', u'\\');
    if (name.size() == 2) name += u'\\';
    return name;
}

std::u16string_view FileNameOf(std::u16string_view path) {
    const size_t slash = path.find_last_of(u"\\/");
    return slash == std::u16string_view::npos ? path : path.substr(slash + 1);
}

bool FailWith(int error, const std::string& path) {
    const auto code = [&]() -> DWORD {
        switch (error) {
        case ENOENT: {
            // If the folder exists, only the file is missing; otherwise the path to it is.
            const size_t slash = path.rfind('/');
            struct stat info;
            const std::string folder = slash ? path.substr(0, slash) : "/";
            const bool has_folder = stat(folder.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
            return has_folder ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
        }
        case ENOTDIR:
        case ELOOP:
            return ERROR_PATH_NOT_FOUND;
        case EEXIST:
            return ERROR_FILE_EXISTS;
        case ENOTEMPTY:
            return ERROR_DIR_NOT_EMPTY;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
        case ETXTBSY:
        case EBUSY:
            return ERROR_ACCESS_DENIED;
        case ENAMETOOLONG:
            return ERROR_FILENAME_EXCED_RANGE;
        case EMFILE:
        case ENFILE:
            return ERROR_TOO_MANY_OPEN_FILES;
        case ENOMEM:
            return ERROR_NOT_ENOUGH_MEMORY;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return ERROR_DISK_FULL;
        case EXDEV:
            return ERROR_NOT_SAME_DEVICE;
        case EINVAL:
            return ERROR_INVALID_PARAMETER;
        case EIO:
        default:
            return ERROR_GEN_FAILURE;
        }
    }();
    SetLastError(code);
    return false;
}

} // namespace win32host
