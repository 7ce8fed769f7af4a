#include "files/share_lock.h"

#include <fcntl.h>
#include <sched.h>

#include <cstdint>

namespace win32host {
namespace {

// Each claim is a set of shared locks on bytes far beyond any contents: one byte for each kind of
// access in use and one for each kind that somebody denies to others. The locks belong to the open
// file and not to the process, so that two handles of one process see each other as well.
constexpr off_t kAccessBytes = INT64_MAX - 16;
constexpr off_t kDenialBytes = INT64_MAX - 8;
constexpr DWORD kKinds[] = {FILE_SHARE_READ, FILE_SHARE_WRITE, FILE_SHARE_DELETE};

struct flock LockOn(off_t byte, short type) {
    struct flock lock = {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = byte;
    lock.l_len = 1;
    return lock;
}

bool Set(int fd, off_t byte, short type) {
    struct flock lock = LockOn(byte, type);
    return fcntl(fd, F_OFD_SETLK, &lock) == 0;
}

bool HeldByOthers(int fd, off_t byte) {
    struct flock lock = LockOn(byte, F_WRLCK);
    return fcntl(fd, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

} // namespace

bool ClaimFile(int fd, DWORD access, DWORD share) {
    // The claim is made before it is compared with others, so two that conflict never both succeed.
    // Both may fail when they are made at the same moment: hence the further attempts.
    for (int attempt = 0; attempt < 3; ++attempt) {
        bool free = true;
        for (int kind = 0; kind < 3; ++kind) {
            if ((access & kKinds[kind]) && !Set(fd, kAccessBytes + kind, F_RDLCK)) return true;
            if (!(share & kKinds[kind]) && !Set(fd, kDenialBytes + kind, F_RDLCK)) return true;
        }
        for (int kind = 0; kind < 3; ++kind) {
            if ((access & kKinds[kind]) && HeldByOthers(fd, kDenialBytes + kind)) free = false;
            if (!(share & kKinds[kind]) && HeldByOthers(fd, kAccessBytes + kind)) free = false;
        }
        if (free) return true;
        for (int kind = 0; kind < 3; ++kind) {
            Set(fd, kAccessBytes + kind, F_UNLCK);
            Set(fd, kDenialBytes + kind, F_UNLCK);
        }
        sched_yield();
    }
    return false;
}

} // namespace win32host
