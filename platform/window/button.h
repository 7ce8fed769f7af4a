// Buttons: push buttons, check boxes, radio buttons and group boxes.
#pragma once

#include "window/control.h"
#include "window/look.h"

namespace win32host {

class ControlPaint;

class Button : public Control {
public:
    using Control::Control;

    LRESULT Handle(UINT message, WPARAM first, LPARAM second) override;

private:
    // The BS_ kind; push buttons are one of two.
    DWORD Kind() const { return Style() & BS_TYPEMASK; }
    bool IsPush() const { return Kind() == BS_PUSHBUTTON || Kind() == BS_DEFPUSHBUTTON; }
    bool IsRadio() const { return Kind() == BS_RADIOBUTTON || Kind() == BS_AUTORADIOBUTTON; }
    bool HasThreeStates() const { return Kind() == BS_3STATE || Kind() == BS_AUTO3STATE; }
    bool HasCheck() const;
    LRESULT DialogCode() const;

    LRESULT HandleInput(UINT message, WPARAM first, LPARAM second);
    LRESULT HandleState(UINT message, WPARAM first, LPARAM second);

    // Holds the button down until Release, or until the capture is lost.
    void Hold();
    // Lets go of it; `click`: it was pressed.
    void Release(bool click);
    // Takes the next state, as its kind does by itself, and tells the parent.
    void Click();
    void SetCheck(WPARAM check);
    // Takes the check from the other automatic radio buttons of the group.
    void UncheckGroup() const;
    void SetPushed(bool pushed);
    void SetKind(DWORD style, bool redraw);
    LRESULT SetImage(UINT type, HANDLE image);
    void Redraw() const { InvalidateRect(Self(), nullptr, FALSE); }
    void TellIfAsked(int code) const {
        if (Style() & BS_NOTIFY) NotifyCommand(code);
    }

    void Paint(WPARAM context);
    void PaintPush(const ControlPaint& paint) const;
    void PaintMarked(const ControlPaint& paint) const;
    void PaintGroup(const ControlPaint& paint) const;
    void AskOwnerToDraw(const ControlPaint& paint) const;
    // The text or the bitmap, in the rectangle, placed as the style says; `usual`: the horizontal
    // place without a style. Answers where it is.
    RECT PaintContent(const ControlPaint& paint, const RECT& rect, DWORD usual) const;
    look::State LookState() const;

    WPARAM check_ = BST_UNCHECKED;
    bool pushed_ = false;
    bool held_ = false; // by the mouse or the space bar
    bool focused_ = false;
    HFONT font_ = nullptr;
    HANDLE image_ = nullptr;
};

} // namespace win32host
