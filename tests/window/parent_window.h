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

// Latin-1 to UTF-16.
inline Text Wide(const std::string& text) {
    Text wide;
    for (char character : text) wide += static_cast<WCHAR>(static_cast<unsigned char>(character));
    return wide;
}

// Does what a person or a program does with a control: acts by name, separated by commas. "focus"
// and "leave" move the focus; "type TEXT"; a key's name presses it, "hold" before it presses only,
// and "shift" or "control" after it hold these; "press", "move", "release" and "double X [Y]" are
// the mouse's; other names are of `messages`, with two numbers at most or, for "set" and "replace",
// a text.
inline void Perform(HWND control, const std::string& acts,
                    const std::map<std::string, UINT>& messages = {}) {
    static const std::map<std::string, int> keys = {
        {"left", VK_LEFT},     {"right", VK_RIGHT}, {"up", VK_UP},       {"down", VK_DOWN},
        {"home", VK_HOME},     {"end", VK_END},     {"prior", VK_PRIOR}, {"next", VK_NEXT},
        {"delete", VK_DELETE}, {"space", VK_SPACE}, {"enter", VK_RETURN}};
    static const std::map<std::string, UINT> mouse = {{"press", WM_LBUTTONDOWN},
                                                      {"move", WM_MOUSEMOVE},
                                                      {"release", WM_LBUTTONUP},
                                                      {"double", WM_LBUTTONDBLCLK}};
    std::istringstream list(acts);
    for (std::string item; std::getline(list, item, ',');) {
        std::istringstream words(item);
        std::string name, rest;
        words >> name;
        const bool hold = name == "hold";
        if (hold) words >> name;
        std::getline(words >> std::ws, rest);
        std::istringstream numbers(rest);
        int first = 0, second = 0;
        if (numbers >> first) numbers >> second;
        if (name == "focus") SetFocus(control);
        if (name == "leave") SetFocus(GetParent(control));
        if (name == "type")
            for (WCHAR unit : Wide(rest)) SendMessageW(control, WM_CHAR, unit, 1);
        if (mouse.count(name))
            SendMessageW(control, mouse.at(name), name == "release" ? 0 : MK_LBUTTON,
                         MAKELONG(first, second));
        if (messages.count(name))
            SendMessageW(
                control, messages.at(name), static_cast<WPARAM>(static_cast<INT_PTR>(first)),
                name == "set" || name == "replace" ? reinterpret_cast<LPARAM>(Wide(rest).c_str())
                                                   : second);
        if (keys.count(name)) {
            BYTE held[256] = {};
            if (rest.find("shift") != std::string::npos) held[VK_SHIFT] = 0x80;
            if (rest.find("control") != std::string::npos) held[VK_CONTROL] = 0x80;
            SetKeyboardState(held);
            const auto key = static_cast<WPARAM>(keys.at(name));
            SendMessageW(control, WM_KEYDOWN, key, 1);
            if (!hold) SendMessageW(control, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
            held[VK_SHIFT] = held[VK_CONTROL] = 0;
            SetKeyboardState(held);
        }
    }
}
