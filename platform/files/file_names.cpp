// Files and folders by name: delete, move, copy, attributes, folders.
#include "files/attributes.h"
#include "files/paths.h"
#include "files/share_lock.h"
#include "host/fault_point.h"
#include "host/guarded.h"
#include "host/text.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string>

namespace {

using win32host::Fail;
using win32host::FailWith;
using win32host::HostPath;
using win32host::IsReadOnly;

std::optional<std::string> PathOf(LPCWSTR name) {
    if (name) return HostPath(name);
    SetLastError(ERROR_PATH_NOT_FOUND);
    return std::nullopt;
}

// True if nobody has the file open in a way that forbids `use` (FILE_SHARE_READ or _DELETE). A file
// that may not even be read cannot be checked.
bool MayUse(const std::string& path, DWORD use) {
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0) return true;
    const bool free =
        win32host::ClaimFile(fd, use, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
    close(fd);
    return free || Fail(ERROR_SHARING_VIOLATION);
}

// True if the existing file may be removed: it is not a folder, not read-only and not in use.
bool MayReplace(const std::string& path, const struct stat& info) {
    if (S_ISDIR(info.st_mode) || IsReadOnly(info)) return Fail(ERROR_ACCESS_DENIED);
    return MayUse(path, FILE_SHARE_DELETE);
}

// True, with the error set, if a test wants the operation to fail.
bool FailsHere() {
    const DWORD error = win32host::FailureAt(win32host::FAULT_FILE_NAME);
    if (error) SetLastError(error);
    return error != 0;
}

// Copies contents and permissions to a temporary file beside `to`, then renames it, so that nobody
// sees half a copy.
bool CopyTo(const std::string& from, const std::string& to) {
    namespace fs = std::filesystem;
    if (FailsHere()) return false;
    std::string temporary = to + ".XXXXXX";
    const int fd = mkstemp(temporary.data());
    if (fd < 0) return FailWith(errno, to);
    close(fd);
    std::error_code error;
    fs::copy_file(from, temporary, fs::copy_options::overwrite_existing, error);
    struct stat info = {};
    if (!error && stat(from.c_str(), &info) == 0) {
        const timespec times[] = {info.st_atim, info.st_mtim};
        chmod(temporary.c_str(), info.st_mode & 0777);
        utimensat(AT_FDCWD, temporary.c_str(), times, 0);
        fs::rename(temporary, to, error);
    }
    if (!error) return true;
    unlink(temporary.c_str());
    return FailWith(error.value(), from);
}

bool Delete(const std::string& path) {
    if (FailsHere()) return false;
    struct stat info = {};
    if (lstat(path.c_str(), &info) != 0) return FailWith(errno, path);
    if (!MayReplace(path, info)) return false;
    return unlink(path.c_str()) == 0 || FailWith(errno, path);
}

bool Move(const std::string& from, const std::string& to, DWORD flags) {
    if (FailsHere()) return false;
    struct stat source = {};
    if (lstat(from.c_str(), &source) != 0) return FailWith(errno, from);
    if (!S_ISDIR(source.st_mode) && !MayUse(from, FILE_SHARE_DELETE)) return false;
    struct stat target = {};
    // A new spelling of the same file replaces nothing.
    const bool replaces = lstat(to.c_str(), &target) == 0 &&
                          (target.st_ino != source.st_ino || target.st_dev != source.st_dev);
    if (replaces) {
        if (!(flags & MOVEFILE_REPLACE_EXISTING)) return Fail(ERROR_ALREADY_EXISTS);
        if (S_ISDIR(source.st_mode)) return Fail(ERROR_ACCESS_DENIED);
        if (!MayReplace(to, target)) return false;
    }
    if (rename(from.c_str(), to.c_str()) == 0) return true;
    const int error = errno;
    if (error == EXDEV && (flags & MOVEFILE_COPY_ALLOWED) && S_ISREG(source.st_mode))
        return CopyTo(from, to) && (unlink(from.c_str()) == 0 || FailWith(errno, from));
    return FailWith(error, error == ENOENT ? to : from);
}

} // namespace

bool win32host::IsReadOnly(const struct stat& info) {
    return S_ISREG(info.st_mode) && (info.st_mode & 0222) == 0;
}

