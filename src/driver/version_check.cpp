#include "driver/version_check.h"

#include <winspool.h>

#include "spooler/platform_flags.h"

bool CheckWindowsVersion() {
    if (win2000) return true;
    OSVERSIONINFOW version = {};
    version.dwOSVersionInfoSize = sizeof version;
    if (!GetVersionExW(&version)) return true; // this build is the one for systems that old
    return version.dwMajorVersion < 5 || version.dwMinorVersion == 0;
}

void DisplayVersionWarning() {
    MessageBoxW(nullptr,
                TEXT("This driver will not work with Windows XP, 2002, or higher.\n"
                     "We have created a different driver for this operating system.\n"
                     "\n"
                     "If the printer successfully installed, delete it immediately.\n"
                     "It will not function reliably."),
                TEXT("Incorrect Driver Version"), MB_OK | MB_ICONERROR);
}

void WriteVersionError(HANDLE printer) {
    WCHAR name[] = TEXT("Self-Destruct Sequence Initiated");
    BYTE mark = 0xFF;
    SetPrinterDataW(printer, name, REG_BINARY, &mark, sizeof mark);
}
