// The host's own window system calls its user. Its clock stands still, so that timers fall due when
// a script says so and never by themselves.
#include "sheet/host.h"

#include <win32host/clock_control.h>
#include <win32host/user.h>

#include <dlfcn.h>

#include <algorithm>

namespace {

// Timers fall due no oftener.
constexpr uint32_t kStep = 10;

} // namespace

WhenLoopsAreIdle::WhenLoopsAreIdle(std::function<bool()> act) {
    win32host::SetTickCount(GetTickCount());
    win32host::WhenIdle(std::move(act));
}

WhenLoopsAreIdle::~WhenLoopsAreIdle() {
    win32host::WhenIdle(nullptr);
    win32host::UseRealTickCount();
}

void LetTimePass() {
    win32host::SetTickCount(GetTickCount() + kStep);
}

Passing::Passing(uint32_t milliseconds)
    : left_or_end_(milliseconds) {}

bool Passing::Passed() {
    const auto step = static_cast<uint32_t>(std::min<uint64_t>(left_or_end_, kStep));
    if (step) win32host::SetTickCount(GetTickCount() + step);
    left_or_end_ -= step;
    return left_or_end_ == 0;
}

bool IsOfSystem(HWND window) {
    Dl_info procedure = {}, system = {};
    return dladdr(reinterpret_cast<void*>(GetWindowLongPtrW(window, DWLP_DLGPROC)), &procedure) &&
           dladdr(reinterpret_cast<void*>(&DefDlgProcW), &system) &&
           procedure.dli_fbase == system.dli_fbase;
}
