// The window that a person in front of the screen could use now.
#pragma once

#include <windows.h>

enum class WindowKind { None, Sheet, Dialog, Message, File, Folder, Font, Menu };

struct Topmost {
    WindowKind kind = WindowKind::None;
    HWND window = nullptr; // the whole window with its frame
    HWND dialog = nullptr; // where its controls are: the current page of a sheet, else the window
    HMENU menu = nullptr;  // of an open menu the first one, not its sub-menus

    explicit operator bool() const { return kind != WindowKind::None; }
};

// Of this thread's windows. None if there is no window that is shown and takes input.
Topmost FindTopmost();

// The sheet that is or owns this window; null if there is none.
HWND SheetOf(HWND window);

// The windows of the open menu and its open sub-menus; the first one shows `menu`.
HWND MenuWindow(HMENU menu);

// The parts of a sheet.
HWND TabsOf(HWND sheet);
HWND CurrentPageOf(HWND sheet);
constexpr int kApplyButton = 0x3021;
