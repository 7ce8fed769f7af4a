// Hooks on the messages of a thread.
#include "host/guarded.h"
#include "window/window.h"

#include <algorithm>

namespace win32host {
namespace {

class HookName : public HandleObject {};

// The hook that runs now on this thread.
thread_local std::shared_ptr<const Hook> t_running;

// The newest hook of a kind that is older than `newer` (null: the newest of all).
std::shared_ptr<const Hook> HookBefore(const MessageQueue& queue, int kind, const Hook* newer) {
    for (auto i = queue.hooks.rbegin(); i != queue.hooks.rend(); ++i) {
        // Handles grow: a hook that was taken away meanwhile still has its place.
        if (newer && (*i)->handle >= newer->handle) continue;
        if ((*i)->kind == kind) return *i;
    }
    return nullptr;
}

LRESULT RunHook(std::shared_ptr<const Hook> hook, int code, WPARAM first, LPARAM second) {
    const std::shared_ptr<const Hook> outer = std::exchange(t_running, hook);
    const LRESULT answer = hook->procedure(code, first, second);
    t_running = outer;
    return answer;
}

} // namespace

bool CallHooks(int kind, int code, WPARAM first, LPARAM second, LRESULT* answer) {
    const auto hook = HookBefore(*ThisQueue(), kind, nullptr);
    if (!hook) return false;
    const LRESULT answered = RunHook(hook, code, first, second);
    if (answer) *answer = answered;
    return true;
}

} // namespace win32host

using namespace win32host;

extern "C" {

HHOOK WINAPI SetWindowsHookExW(int kind, HOOKPROC procedure, HINSTANCE, DWORD thread) {
    const bool known = kind == WH_CALLWNDPROC || kind == WH_GETMESSAGE;
    if (!known || !procedure || (thread != 0 && thread != GetCurrentThreadId())) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return Guarded(static_cast<HHOOK>(nullptr), [&]() -> HHOOK {
        const HANDLE handle = NewHandle(std::make_shared<HookName>());
        if (!handle) return nullptr;
        auto hook = std::make_shared<Hook>(Hook{kind, procedure, static_cast<HHOOK>(handle)});
        ThisQueue()->hooks.push_back(hook);
        return hook->handle;
    });
}

BOOL WINAPI UnhookWindowsHookEx(HHOOK hook) {
    auto& hooks = ThisQueue()->hooks;
    const auto found = std::find_if(hooks.begin(), hooks.end(),
                                    [&](const auto& known) { return known->handle == hook; });
    if (found == hooks.end()) return Fail(ERROR_INVALID_HOOK_HANDLE);
    hooks.erase(found);
    return Close<HookName>(hook) != nullptr;
}

LRESULT WINAPI CallNextHookEx(HHOOK, int code, WPARAM first, LPARAM second) {
    if (!t_running) return 0;
    const auto next = HookBefore(*ThisQueue(), t_running->kind, t_running.get());
    return next ? RunHook(next, code, first, second) : 0;
}

} // extern "C"
