#include "zplui.h"

#include "model/model_data_cache.h"
#include "model/resource_cache.h"
#include "spooler/driver_utility.h"
#include "spooler/platform_flags.h"

BOOL WINAPI DllInitialize(HINSTANCE instance, DWORD reason, LPVOID) {
    switch (reason) {
    case DLL_PROCESS_ATTACH:
        DriverUtility::SetModuleHandle(instance);
        OResourceCache::Initialize();
        ModelDataCache::Initialize();
        SetPlatformFlags(DriverUtility::GetDriverDirectory());
        break;
    case DLL_PROCESS_DETACH:
        OResourceCache::Free();
        ModelDataCache::Free();
        break;
    default:
        break;
    }
    return TRUE;
}
