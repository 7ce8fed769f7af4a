// A user who answers message boxes and the system's dialogs while a test waits for them.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

// Whether dialogs are shown to somebody on this thread; always so on Windows.
void SetUserPresent(bool present);

// Does one step after the other, each when the loop of a dialog has dispatched what came before it.
// A step gets the active window. When there are no more steps and a dialog is still open, the test
// fails and the dialog is closed.
class UserSteps {
public:
    using Step = std::function<void(HWND)>;

    explicit UserSteps(std::vector<Step> steps)
        : steps_(std::move(steps)) {
        WNDCLASSW window_class = {};
        window_class.lpfnWndProc = Procedure;
        window_class.lpszClassName = TEXT("UserSteps");
        window_class.hInstance = GetModuleHandleW(nullptr);
        RegisterClassW(&window_class);
        window_ = CreateWindowExW(0, TEXT("UserSteps"), nullptr, WS_POPUP, 0, 0, 0, 0, nullptr,
                                  nullptr, window_class.hInstance, nullptr);
        SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetUserPresent(true);
        PostMessageW(window_, WM_APP, 0, 0);
    }
    ~UserSteps() {
        DestroyWindow(window_);
        SetUserPresent(false);
        EXPECT_GE(next_, steps_.size()) << "not everything was done";
    }
    UserSteps(const UserSteps&) = delete;
    UserSteps& operator=(const UserSteps&) = delete;

private:
    // Comes after what a step has posted.
    static constexpr UINT kNextStep = WM_APP + 1;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
        auto* self = reinterpret_cast<UserSteps*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message == WM_APP) PostMessageW(window, kNextStep, 0, 0);
        if (message != kNextStep || !self) return DefWindowProcW(window, message, first, second);
        // Modal windows that a step opens get the next steps before it has ended.
        const HWND active = GetActiveWindow();
        if (self->next_ < self->steps_.size()) {
            PostMessageW(window, WM_APP, 0, 0);
            self->steps_[self->next_++](active);
        } else if (++self->tries_ < 20) {
            PostMessageW(window, WM_APP, 0, 0);
            if (self->tries_ < 10 || !active) return 0;
            ADD_FAILURE() << "a dialog is still open";
            PostMessageW(active, WM_COMMAND, IDCANCEL, 0);
            PostMessageW(active, WM_COMMAND, IDOK, 0);
        }
        return 0;
    }

    std::vector<Step> steps_;
    size_t next_ = 0;
    int tries_ = 0;
    HWND window_;
};

inline std::string NarrowText(HWND window) {
    WCHAR text[500];
    const int length = GetWindowTextW(window, text, 500);
    return {text, text + length};
}
