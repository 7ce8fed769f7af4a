// The screen, which this host does not have.
#include <windows.h>

extern "C" HWND WINAPI GetDesktopWindow() {
    return nullptr;
}
