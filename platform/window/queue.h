// What belongs to a thread that has windows: its messages, timers, hooks, keyboard and focus.
#pragma once

#include <windows.h>

#include <condition_variable>
#include <deque>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <vector>

namespace win32host {

// Work that another thread wants done here: mostly a message for a window.
struct SentWork {
    std::function<LRESULT()> work;
    LRESULT answer = 0;
    bool done = false;                          // guarded by the sender's queue
    std::shared_ptr<class MessageQueue> sender; // waits for the answer; null if nobody does
};

struct Timer {
    HWND window;
    UINT_PTR id;
    UINT period;
    DWORD due; // GetTickCount
    TIMERPROC procedure;
};

struct Hook {
    int kind;
    HOOKPROC procedure;
    HHOOK handle;
};

class MessageQueue {
public:
    // ---- For every thread ----

    DWORD thread = 0;
    std::mutex lock;
    std::condition_variable arrived;
    std::deque<MSG> posted;
    std::deque<std::shared_ptr<SentWork>> sent;
    bool ended = false;

    void Post(const MSG& message);

    // ---- For its own thread ----

    bool quits = false;
    int exit_code = 0;
    HWND focus = nullptr;
    HWND active = nullptr;
    HWND capture = nullptr;
    BYTE keys[256] = {};
    std::list<Timer> timers;
    std::vector<std::shared_ptr<const Hook>> hooks; // the newest last
    UINT_PTR last_timer = 0;
    MSG last = {}; // the last message taken
    size_t windows_to_paint = 0;
    std::shared_ptr<const std::function<bool()>> user;

    // Does what other threads have sent.
    void AnswerSent();
};

// This thread's queue, made at the first question.
const std::shared_ptr<MessageQueue>& ThisQueue();
// The queue of a thread, or null.
std::shared_ptr<MessageQueue> QueueOfThread(DWORD thread);

// Calls a procedure of this thread's window, after the hooks.
LRESULT CallWindow(HWND window, UINT message, WPARAM first, LPARAM second);

// Does something in the thread of a queue, between its messages, and answers the result: 0 if the
// thread has ended. The caller waits, and meanwhile does what others send to its thread. AskThread
// does not wait.
LRESULT DoInThread(const std::shared_ptr<MessageQueue>& queue, std::function<LRESULT()> work);
void AskThread(const std::shared_ptr<MessageQueue>& queue, std::function<LRESULT()> work);

// Tells the hooks of a kind, the newest first. False if there is none.
bool CallHooks(int kind, int code, WPARAM first, LPARAM second, LRESULT* answer = nullptr);

// Takes away the timers and messages of a window that ends.
void ForgetWindow(HWND window);

// The next timer that is due, with its time moved on; null if there is none.
const Timer* TakeDueTimer(MessageQueue& queue, HWND window);
// Milliseconds to the next timer; -1 if there are none.
int64_t TimeToNextTimer(const MessageQueue& queue);

size_t CountTimers();
size_t CountHooks();

} // namespace win32host
