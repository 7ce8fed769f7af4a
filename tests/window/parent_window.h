// What the tests of controls share: a parent that writes down what its controls tell it, and what a
// person does with a control.
#pragma once

#include "recorder.h"

#include <map>

using Text = std::basic_string<WCHAR>;

// A window on the screen that is the parent of controls. It notes the codes of WM_COMMAND by their
// names, with the control's identifier if that is not 1.
class ParentWindow {
public:
    explicit ParentWindow(std::map<int, const char*> codes)
        : codes_(std::move(codes))
        , recorder_({}) {
        ShowWindow(Window(), SW_SHOW);
        recorder_.handler = [this](UINT message, WPARAM first, LPARAM second, LRESULT& answer) {
            if (handler && handler(message, first, second, answer)) return true;
            if (message != WM_COMMAND) return false;
            const auto name = codes_.find(HIWORD(first));
            Note((name != codes_.end() ? name->second : std::to_string(HIWORD(first))) +
                 (LOWORD(first) != 1 ? std::to_string(LOWORD(first)) : ""));
            return false;
        };
    }

    HWND Window() const { return recorder_.Window(); }
    std::string Take() { return recorder_.Take(); }
    void Note(const std::string& what) { recorder_.Note(what); }

    HWND Make(LPCWSTR window_class, LPCWSTR text, DWORD style, int id = 1, int x = 10, int y = 10,
              int width = 100, int height = 30) {
        return CreateWindowExW(0, window_class, text, style | WS_CHILD | WS_VISIBLE, x, y, width,
                               height, Window(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                               GetModuleHandleW(nullptr), nullptr);
    }

    // Sees every message first; true: it is answered.
    std::function<bool(UINT, WPARAM, LPARAM, LRESULT&)> handler;

private:
    std::map<int, const char*> codes_;
    Recorder recorder_;
};

inline Text TextOf(HWND window) {
    Text text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, 0);
    text.resize(
        static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

// Something that happens to a control.
using Act = std::function<void(HWND)>;

namespace act {

inline Act Send(UINT message, WPARAM first = 0, LPARAM second = 0) {
    return [=](HWND control) { SendMessageW(control, message, first, second); };
}

inline Act Focus() {
    return [](HWND control) { SetFocus(control); };
}

inline Act Leave() {
    return [](HWND control) { SetFocus(GetParent(control)); };
}

inline Act Type(LPCWSTR text) {
    return [=](HWND control) {
        for (LPCWSTR at = text; *at; ++at) SendMessageW(control, WM_CHAR, *at, 1);
    };
}

inline void HoldKey(int key, bool down) {
    BYTE keys[256];
    GetKeyboardState(keys);
    keys[key] = down ? 0x80 : 0;
    SetKeyboardState(keys);
}

// Presses and releases a key, with VK_SHIFT or VK_CONTROL or both (`first_held`, `second_held`)
// held down.
inline Act Key(int key, int first_held = 0, int second_held = 0) {
    return [=](HWND control) {
        for (int held : {first_held, second_held})
            if (held) HoldKey(held, true);
        SendMessageW(control, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
        SendMessageW(control, WM_KEYUP, static_cast<WPARAM>(key), static_cast<LPARAM>(0xC0000001));
        for (int held : {first_held, second_held})
            if (held) HoldKey(held, false);
    };
}

inline Act Press(int x, int y) {
    return Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELONG(x, y));
}
inline Act MoveTo(int x, int y) {
    return Send(WM_MOUSEMOVE, MK_LBUTTON, MAKELONG(x, y));
}
inline Act Release(int x, int y) {
    return Send(WM_LBUTTONUP, 0, MAKELONG(x, y));
}
inline Act Click(int x, int y) {
    return [=](HWND control) {
        Press(x, y)(control);
        Release(x, y)(control);
    };
}

} // namespace act
