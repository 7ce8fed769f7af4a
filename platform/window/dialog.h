// What dialogs know besides what every window knows.
#pragma once

#include "window/dialog_template.h"
#include "window/window.h"

namespace win32host {

struct DialogState {
    HFONT font = nullptr; // made for it; null if its template names none
    int base_x = 0;       // pixels of four horizontal units
    int base_y = 0;       // pixels of eight vertical units
    HWND saved_focus = nullptr;
    UINT default_id = 0;
    bool modal = false;
    bool ended = false;
    INT_PTR result = 0;

    ~DialogState();
};

// The state of a window that is a dialog; it is made at the first question. Null for no window.
std::shared_ptr<DialogState> StateOf(HWND dialog);

// The pixels of four horizontal and eight vertical dialog units in a font (null: the system's).
SIZE BaseUnitsOf(HFONT font);

// The template with this name in a module, or at this address. Nothing if there is none or it is no
// template.
std::optional<DialogTemplate> TemplateNamed(HINSTANCE module, LPCWSTR name);
std::optional<DialogTemplate> TemplateAt(const void* address);

// The same as BaseUnitsOf in the font that the template names.
SIZE BaseUnitsOf(const DialogTemplate& dialog_template);

// The template's dialog with its controls, after WM_INITDIALOG, visible if it says so. `owner` is
// disabled first if the dialog is modal.
HWND MakeDialog(HINSTANCE module, const DialogTemplate& dialog_template, HWND owner,
                DLGPROC procedure, LPARAM parameter, bool modal);

// Runs a modal dialog until it has ended, and destroys it.
INT_PTR RunModal(HWND dialog, HWND owner);

// Both, with the owner's window disabled meanwhile; -1 if the dialog cannot be made.
INT_PTR ShowModal(HINSTANCE module, const DialogTemplate& dialog_template, HWND owner,
                  DLGPROC procedure, LPARAM parameter);

// Sets the focus as the keyboard does: text of edit fields is selected.
void FocusControl(HWND control);

// The control that Enter presses: the button with the focus, else the default one. 0 for none.
UINT DefaultButtonOf(HWND dialog);

// The first control that Tab reaches; null for none.
HWND FirstTabItem(HWND dialog);

// Draws another button as the default one (null: none).
void ShowDefaultButton(HWND from, HWND to);

// FocusControl in a dialog, whose default button is drawn as that only while no other push button
// has the focus.
void FocusInDialog(HWND dialog, HWND control);
// The same for a focus that has moved already; `before` is where it was.
void FollowFocus(HWND dialog, HWND before);

} // namespace win32host
