#include <windows.h>

#include <win32host/clock_control.h>

#include <atomic>
#include <cerrno>
#include <ctime>

namespace {

constexpr int64_t kRealTime = -1;
std::atomic<int64_t> g_tick_count{kRealTime};

void Break(LPSYSTEMTIME time, tm* (*convert)(const time_t*, tm*)) {
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    tm parts = {};
    convert(&now.tv_sec, &parts);
    time->wYear = static_cast<WORD>(parts.tm_year + 1900);
    time->wMonth = static_cast<WORD>(parts.tm_mon + 1);
    time->wDayOfWeek = static_cast<WORD>(parts.tm_wday);
    time->wDay = static_cast<WORD>(parts.tm_mday);
    time->wHour = static_cast<WORD>(parts.tm_hour);
    time->wMinute = static_cast<WORD>(parts.tm_min);
    time->wSecond = static_cast<WORD>(parts.tm_sec < 60 ? parts.tm_sec : 59); // leap second
    time->wMilliseconds = static_cast<WORD>(now.tv_nsec / 1000000);
}

} // namespace

void win32host::SetTickCount(uint32_t milliseconds) {
    g_tick_count = milliseconds;
}

void win32host::UseRealTickCount() {
    g_tick_count = kRealTime;
}

extern "C" {

DWORD WINAPI GetTickCount() {
    const int64_t set = g_tick_count;
    if (set != kRealTime) return static_cast<DWORD>(set);
    timespec now = {};
    clock_gettime(CLOCK_BOOTTIME, &now);
    return static_cast<DWORD>(static_cast<int64_t>(now.tv_sec) * 1000 + now.tv_nsec / 1000000);
}

void WINAPI Sleep(DWORD milliseconds) {
    timespec left = {static_cast<time_t>(milliseconds / 1000),
                     static_cast<int64_t>(milliseconds % 1000) * 1000000};
    while (nanosleep(&left, &left) != 0 && errno == EINTR) {
    }
}

void WINAPI GetLocalTime(LPSYSTEMTIME time) {
    Break(time, localtime_r);
}

void WINAPI GetSystemTime(LPSYSTEMTIME time) {
    Break(time, gmtime_r);
}

} // extern "C"
