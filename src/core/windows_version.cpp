#include "core/windows_version.h"

#include <windows.h>

bool IsWindowsNT() {
    OSVERSIONINFOW version = {};
    version.dwOSVersionInfoSize = sizeof version;
    return GetVersionExW(&version) && version.dwPlatformId == VER_PLATFORM_WIN32_NT;
}
