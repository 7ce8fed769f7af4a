// Up-down controls: two arrows that change a number, usually the one in an edit field.
#pragma once

#include "window/control.h"
#include "window/look.h"

#include <commctrl.h>

#include <string>
#include <vector>

namespace win32host {

class UpDown : public Control {
public:
    // The buddy's key, the first parameter; answers TRUE if it is an arrow key.
    static constexpr UINT kBuddyKey = WM_USER + 0x200;

    using Control::Control;

    LRESULT Handle(UINT message, WPARAM first, LPARAM second) override;

private:
    enum class Button { None, Up, Down };

    bool IsHorizontal() const { return (Style() & UDS_HORZ) != 0; }
    LRESULT HandleNumbers(UINT message, WPARAM first, LPARAM second);
    LRESULT HandleMouse(UINT message, LPARAM second);

    LRESULT OnBuddyKey(WPARAM key);
    LRESULT SetBuddy(HWND buddy);
    void LeaveBuddy();
    void StandAtBuddy();
    // Takes the number of the buddy's text; false if it is none of the range. True without a buddy.
    bool ReadBuddy();
    void WriteBuddy() const;
    std::u16string Formatted() const;
    int Limited(int64_t position) const;
    int SetPosition(int position);
    LRESULT SetAccelerators(WPARAM count, const UDACCEL* accelerators);

    Button ButtonAt(LPARAM point) const;
    RECT RectOf(Button button) const;
    // Moves by `steps` towards the upper end, as far as the parent lets it.
    void Move(int steps);
    int StepsNow() const;
    void Scroll(int code) const;
    void Repeat();
    void EndPress();
    void Paint(WPARAM context);

    HWND buddy_ = nullptr;
    int low_ = 100; // the ends, in either order
    int high_ = 0;
    int position_ = 0;
    int base_ = 10;
    std::vector<UDACCEL> accelerators_ = {{0, 1}, {2, 5}, {5, 20}};
    Button pressed_ = Button::None;
    bool over_ = false; // the pointer is on the button that is pressed
    DWORD pressed_since_ = 0;
};

} // namespace win32host
