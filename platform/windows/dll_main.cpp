// The way into the module on Windows: the compiler's runtime starts first and hands over here.
#include "zplui.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID context) {
    return DllInitialize(instance, reason, context);
}
