// The base of the control wrappers: objects over the controls of a dialog.
#pragma once

#include <windows.h>

#include <cstdint>

#include "ui/cpoint.h"
#include "ui/uwindow.h"

class UDialog;

// An object is a member of its dialog's object and becomes bound to a control when the dialog is
// initialised. From then on it sees the control's messages first. When the control is destroyed it
// gets its own window procedure back, and the object refers to no window again; this is always
// before the dialog's object goes.
class UControl : public UWindow {
public:
    UControl() = default;
    virtual ~UControl();
    UControl(const UControl&) = delete;
    UControl& operator=(const UControl&) = delete;

    virtual void Show(bool show);
    virtual void Enable(bool enable);

    // Whether the contents still need to be filled in by the dialog. A control is marked invalid
    // when it is bound, and refreshed after every refresh of its dialog.
    virtual void MarkInvalid() { valid_ = false; }
    virtual void MarkRefreshed() { valid_ = true; }

    // A scroll message of the control arrived at its dialog.
    virtual void OnUpdate() {}
    // The dialog was asked to draw the control. True if that was done.
    virtual bool OnDrawItem(const DRAWITEMSTRUCT& item);

    // ---- The control's messages. True if nothing else shall handle it; false, and nothing done,
    // by default. `flags` are the MK_ bits of the message.

    virtual bool OnPaint() { return false; }
    virtual bool OnMouseMove(uint32_t flags, CPoint at);
    virtual bool OnLButtonDown(uint32_t flags, CPoint at);
    virtual bool OnLButtonUp(uint32_t flags, CPoint at);
    virtual bool OnLButtonDoubleClick(uint32_t flags, CPoint at);
    virtual bool OnRButtonDown(uint32_t flags, CPoint at);
    virtual bool OnRButtonUp(uint32_t flags, CPoint at);
    virtual bool OnRButtonDoubleClick(uint32_t flags, CPoint at);
    virtual bool OnKeyDown(uint32_t key, uint32_t repeat, uint32_t flags);
    virtual bool OnKeyUp(uint32_t key, uint32_t repeat, uint32_t flags);

    // The control has its window but is not subclassed yet; and the window is about to go.
    virtual void OnBind() {}
    virtual void OnDestroy() {}

    // Takes a control of the dialog, by its identifier. With 0 the object keeps the window that it
    // has, if any. Without one the object is still in the dialog's list. False without a window. To
    // be called once per object.
    bool Bind(UDialog* dialog, int id);

    bool IsInvalid() const { return !valid_; }
    UDialog* GetDialog() const { return dialog_; }

protected:
    // What the control itself does with a message.
    LRESULT CallControl(UINT message, WPARAM first, LPARAM second);
    // Sends the dialog a command as from this control.
    void SendCommand(uint16_t code, LPARAM value);

private:
    static LRESULT CALLBACK WndProc(HWND window, UINT message, WPARAM first, LPARAM second);
    bool OnMessage(UINT message, WPARAM first, LPARAM second);
    void Unbind();

    UDialog* dialog_ = nullptr;
    WNDPROC procedure_ = nullptr; // the control's own
    bool valid_ = false;
};
