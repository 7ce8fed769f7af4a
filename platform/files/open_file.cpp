// Open files: CreateFileW and what is done through its handles.
#include "files/attributes.h"
#include "files/paths.h"
#include "files/share_lock.h"
#include "host/fault_point.h"
#include "host/handles.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <mutex>
#include <string>

namespace {

using win32host::FailWith;
using win32host::IsReadOnly;

class OpenedFile : public win32host::KernelObject {
public:
    OpenedFile(int file, std::string file_path)
        : fd(file)
        , path(std::move(file_path)) {}
    ~OpenedFile() override {
        if (delete_on_close) unlink(path.c_str());
        close(fd);
    }

    const int fd;
    const std::string path;
    bool may_read = false;
    bool may_write = false;
    bool delete_on_close = false;
    std::mutex position; // held while the file position moves
};

struct Access {
    bool read;
    bool write;
    bool append_only;
    bool remove;
};

Access AccessOf(DWORD access, DWORD flags) {
    Access wanted;
    wanted.read = (access & (GENERIC_READ | GENERIC_ALL | FILE_READ_DATA)) != 0;
    const bool overwrite = (access & (GENERIC_WRITE | GENERIC_ALL | FILE_WRITE_DATA)) != 0;
    wanted.append_only = !overwrite && (access & FILE_APPEND_DATA);
    wanted.write = overwrite || wanted.append_only;
    wanted.remove = (access & (DELETE | GENERIC_ALL)) || (flags & FILE_FLAG_DELETE_ON_CLOSE);
    return wanted;
}

int OpenFlags(const Access& wanted, DWORD disposition, DWORD flags) {
    // Share modes need a descriptor that can read, whatever the caller asked for.
    int mode = wanted.write ? O_RDWR : O_RDONLY;
    if (disposition == CREATE_NEW) mode |= O_CREAT | O_EXCL;
    if (disposition == CREATE_ALWAYS || disposition == OPEN_ALWAYS) mode |= O_CREAT;
    if (wanted.append_only) mode |= O_APPEND;
    if (flags & FILE_FLAG_WRITE_THROUGH) mode |= O_DSYNC;
    return mode | O_CLOEXEC | O_NOCTTY;
}

// Opens `path`. Returns -1, with the last error set, on failure.
int Open(const std::string& path, int mode, mode_t permissions) {
    int fd = open(path.c_str(), mode, permissions);
    if (fd < 0 && errno == EACCES && (mode & O_ACCMODE) == O_RDWR)
        fd = open(path.c_str(), (mode & ~O_ACCMODE) | O_WRONLY, permissions);
    if (fd < 0) FailWith(errno, path);
    return fd;
}

// The error that keeps the caller from using a file that already existed, or NO_ERROR.
DWORD Objection(const struct stat& info, const Access& wanted, DWORD disposition, DWORD flags) {
    if (S_ISDIR(info.st_mode) && (!(flags & FILE_FLAG_BACKUP_SEMANTICS) || wanted.write))
        return ERROR_ACCESS_DENIED;
    // The superuser could write, but the attribute forbids it.
    if (IsReadOnly(info) && (wanted.write || wanted.remove || disposition == CREATE_ALWAYS))
        return ERROR_ACCESS_DENIED;
    return NO_ERROR;
}

HANDLE CreateHostFile(const std::string& path, DWORD access, DWORD share, DWORD disposition,
                      DWORD flags) {
    const Access wanted = AccessOf(access, flags);
    if (disposition < CREATE_NEW || disposition > TRUNCATE_EXISTING ||
        (disposition == TRUNCATE_EXISTING && !wanted.write)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return INVALID_HANDLE_VALUE;
    }
    const bool truncate = disposition == CREATE_ALWAYS || disposition == TRUNCATE_EXISTING;
    struct stat info = {};
    const bool existed = stat(path.c_str(), &info) == 0;
    if (existed && disposition != CREATE_NEW) {
        if (const DWORD objection = Objection(info, wanted, disposition, flags)) {
            SetLastError(objection);
            return INVALID_HANDLE_VALUE;
        }
    }
    int mode = OpenFlags(wanted, disposition, flags);
    if (truncate && (mode & O_ACCMODE) == O_RDONLY) mode = (mode & ~O_ACCMODE) | O_RDWR;
    if (existed && S_ISDIR(info.st_mode)) mode &= ~O_CREAT;
    const int fd = Open(path, mode, flags & FILE_ATTRIBUTE_READONLY ? 0444 : 0666);
    if (fd < 0) return INVALID_HANDLE_VALUE;

    auto file = std::make_shared<OpenedFile>(fd, path);
    file->may_read = wanted.read;
    file->may_write = wanted.write;
    if (fstat(fd, &info) == 0 && S_ISREG(info.st_mode)) {
        const DWORD uses = (wanted.read ? FILE_SHARE_READ : 0u) |
                           (wanted.write || truncate ? FILE_SHARE_WRITE : 0u) |
                           (wanted.remove ? FILE_SHARE_DELETE : 0u);
        // An open that only asks for attributes disturbs nobody.
        if (uses && !win32host::ClaimFile(fd, uses, share)) {
            SetLastError(ERROR_SHARING_VIOLATION);
            return INVALID_HANDLE_VALUE;
        }
        if (truncate && existed && ftruncate(fd, 0) != 0) {
            FailWith(errno, path);
            return INVALID_HANDLE_VALUE;
        }
    }
    file->delete_on_close = (flags & FILE_FLAG_DELETE_ON_CLOSE) != 0;
    const HANDLE handle = win32host::NewHandle(file);
    if (!handle) return INVALID_HANDLE_VALUE;
    const bool tells = disposition == CREATE_ALWAYS || disposition == OPEN_ALWAYS;
    SetLastError(tells && existed ? ERROR_ALREADY_EXISTS : NO_ERROR);
    return handle;
}

off_t OffsetOf(const OVERLAPPED& overlapped) {
    return static_cast<off_t>(static_cast<uint64_t>(overlapped.OffsetHigh) << 32 |
                              overlapped.Offset);
}

// Repeats `transfer(bytes done)`, which moves some bytes and answers as read() does, until `size`
// bytes are done, no more come, or the first call fails (then errno says why).
template <class Transfer>
ssize_t TransferAll(DWORD size, Transfer transfer) {
    DWORD done = 0;
    while (done < size) {
        const ssize_t count = transfer(done);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0 && done == 0) return -1;
        if (count <= 0) break;
        done += static_cast<DWORD>(count);
    }
    return static_cast<ssize_t>(done);
}

} // namespace

