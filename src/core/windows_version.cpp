#include "core/windows_version.h"

#include <windows.h>

namespace {

// Of no platform if the system does not tell.
OSVERSIONINFOW Version() {
    OSVERSIONINFOW version = {};
    version.dwOSVersionInfoSize = sizeof version;
    if (!GetVersionExW(&version)) version = {};
    return version;
}

} // namespace

bool IsWindowsNT() {
    return Version().dwPlatformId == VER_PLATFORM_WIN32_NT;
}

bool IsWindowsNT4() {
    const OSVERSIONINFOW version = Version();
    return version.dwPlatformId == VER_PLATFORM_WIN32_NT && version.dwMajorVersion == 4 &&
           version.dwMinorVersion == 0;
}

uint32_t WindowsMajorVersion() {
    return Version().dwMajorVersion;
}
