// The dialogs and sheets that the page of buttons opens, and what it asks the system for.
#pragma once

#include <windows.h>

#include <string>

// A dialog with a tab control and a dialog inside it; its result.
INT_PTR OpenTabbedDialog(HWND owner, HMODULE resources);
// A sheet with two pages; what PropertySheetW answers.
INT_PTR OpenInnerSheet(HWND owner, HMODULE resources);

// What the user chose, or "-".
std::string AskFont(HWND owner);
std::string AskFile(HWND owner);
std::string AskFolder(HWND owner);

// A file, a program and a help topic.
void OpenThings();
