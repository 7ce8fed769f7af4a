#include "zplui.h"

#include "driver/driver_utility.h"
#include "driver/platform_flags.h"

BOOL WINAPI DllInitialize(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        DriverUtility::SetModuleHandle(instance);
        SetPlatformFlags(DriverUtility::GetDriverDirectory());
    }
    return TRUE;
}
