// A user in front of this host's windows, for tests and host programs. The module never includes
// this.
#pragma once

#include <windows.h>

#include <functional>

#pragma GCC visibility push(default)
namespace win32host {

// Lets `act` do what a user does. It is called on this thread whenever a message loop of the
// thread, modal ones included, has nothing else to deliver, again and again until it answers false:
// then there is nobody, and loops wait for messages of other threads and for timers. It may open
// modal windows by its acts; it is then called again from their loops before it has returned. An
// empty function takes the user away.
//
// While there is a user, message boxes and the system's dialogs are shown as windows; otherwise
// they are answered at once as control.h says.
void WhenIdle(std::function<bool()> act);
bool HasUser();

// What of the window system still exists in this process: windows, timers and hooks. Nothing is
// left after everything was closed.
struct WindowCounts {
    size_t windows;
    size_t timers;
    size_t hooks;
};
WindowCounts CountWindows();

} // namespace win32host
#pragma GCC visibility pop
