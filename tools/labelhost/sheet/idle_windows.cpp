// A timer falls due when its thread has nothing else to do.
#include "sheet/host.h"

#include <windows.h>

namespace {

std::function<bool()> user_act;
UINT_PTR user_timer = 0;

void StopTimer() {
    if (user_timer) KillTimer(nullptr, user_timer);
    user_timer = 0;
}

void CALLBACK ActWhenDue(HWND, UINT, UINT_PTR, DWORD) {
    if (user_timer && !user_act()) StopTimer();
}

} // namespace

WhenLoopsAreIdle::WhenLoopsAreIdle(std::function<bool()> act) {
    user_act = std::move(act);
    user_timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, ActWhenDue);
}

WhenLoopsAreIdle::~WhenLoopsAreIdle() {
    StopTimer();
    user_act = nullptr;
}

// Time passes by itself.
void LetTimePass() {}

Passing::Passing(uint32_t milliseconds)
    : left_or_end_(GetTickCount64() + milliseconds) {}

bool Passing::Passed() {
    return GetTickCount64() >= left_or_end_;
}

bool IsOfSystem(HWND window) {
    HMODULE module = nullptr;
    const auto procedure = reinterpret_cast<LPCWSTR>(GetWindowLongPtrW(window, DWLP_DLGPROC));
    return GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                  GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                              procedure, &module) &&
           module == GetModuleHandleW(TEXT("user32.dll"));
}
