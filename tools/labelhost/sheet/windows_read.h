// What windows say about themselves through the public functions and messages.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

// The name of the window's class, and its text with everything that it holds. Empty for null.
std::string ClassOf(HWND window);
std::string TextOf(HWND window);

// Whether the window is of that class; names are matched without regard to case.
bool IsOfClass(HWND window, const char* name);

DWORD StyleOf(HWND window);

// Whether the button is a check box or a radio button.
bool IsCheckable(HWND button);

// The identifier of a control, -1 for one without. Templates of the older form have 16 bits for it.
int IdOf(HWND control);

// The children of a window from the first to the last, which is the tab order.
std::vector<HWND> ChildrenOf(HWND window);

// The controls of a dialog: its children and, after each dialog that lies in it, that dialog's.
std::vector<HWND> ControlsOf(HWND dialog);

// The first of them with this identifier; null if there is none.
HWND ControlWithId(HWND dialog, int id);

// The control of the dialog that has the keyboard, or a part of which has it; null if none does.
HWND FocusIn(HWND dialog);

// The window's rectangle in the client coordinates of another one.
RECT RectIn(HWND window, HWND other);
// The rectangle of the client area of `window` from the top left of the frame of `framed`.
RECT ClientInFrame(HWND window, HWND framed);

// Whether the window is a dialog, a sheet or a page among them.
inline bool IsDialog(HWND window) {
    return IsOfClass(window, "#32770");
}
