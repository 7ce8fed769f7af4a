// What the tests of windows share: a window that notes the messages that it gets.
#pragma once

#include <windows.h>

#include <functional>
#include <sstream>
#include <string>
#include <vector>

// A window procedure that writes down what it gets, as far as it is asked for. One at a time.
class Recorder {
public:
    using Wanted = std::vector<std::pair<UINT, const char*>>;

    explicit Recorder(Wanted wanted, DWORD style = WS_OVERLAPPEDWINDOW, HWND parent = nullptr)
        : wanted_(std::move(wanted)) {
        WNDCLASSW window_class = {};
        window_class.lpfnWndProc = Procedure;
        window_class.lpszClassName = TEXT("Recorder");
        window_class.hInstance = GetModuleHandleW(nullptr);
        RegisterClassW(&window_class);
        window_ = CreateWindowExW(0, TEXT("Recorder"), TEXT("recorder"), style, 10, 20, 300, 200,
                                  parent, nullptr, window_class.hInstance, this);
    }
    ~Recorder() {
        if (IsWindow(window_)) DestroyWindow(window_);
    }
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    HWND Window() const { return window_; }

    // What came since the last call: "name name ...".
    std::string Take() {
        std::string taken;
        std::swap(taken, noted_);
        return taken;
    }
    void Note(const std::string& what) { noted_ += (noted_.empty() ? "" : " ") + what; }

    // Called for every message first; true: it is answered.
    std::function<bool(UINT, WPARAM, LPARAM, LRESULT&)> handler;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
        if (message == WM_NCCREATE) {
            const auto* create = reinterpret_cast<const CREATESTRUCTW*>(second);
            SetWindowLongPtrW(window, GWLP_USERDATA,
                              reinterpret_cast<LONG_PTR>(create->lpCreateParams));
        }
        auto* self = reinterpret_cast<Recorder*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (self) {
            for (const auto& [number, name] : self->wanted_)
                if (number == message) self->Note(name);
            LRESULT answer = 0;
            if (self->handler && self->handler(message, first, second, answer)) return answer;
        }
        return DefWindowProcW(window, message, first, second);
    }

    Wanted wanted_;
    HWND window_ = nullptr;
    std::string noted_;
};

// Delivers everything that waits for this thread.
inline void DeliverMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}
