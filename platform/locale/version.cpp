#include "locale/facts.h"

#include <windows.h>

#include <cstring>
#include <mutex>

namespace win32host {
namespace {

struct Version {
    DWORD platform = VER_PLATFORM_WIN32_NT;
    DWORD major = 5;
    DWORD minor = 0;
    DWORD build = 2195;
};

std::mutex g_version_lock;
Version g_version;

} // namespace

void SetVersion(DWORD platform, DWORD major, DWORD minor, DWORD build) {
    std::lock_guard guard(g_version_lock);
    g_version = {platform, major, minor, build};
}

void ResetVersion() {
    std::lock_guard guard(g_version_lock);
    g_version = {};
}

} // namespace win32host

extern "C" BOOL WINAPI GetVersionExW(LPOSVERSIONINFOW information) {
    const DWORD size = information ? information->dwOSVersionInfoSize : 0;
    if (size != sizeof(OSVERSIONINFOW) && size != sizeof(OSVERSIONINFOEXW)) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return FALSE;
    }
    std::lock_guard guard(win32host::g_version_lock);
    const win32host::Version& version = win32host::g_version;
    OSVERSIONINFOEXW answer = {};
    answer.dwOSVersionInfoSize = size;
    answer.dwMajorVersion = version.major;
    answer.dwMinorVersion = version.minor;
    answer.dwBuildNumber = version.build;
    answer.dwPlatformId = version.platform;
    answer.wProductType = VER_NT_WORKSTATION;
    std::memcpy(information, &answer, size);
    return TRUE;
}
