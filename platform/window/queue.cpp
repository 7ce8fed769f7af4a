#include "window/queue.h"

#include "window/window.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <map>

namespace win32host {
namespace {

struct Queues {
    std::mutex lock;
    std::map<DWORD, std::weak_ptr<MessageQueue>> by_thread;
};

Queues& TheQueues() {
    static auto* queues = new Queues;
    return *queues;
}

// Ends a thread's queue with the thread.
struct QueueHolder {
    std::shared_ptr<MessageQueue> queue;

    ~QueueHolder() {
        if (!queue) return;
        {
            std::lock_guard guard(TheQueues().lock);
            TheQueues().by_thread.erase(queue->thread);
        }
        std::deque<std::shared_ptr<SentWork>> waiting;
        {
            std::lock_guard guard(queue->lock);
            queue->ended = true;
            waiting.swap(queue->sent);
        }
        for (const auto& item : waiting) {
            if (!item->sender) continue;
            std::lock_guard guard(item->sender->lock);
            item->done = true;
            item->sender->arrived.notify_all();
        }
        DropWindowsOf(queue.get());
    }
};

thread_local QueueHolder t_queue;

} // namespace

const std::shared_ptr<MessageQueue>& ThisQueue() {
    if (!t_queue.queue) {
        auto made = std::make_shared<MessageQueue>();
        made->thread = GetCurrentThreadId();
        std::lock_guard guard(TheQueues().lock);
        TheQueues().by_thread[made->thread] = made;
        t_queue.queue = std::move(made);
    }
    return t_queue.queue;
}

std::shared_ptr<MessageQueue> QueueOfThread(DWORD thread) {
    std::lock_guard guard(TheQueues().lock);
    const auto found = TheQueues().by_thread.find(thread);
    return found == TheQueues().by_thread.end() ? nullptr : found->second.lock();
}

void MessageQueue::Post(const MSG& message) {
    std::lock_guard guard(lock);
    posted.push_back(message);
    arrived.notify_all();
}

void MessageQueue::AnswerSent() {
    for (;;) {
        std::shared_ptr<SentWork> next;
        {
            std::lock_guard guard(lock);
            if (sent.empty()) return;
            next = std::move(sent.front());
            sent.pop_front();
        }
        const LRESULT answer = next->work();
        if (!next->sender) continue;
        std::lock_guard guard(next->sender->lock);
        next->answer = answer;
        next->done = true;
        next->sender->arrived.notify_all();
    }
}

void ForgetWindow(HWND window) {
    MessageQueue& queue = *ThisQueue();
    queue.timers.remove_if([&](const Timer& timer) { return timer.window == window; });
    std::lock_guard guard(queue.lock);
    auto& posted = queue.posted;
    posted.erase(std::remove_if(posted.begin(), posted.end(),
                                [&](const MSG& message) { return message.hwnd == window; }),
                 posted.end());
}

size_t CountTimers() {
    return ThisQueue()->timers.size();
}

size_t CountHooks() {
    return ThisQueue()->hooks.size();
}

} // namespace win32host

extern "C" {

DWORD WINAPI GetCurrentThreadId() {
    static std::atomic<DWORD> g_last{0};
    static thread_local DWORD t_id = 0;
    // Numbered from the process's number on, so that those of two processes rarely meet.
    if (t_id == 0) t_id = static_cast<DWORD>(getpid()) * 4 + 0x100000 * g_last++;
    return t_id;
}

DWORD WINAPI GetCurrentProcessId() {
    return static_cast<DWORD>(getpid());
}

} // extern "C"