extern "C" {

HANDLE WINAPI CreateFileW(LPCWSTR name, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES,
                          DWORD disposition, DWORD flags_and_attributes, HANDLE) {
    if (!name) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return INVALID_HANDLE_VALUE;
    }
    const auto path = win32host::HostPath(name);
    if (!path) return INVALID_HANDLE_VALUE;
    if (const DWORD error = win32host::FailureAt(win32host::FAULT_FILE_OPEN)) {
        SetLastError(error);
        return INVALID_HANDLE_VALUE;
    }
    return CreateHostFile(*path, access, share, disposition, flags_and_attributes);
}

BOOL WINAPI ReadFile(HANDLE file, LPVOID buffer, DWORD size, LPDWORD read,
                     LPOVERLAPPED overlapped) {
    if (read) *read = 0;
    const auto opened = win32host::Find<OpenedFile>(file);
    if (!opened) return FALSE;
    if (!opened->may_read) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    if (const DWORD error = win32host::FailureAt(win32host::FAULT_FILE_READ)) {
        SetLastError(error);
        return FALSE;
    }
    BYTE* bytes = static_cast<BYTE*>(buffer);
    std::lock_guard guard(opened->position);
    const ssize_t count = TransferAll(size, [&](DWORD done) {
        return overlapped
                   ? pread(opened->fd, bytes + done, size - done, OffsetOf(*overlapped) + done)
                   : ::read(opened->fd, bytes + done, size - done);
    });
    if (count < 0) return FailWith(errno, opened->path);
    if (read) *read = static_cast<DWORD>(count);
    if (overlapped) {
        overlapped->InternalHigh = static_cast<ULONG_PTR>(count);
        if (count == 0 && size > 0) {
            SetLastError(ERROR_HANDLE_EOF);
            return FALSE;
        }
    }
    return TRUE;
}

