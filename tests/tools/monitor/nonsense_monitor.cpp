// A status monitor that answers every question for printer data, and makes no sense.
#include <windows.h>

#include <cstring>

extern "C" __attribute__((visibility("default"))) DWORD WINAPI
MonitorPrinterData(LPCWSTR, LPCWSTR name, LPDWORD type, LPBYTE data, DWORD size, LPDWORD needed) {
    // It shares its settings, which are 4096 bytes of nothing but such numbers.
    const bool sharing = name[0] == u'N', settings = name[0] == u'S';
    const DWORD length = sharing ? 1 : settings ? 4096 : 4;
    *type = REG_BINARY;
    *needed = length;
    if (length > size) return ERROR_MORE_DATA;
    std::memset(data, sharing, length);
    for (DWORD at = 1; at < length; at += 4) data[at] = 0x10;
    return ERROR_SUCCESS;
}
