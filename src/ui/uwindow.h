// A window of the system.
#pragma once

#include <windows.h>

#include "core/ostring.h"

// Refers to a window and does not own it. Without a window, or after it was destroyed, operations
// do nothing and answer false, 0 or an empty text.
class UWindow {
public:
    HWND GetWindow() const { return window_; }

    // The identifier of a control in its dialog.
    int GetID() const { return GetDlgCtrlID(window_); }
    // WS_ and the class's own styles.
    uint32_t GetStyle() const;
    void SetStyle(uint32_t style);

    bool HasFocus() const { return window_ && ::GetFocus() == window_; }
    void TakeFocus() { ::SetFocus(window_); }
    bool IsEnabled() const { return IsWindowEnabled(window_); }
    // Whether the window itself is marked visible; its parents need not be.
    bool IsShown() const { return (GetStyle() & WS_VISIBLE) != 0; }

    HFONT GetFont() const;
    void SetFont(HFONT font);

    OString GetText() const;
    void SetText(const OString& text);
    // The window class by its registered name: "Button".
    OString GetClass() const;

    // Marks all of it for painting.
    void Repaint() { InvalidateRect(window_, nullptr, TRUE); }

protected:
    UWindow() = default;
    ~UWindow() = default;

    LRESULT Send(UINT message, WPARAM first = 0, LPARAM second = 0) const {
        return window_ ? SendMessageW(window_, message, first, second) : 0;
    }

    HWND window_ = nullptr;
};

// The text of any window, complete. Empty for null.
OString TextOfWindow(HWND window);
// Sets the text of a window unless it has it already, so that a field keeps its caret and sends no
// notification of a change that is none.
void SetTextOfWindow(HWND window, const OString& text);
