// What the tests of controls share: a parent that writes down what its control notifies it of.
#pragma once

#include "recorder.h"

#include <commctrl.h>

#include <gtest/gtest.h>

#include <map>

// A visible window with one control in it, whose notifications are written down by their names.
class ControlParent {
public:
    using Text = std::basic_string<WCHAR>;
    using Names = std::map<int, const char*>;

    // `names` are of codes: those of WM_COMMAND, and those of WM_NOTIFY, which are negative. Others
    // are not written down.
    ControlParent(LPCWSTR window_class, DWORD style, int width, int height, Names names)
        : names_(std::move(names))
        , parent_({}) {
        INITCOMMONCONTROLSEX wanted = {sizeof(wanted), ICC_WIN95_CLASSES};
        InitCommonControlsEx(&wanted);
        parent_.handler = [this](UINT message, WPARAM first, LPARAM second, LRESULT& answer) {
            return Handle(message, first, second, answer);
        };
        control_ = CreateWindowExW(0, window_class, TEXT(""), style | WS_CHILD | WS_VISIBLE, 5, 5,
                                   width, height, parent_.Window(),
                                   reinterpret_cast<HMENU>(static_cast<INT_PTR>(100)),
                                   GetModuleHandleW(nullptr), nullptr);
        ShowWindow(parent_.Window(), SW_SHOW);
        SetFocus(parent_.Window());
        Took();
    }
    ~ControlParent() {
        BYTE keys[256] = {};
        SetKeyboardState(keys);
    }

    HWND Control() const { return control_; }
    HWND Window() const { return parent_.Window(); }

    LRESULT Send(UINT message, WPARAM first = 0, LPARAM second = 0) const {
        return SendMessageW(control_, message, first, second);
    }
    LRESULT SendText(UINT message, WPARAM first, LPCWSTR text) const {
        return Send(message, first, reinterpret_cast<LPARAM>(text));
    }
    // The text that a message stores, which then answers its length: LB_GETTEXT and the like.
    Text TextOf(UINT message, WPARAM first) const {
        WCHAR buffer[100] = {};
        return Send(message, first, reinterpret_cast<LPARAM>(buffer)) < 0 ? TEXT("?") : buffer;
    }

    // What the control told since the last call. Everything that waits is delivered first.
    std::string Took() {
        DeliverMessages();
        return parent_.Take();
    }

    // Keys that are held while the next clicks and keys come: VK_SHIFT, VK_CONTROL, or 0.
    void Hold(int key) {
        held_ = key;
        BYTE keys[256] = {};
        if (key) keys[key] = 0x80;
        SetKeyboardState(keys);
    }
    void Click(int x, int y, HWND where = nullptr) {
        Mouse(WM_LBUTTONDOWN, x, y, where);
        Mouse(WM_LBUTTONUP, x, y, where);
        DeliverMessages();
    }
    void DoubleClick(int x, int y) {
        Click(x, y);
        Mouse(WM_LBUTTONDBLCLK, x, y, nullptr);
        Mouse(WM_LBUTTONUP, x, y, nullptr);
        DeliverMessages();
    }
    void Key(WPARAM key, HWND where = nullptr) {
        if (!where) where = control_;
        PostMessageW(where, WM_KEYDOWN, key, 1);
        PostMessageW(where, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
        DeliverMessages();
    }

    // Called for a message to the parent before it is written down; true: it is answered.
    std::function<bool(UINT, WPARAM, LPARAM, LRESULT&)> handler;
    // Adds to what is written down for a WM_NOTIFY.
    std::function<std::string(const NMHDR&)> details;

private:
    void Mouse(UINT message, int x, int y, HWND where) {
        const WPARAM keys = (held_ == VK_SHIFT     ? MK_SHIFT
                             : held_ == VK_CONTROL ? MK_CONTROL
                                                   : 0) |
                            (message == WM_LBUTTONUP ? 0 : MK_LBUTTON);
        PostMessageW(where ? where : control_, message, keys, MAKELPARAM(x, y));
    }
    bool Handle(UINT message, WPARAM first, LPARAM second, LRESULT& answer) {
        if (message == WM_COMMAND) Note(static_cast<SHORT>(HIWORD(first)), "");
        if (message == WM_NOTIFY) {
            const auto& head = *reinterpret_cast<const NMHDR*>(second);
            Note(static_cast<int>(head.code), details ? details(head) : "");
        }
        return handler && handler(message, first, second, answer);
    }
    void Note(int code, const std::string& detail) {
        const auto name = names_.find(code);
        if (name != names_.end()) parent_.Note(name->second + detail);
    }

    Names names_;
    Recorder parent_;
    HWND control_ = nullptr;
    int held_ = 0;
};

// Something that a user or a program does with a control, what the control then tells of it, and
// the state that it is in.
struct ControlAct {
    const char* what;
    std::function<void()> act;
    const char* told;
    const char* state;
};

template <class Parent>
void CheckActs(Parent& parent, const std::vector<ControlAct>& acts) {
    for (const ControlAct& act : acts) {
        act.act();
        EXPECT_EQ(parent.Took(), act.told) << act.what;
        EXPECT_EQ(parent.State(), act.state) << act.what;
    }
}
