#include "spooler/driver_utility.h"

namespace {
HINSTANCE g_module = nullptr;
}

void DriverUtility::SetModuleHandle(HINSTANCE instance) {
    g_module = instance;
}

HINSTANCE DriverUtility::GetModuleHandle() {
    return g_module;
}

OString DriverUtility::GetDriverDirectory() {
    WCHAR path[MAX_PATH] = {};
    DWORD length = g_module ? GetModuleFileNameW(g_module, path, MAX_PATH) : 0;
    // A truncated path may lack its terminator. A module that deep has no usable directory.
    if (length == 0 || length >= MAX_PATH) return OString();
    return OString(path).PathPart();
}
