// A module for the tests of the module loader. It reports its notifications to a listener, and
// refuses to load while the environment says so.
#include <windows.h>

#include <cstdlib>

namespace {
void (*g_listener)(DWORD reason) = nullptr;
WCHAR g_name[MAX_PATH];
int g_attached = 0;
} // namespace

extern "C" {

__declspec(dllexport) BOOL WINAPI DllInitialize(HINSTANCE instance, DWORD reason, LPVOID) {
    if (std::getenv("SAMPLE_MODULE_REFUSES")) return FALSE;
    if (reason == DLL_PROCESS_ATTACH) {
        ++g_attached;
        GetModuleFileNameW(instance, g_name, MAX_PATH);
    }
    if (g_listener) g_listener(reason);
    return TRUE;
}

__declspec(dllexport) void SetListener(void (*listener)(DWORD)) {
    g_listener = listener;
}

__declspec(dllexport) int TimesAttached() {
    return g_attached;
}

__declspec(dllexport) const WCHAR* NameAtAttach() {
    return g_name;
}

} // extern "C"
