// The module's entry point on Windows: the compiler's runtime starts first and then calls this.
#include "zplui.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID context) {
    return DllInitialize(instance, reason, context);
}