DWORD win32host::AttributesOf(const struct stat& info, const std::string& path) {
    DWORD attributes = S_ISDIR(info.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : 0u;
    if (IsReadOnly(info)) attributes |= FILE_ATTRIBUTE_READONLY;
    const std::string name = path.substr(path.rfind('/') + 1);
    if (name.size() > 1 && name[0] == '.' && name != "..") attributes |= FILE_ATTRIBUTE_HIDDEN;
    return attributes ? attributes : FILE_ATTRIBUTE_NORMAL;
}

extern "C" {

BOOL WINAPI DeleteFileW(LPCWSTR name) {
    const auto path = PathOf(name);
    return path && Delete(*path);
}

BOOL WINAPI MoveFileExW(LPCWSTR from, LPCWSTR to, DWORD flags) {
    const auto source = PathOf(from);
    if (!source) return FALSE;
    const auto target = PathOf(to);
    if (!target) return FALSE;
    if (*source != *target) return Move(*source, *target, flags);
    // It is the same file, but the case of its name may still change.
    const std::u16string full = win32host::FullPath(to);
    const std::string name = win32host::Utf8(win32host::FileNameOf(full));
    return Move(*source, target->substr(0, target->rfind('/') + 1) + name, flags);
}

BOOL WINAPI CopyFileW(LPCWSTR from, LPCWSTR to, BOOL fail_if_exists) {
    const auto source = PathOf(from);
    if (!source) return FALSE;
    const auto target = PathOf(to);
    if (!target) return FALSE;
    struct stat info = {};
    if (stat(source->c_str(), &info) != 0) return FailWith(errno, *source);
    if (S_ISDIR(info.st_mode)) return Fail(ERROR_ACCESS_DENIED);
    struct stat old = {};
    if (stat(target->c_str(), &old) == 0) {
        if (fail_if_exists) return Fail(ERROR_FILE_EXISTS);
        if (old.st_ino == info.st_ino && old.st_dev == info.st_dev)
            return Fail(ERROR_SHARING_VIOLATION);
        if (!MayReplace(*target, old)) return FALSE;
    }
    if (!MayUse(*source, FILE_SHARE_READ)) return FALSE;
    return CopyTo(*source, *target);
}

DWORD WINAPI GetFileAttributesW(LPCWSTR name) {
    const auto path = PathOf(name);
    if (!path) return INVALID_FILE_ATTRIBUTES;
    struct stat info = {};
    if (stat(path->c_str(), &info) != 0) {
        FailWith(errno, *path);
        return INVALID_FILE_ATTRIBUTES;
    }
    return win32host::AttributesOf(info, *path);
}

BOOL WINAPI SetFileAttributesW(LPCWSTR name, DWORD attributes) {
    const auto path = PathOf(name);
    if (!path) return FALSE;
    struct stat info = {};
    if (stat(path->c_str(), &info) != 0) return FailWith(errno, *path);
    if (S_ISDIR(info.st_mode)) return TRUE;
    mode_t mode = info.st_mode & 07777;
    if (attributes & FILE_ATTRIBUTE_READONLY)
        mode &= ~static_cast<mode_t>(0222);
    else if (IsReadOnly(info))
        mode |= 0200;
    return chmod(path->c_str(), mode) == 0 || FailWith(errno, *path);
}

BOOL WINAPI CreateDirectoryW(LPCWSTR name, LPSECURITY_ATTRIBUTES) {
    const auto path = PathOf(name);
    if (!path) return FALSE;
    if (mkdir(path->c_str(), 0777) == 0) return TRUE;
    if (errno == EEXIST) return Fail(ERROR_ALREADY_EXISTS);
    // All that can be missing is the path to the new folder.
    return errno == ENOENT ? Fail(ERROR_PATH_NOT_FOUND) : FailWith(errno, *path);
}

BOOL WINAPI RemoveDirectoryW(LPCWSTR name) {
    const auto path = PathOf(name);
    if (!path) return FALSE;
    if (rmdir(path->c_str()) == 0) return TRUE;
    return errno == ENOTDIR || errno == EEXIST
               ? Fail(errno == EEXIST ? ERROR_DIR_NOT_EMPTY : ERROR_DIRECTORY)
               : FailWith(errno, *path);
}

} // extern "C"
