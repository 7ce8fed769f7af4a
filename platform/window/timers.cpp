// Timers of windows and threads, on the tick count, which tests can move.
#include "host/guarded.h"
#include "window/window.h"

#include <algorithm>

namespace win32host {
namespace {

constexpr UINT kShortestPeriod = 10; // milliseconds
constexpr UINT_PTR kFirstThreadTimer = 0x7F00;

bool IsDue(const Timer& timer, DWORD now) {
    return static_cast<int32_t>(now - timer.due) >= 0;
}

} // namespace

const Timer* TakeDueTimer(MessageQueue& queue, HWND window) {
    const DWORD now = GetTickCount();
    Timer* next = nullptr;
    for (Timer& timer : queue.timers) {
        if (!IsDue(timer, now)) continue;
        if (window && timer.window != window && !IsChild(window, timer.window)) continue;
        if (!next || static_cast<int32_t>(timer.due - next->due) < 0) next = &timer;
    }
    // However late it is, it has fallen due once.
    if (next) next->due = now + next->period;
    return next;
}

int64_t TimeToNextTimer(const MessageQueue& queue) {
    const DWORD now = GetTickCount();
    int64_t next = -1;
    for (const Timer& timer : queue.timers) {
        const int64_t left = std::max(0, static_cast<int32_t>(timer.due - now));
        if (next < 0 || left < next) next = left;
    }
    return next;
}

} // namespace win32host

using namespace win32host;

extern "C" {

UINT_PTR WINAPI SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure) {
    MessageQueue& queue = *ThisQueue();
    if (window && !WindowOf(window)) return 0;
    const UINT period = std::max(milliseconds, kShortestPeriod);
    const DWORD due = GetTickCount() + period;
    for (Timer& timer : queue.timers) {
        if (timer.window != window || timer.id != id) continue;
        timer.period = period;
        timer.due = due;
        timer.procedure = procedure;
        return window ? 1 : id;
    }
    if (!window) id = kFirstThreadTimer + ++queue.last_timer;
    return Guarded(UINT_PTR(0), [&]() -> UINT_PTR {
        queue.timers.push_back({window, id, period, due, procedure});
        return window ? 1 : id;
    });
}

BOOL WINAPI KillTimer(HWND window, UINT_PTR id) {
    MessageQueue& queue = *ThisQueue();
    const size_t count = queue.timers.size();
    queue.timers.remove_if(
        [&](const Timer& timer) { return timer.window == window && timer.id == id; });
    if (queue.timers.size() == count) return Fail(ERROR_INVALID_PARAMETER);
    std::lock_guard guard(queue.lock);
    auto& posted = queue.posted;
    posted.erase(std::remove_if(posted.begin(), posted.end(),
                                [&](const MSG& message) {
                                    return message.message == WM_TIMER && message.hwnd == window &&
                                           message.wParam == id;
                                }),
                 posted.end());
    return TRUE;
}

} // extern "C"
