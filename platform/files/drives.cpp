// Drives: C: and Z:.
#include "files/paths.h"
#include "host/guarded.h"
#include "host/text.h"

#include <windows.h>

#include <sys/vfs.h>

#include <string>

namespace {

// The numbers of file systems, as statfs tells them.
constexpr struct {
    uint32_t file_system;
    UINT drive;
} kDriveKinds[] = {{0x6969, DRIVE_REMOTE},      // NFS
                   {0x517B, DRIVE_REMOTE},      // SMB
                   {0xFE534D42, DRIVE_REMOTE},  // SMB 2
                   {0xFF534D42, DRIVE_REMOTE},  // CIFS
                   {0x01021997, DRIVE_REMOTE},  // 9P
                   {0x01021994, DRIVE_RAMDISK}, // tmpfs
                   {0x858458F6, DRIVE_RAMDISK}, // ramfs
                   {0x9660, DRIVE_CDROM}};      // ISO 9660

UINT TypeOfDrive(const std::string& folder) {
    struct statfs status = {};
    if (statfs(folder.c_str(), &status) != 0) return DRIVE_NO_ROOT_DIR;
    const auto found = static_cast<uint32_t>(status.f_type);
    for (const auto& kind : kDriveKinds)
        if (kind.file_system == found) return kind.drive;
    return DRIVE_FIXED;
}

} // namespace

extern "C" UINT WINAPI GetDriveTypeW(LPCWSTR root) {
    return win32host::Guarded(UINT{DRIVE_UNKNOWN}, [&]() -> UINT {
        const std::u16string path = win32host::FullPath(root ? root : u"\\");
        const bool is_root = path.size() == 3 && path[1] == u':' && path[2] == u'\\';
        const auto folder = win32host::HostPath(path);
        return is_root && folder ? TypeOfDrive(*folder) : DRIVE_NO_ROOT_DIR;
    });
}
