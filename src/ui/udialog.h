// The base of every page and dialog: an object over a dialog window and the controls in it.
#pragma once

#include <windows.h>

#include "core/oarray.h"
#include "core/ostring.h"

class UControl;

class UDialog {
public:
    UDialog() = default;
    virtual ~UDialog() = default;
    UDialog(const UDialog&) = delete;
    UDialog& operator=(const UDialog&) = delete;

    // A text of the user interface by its number. Empty if there is none, and here always.
    virtual OString GetString(int id);
    // Draws an owner-drawn control that has no object of its own, or whose object does not draw.
    // True if that was done; here never.
    virtual bool OnDrawItem(const DRAWITEMSTRUCT& item);

    HWND GetWindow() const { return window_; }
    // A control of the dialog by its identifier, or null.
    HWND GetItem(int id) const;
    // The object bound to a control, or null.
    UControl* GetControl(int id) const;

    // Marks a control invalid and adds it to the list of bound ones; it must live as long as the
    // dialog's object. Part of UControl::Bind. Without memory it is bound but not in the list.
    void BindControl(UControl* control);
    // Marks all bound controls as refreshed.
    void Refresh();

protected:
    // Handles drawing and scrolling for bound controls. True if the message needs nothing else;
    // `result` is then what the dialog procedure answers.
    bool DlgProc(UINT message, WPARAM first, LPARAM second, INT_PTR& result);

    HWND window_ = nullptr;

private:
    OPointerArray<UControl*> controls_;
};
