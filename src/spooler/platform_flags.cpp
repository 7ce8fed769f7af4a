#include "spooler/platform_flags.h"

bool winNT = false;
bool win2000 = false;

void SetPlatformFlags(const OString& driver_directory) {
    const WCHAR* text = driver_directory.wstring();
    const int length = driver_directory.wlen();
    winNT = length >= 2 && text[length - 2] == '\\';
    win2000 = winNT && text[length - 1] >= '3';
}
