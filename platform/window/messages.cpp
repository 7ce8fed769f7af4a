// Messages that are sent, posted, taken and dispatched.
#include "host/guarded.h"
#include "host/text.h"
#include "window/painting.h"
#include "window/window.h"

#include <algorithm>
#include <chrono>

namespace win32host {
namespace {

constexpr UINT kFirstRegistered = 0xC000;

// A loop looks at the clock at least this often, as a test may move it.
constexpr std::chrono::milliseconds kLongestWait(50);

bool IsInRange(UINT message, UINT first, UINT last) {
    return (first == 0 && last == 0) || (message >= first && message <= last);
}

// Whether a message for `target` is one that was asked for with `window`.
bool Concerns(HWND window, HWND target) {
    if (!window) return true;
    if (window == reinterpret_cast<HWND>(static_cast<LONG_PTR>(-1))) return target == nullptr;
    return target == window || IsChild(window, target);
}

bool TakePosted(MessageQueue& queue, MSG& message, HWND window, UINT first, UINT last,
                bool remove) {
    std::lock_guard guard(queue.lock);
    for (auto i = queue.posted.begin(); i != queue.posted.end(); ++i) {
        if (!IsInRange(i->message, first, last) || !Concerns(window, i->hwnd)) continue;
        message = *i;
        if (remove) queue.posted.erase(i);
        return true;
    }
    return false;
}

bool Take(MessageQueue& queue, MSG& message, HWND window, UINT first, UINT last, bool remove) {
    queue.AnswerSent();
    if (TakePosted(queue, message, window, first, last, remove)) return true;
    const DWORD now = GetTickCount();
    if (queue.quits && IsInRange(WM_QUIT, first, last)) {
        if (remove) queue.quits = false;
        message = {nullptr, WM_QUIT, static_cast<WPARAM>(queue.exit_code), 0, now, {}};
        return true;
    }
    if (queue.windows_to_paint != 0 && IsInRange(WM_PAINT, first, last)) {
        if (HWND unpainted = WindowToPaint(queue, window)) {
            message = {unpainted, WM_PAINT, 0, 0, now, {}};
            return true;
        }
    }
    if (!queue.timers.empty() && IsInRange(WM_TIMER, first, last)) {
        if (const Timer* timer = TakeDueTimer(queue, window)) {
            message = {timer->window, WM_TIMER,
                       timer->id,     reinterpret_cast<LPARAM>(timer->procedure),
                       now,           {}};
            return true;
        }
    }
    return false;
}

// Lets the user act, or waits for something to happen.
void WaitForMore(MessageQueue& queue) {
    if (const auto user = queue.user) {
        if ((*user)()) return;
        if (queue.user == user) queue.user = nullptr;
        return;
    }
    std::unique_lock guard(queue.lock);
    if (!queue.posted.empty() || !queue.sent.empty()) return;
    const int64_t due = TimeToNextTimer(queue);
    const auto wait =
        due < 0 ? kLongestWait : std::min(kLongestWait, std::chrono::milliseconds(due));
    queue.arrived.wait_for(guard, wait);
}

BOOL TakeFor(LPMSG message, HWND window, UINT first, UINT last, bool remove) {
    MessageQueue& queue = *ThisQueue();
    MSG taken = {};
    if (!Take(queue, taken, window, first, last, remove)) return FALSE;
    queue.last = taken;
    *message = taken;
    if (!queue.hooks.empty())
        CallHooks(WH_GETMESSAGE, HC_ACTION, remove ? PM_REMOVE : PM_NOREMOVE,
                  reinterpret_cast<LPARAM>(message));
    return TRUE;
}

// False if the thread has ended.
bool Enqueue(MessageQueue& target, const std::shared_ptr<SentWork>& sent) {
    std::lock_guard guard(target.lock);
    if (target.ended) return false;
    target.sent.push_back(sent);
    target.arrived.notify_all();
    return true;
}

} // namespace

LRESULT DoInThread(const std::shared_ptr<MessageQueue>& queue, std::function<LRESULT()> work) {
    return Guarded(LRESULT(0), [&] {
        const std::shared_ptr<MessageQueue> own = ThisQueue();
        const auto sent = std::make_shared<SentWork>(SentWork{std::move(work), 0, false, own});
        if (!Enqueue(*queue, sent)) return LRESULT{0};
        std::unique_lock guard(own->lock);
        for (;;) {
            own->arrived.wait(guard, [&] { return sent->done || !own->sent.empty(); });
            if (sent->done) return sent->answer;
            guard.unlock();
            own->AnswerSent();
            guard.lock();
        }
    });
}

void AskThread(const std::shared_ptr<MessageQueue>& queue, std::function<LRESULT()> work) {
    Guarded(false, [&] {
        return Enqueue(*queue, std::make_shared<SentWork>(SentWork{std::move(work), 0, false, {}}));
    });
}

LRESULT CallWindow(HWND window, UINT message, WPARAM first, LPARAM second) {
    const auto found = WindowOf(window);
    if (!found) return 0;
    if (!found->queue->hooks.empty()) {
        CWPSTRUCT call = {second, first, message, window};
        CallHooks(WH_CALLWNDPROC, HC_ACTION, 0, reinterpret_cast<LPARAM>(&call));
        if (!FindWindowObject(window)) return 0;
    }
    return found->procedure(window, message, first, second);
}

} // namespace win32host