BOOL WINAPI WriteFile(HANDLE file, LPCVOID buffer, DWORD size, LPDWORD written,
                      LPOVERLAPPED overlapped) {
    if (written) *written = 0;
    const auto opened = win32host::Find<OpenedFile>(file);
    if (!opened) return FALSE;
    if (!opened->may_write) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    const BYTE* bytes = static_cast<const BYTE*>(buffer);
    const win32host::Fault fault = win32host::FaultAt(win32host::FAULT_FILE_WRITE);
    if (fault) size = static_cast<DWORD>(fault.Part(size));
    std::lock_guard guard(opened->position);
    const ssize_t count = TransferAll(size, [&](DWORD done) {
        return overlapped
                   ? pwrite(opened->fd, bytes + done, size - done, OffsetOf(*overlapped) + done)
                   : write(opened->fd, bytes + done, size - done);
    });
    if (count < 0) return FailWith(errno, opened->path);
    if (written) *written = static_cast<DWORD>(count);
    if (overlapped) overlapped->InternalHigh = static_cast<ULONG_PTR>(count);
    if (fault) {
        SetLastError(fault.Happen());
        return FALSE;
    }
    if (static_cast<DWORD>(count) < size) {
        SetLastError(ERROR_DISK_FULL);
        return FALSE;
    }
    return TRUE;
}

DWORD WINAPI SetFilePointer(HANDLE file, LONG distance, PLONG distance_high, DWORD method) {
    const auto opened = win32host::Find<OpenedFile>(file);
    if (!opened) return INVALID_SET_FILE_POINTER;
    if (method > FILE_END) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return INVALID_SET_FILE_POINTER;
    }
    int64_t offset = distance;
    if (distance_high)
        offset = static_cast<int64_t>(static_cast<uint64_t>(static_cast<uint32_t>(*distance_high))
                                          << 32 |
                                      static_cast<uint32_t>(distance));
    std::lock_guard guard(opened->position);
    int64_t start = 0;
    if (method == FILE_CURRENT) start = lseek(opened->fd, 0, SEEK_CUR);
    if (method == FILE_END) {
        struct stat info = {};
        start = fstat(opened->fd, &info) == 0 ? info.st_size : -1;
    }
    int64_t position = 0;
    if (start < 0 || __builtin_add_overflow(start, offset, &position)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return INVALID_SET_FILE_POINTER;
    }
    if (position < 0) {
        SetLastError(ERROR_NEGATIVE_SEEK);
        return INVALID_SET_FILE_POINTER;
    }
    if (!distance_high && position > std::numeric_limits<uint32_t>::max()) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return INVALID_SET_FILE_POINTER;
    }
    if (lseek(opened->fd, static_cast<off_t>(position), SEEK_SET) < 0) {
        FailWith(errno, opened->path);
        return INVALID_SET_FILE_POINTER;
    }
    if (distance_high) *distance_high = static_cast<LONG>(position >> 32);
    SetLastError(NO_ERROR);
    return static_cast<DWORD>(position);
}

BOOL WINAPI SetEndOfFile(HANDLE file) {
    const auto opened = win32host::Find<OpenedFile>(file);
    if (!opened) return FALSE;
    if (!opened->may_write) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    std::lock_guard guard(opened->position);
    const off_t position = lseek(opened->fd, 0, SEEK_CUR);
    if (position < 0 || ftruncate(opened->fd, position) != 0) return FailWith(errno, opened->path);
    return TRUE;
}

DWORD WINAPI GetFileSize(HANDLE file, LPDWORD size_high) {
    const auto opened = win32host::Find<OpenedFile>(file);
    if (!opened) return INVALID_FILE_SIZE;
    struct stat info = {};
    if (fstat(opened->fd, &info) != 0) {
        FailWith(errno, opened->path);
        return INVALID_FILE_SIZE;
    }
    const uint64_t size = static_cast<uint64_t>(info.st_size);
    if (size_high) *size_high = static_cast<DWORD>(size >> 32);
    SetLastError(NO_ERROR);
    return static_cast<DWORD>(size);
}

BOOL WINAPI FlushFileBuffers(HANDLE file) {
    const auto opened = win32host::Find<OpenedFile>(file);
    if (!opened) return FALSE;
    if (!opened->may_write) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    // Devices and pipes have nothing to flush.
    if (fsync(opened->fd) != 0 && errno != EINVAL && errno != EROFS)
        return FailWith(errno, opened->path);
    return TRUE;
}

} // extern "C"
