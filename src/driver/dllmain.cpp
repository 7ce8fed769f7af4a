#include "zplui.h"

#include "driver/driver_utility.h"

BOOL WINAPI DllInitialize(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) DriverUtility::SetModuleHandle(instance);
    return TRUE;
}