using namespace win32host;

extern "C" {

LRESULT WINAPI SendMessageW(HWND window, UINT message, WPARAM first, LPARAM second) {
    const auto found = WindowOf(window);
    if (!found) return 0;
    if (found->queue == ThisQueue()) return CallWindow(window, message, first, second);
    return Guarded(LRESULT(0), [&] {
        return DoInThread(found->queue, [=] { return CallWindow(window, message, first, second); });
    });
}

BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (!window) return PostThreadMessageW(GetCurrentThreadId(), message, first, second);
    if (window == HWND_BROADCAST) {
        for (HWND top : ChildrenOf(nullptr)) PostMessageW(top, message, first, second);
        return TRUE;
    }
    const auto found = WindowOf(window);
    if (!found) return FALSE;
    return Guarded(FALSE, [&] {
        found->queue->Post({window, message, first, second, GetTickCount(), {}});
        return TRUE;
    });
}

BOOL WINAPI PostThreadMessageW(DWORD thread, UINT message, WPARAM first, LPARAM second) {
    return Guarded(FALSE, [&] {
        const auto queue = thread == GetCurrentThreadId() ? ThisQueue() : QueueOfThread(thread);
        if (!queue) return Fail(ERROR_INVALID_PARAMETER);
        queue->Post({nullptr, message, first, second, GetTickCount(), {}});
        return TRUE;
    });
}

void WINAPI PostQuitMessage(int exit_code) {
    ThisQueue()->quits = true;
    ThisQueue()->exit_code = exit_code;
}

int WINAPI GetMessageW(LPMSG message, HWND window, UINT first, UINT last) {
    if (!message || (window && window != reinterpret_cast<HWND>(static_cast<LONG_PTR>(-1)) &&
                     !WindowOf(window)))
        return -1;
    while (!TakeFor(message, window, first, last, true)) WaitForMore(*ThisQueue());
    return message->message != WM_QUIT;
}

BOOL WINAPI PeekMessageW(LPMSG message, HWND window, UINT first, UINT last, UINT flags) {
    return message && TakeFor(message, window, first, last, (flags & PM_REMOVE) != 0);
}

BOOL WINAPI WaitMessage() {
    MSG message;
    while (!PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) WaitForMore(*ThisQueue());
    return TRUE;
}

LRESULT WINAPI DispatchMessageW(const MSG* message) {
    if (!message) return 0;
    if (message->message == WM_TIMER && message->lParam != 0) {
        const auto procedure = reinterpret_cast<TIMERPROC>(message->lParam);
        procedure(message->hwnd, WM_TIMER, message->wParam, GetTickCount());
        return 0;
    }
    const auto found = message->hwnd ? WindowOf(message->hwnd) : nullptr;
    if (!found) return 0;
    return found->procedure(message->hwnd, message->message, message->wParam, message->lParam);
}

DWORD WINAPI GetMessagePos() {
    POINT point = {};
    GetCursorPos(&point);
    return static_cast<DWORD>(MAKELONG(point.x, point.y));
}

LONG WINAPI GetMessageTime() {
    return static_cast<LONG>(ThisQueue()->last.time);
}

LRESULT WINAPI CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM first,
                               LPARAM second) {
    return procedure ? procedure(window, message, first, second) : 0;
}

UINT WINAPI RegisterWindowMessageW(LPCWSTR name) {
    static auto* names = new std::vector<std::u16string>;
    if (!name || !*name) return static_cast<UINT>(Fail(ERROR_INVALID_PARAMETER));
    return Guarded(UINT(0), [&]() -> UINT {
        std::lock_guard guard(WindowLock());
        const auto found = std::find_if(names->begin(), names->end(),
                                        [&](const auto& known) { return SameName(known, name); });
        const auto index = static_cast<UINT>(found - names->begin());
        if (found == names->end()) names->push_back(name);
        return kFirstRegistered + index;
    });
}

} // extern "C"
