// The dialogs of the system: message boxes, and those for files, folders and fonts.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

bool IsMessageBox(HWND window);
bool IsFileDialog(HWND window);
bool IsFolderDialog(HWND window);
bool IsFontDialog(HWND window);

// ---- Message boxes ------------------------------------------------------------------------------

std::string MessageText(HWND box);
// "error", "question", "warning", "information", or empty.
std::string MessageIcon(HWND box);
// Its buttons in tab order.
std::vector<HWND> MessageButtons(HWND box);
// "Yes" for IDYES; the button's own text for those that a script cannot name.
std::string ButtonName(HWND button);

// ---- Files and folders --------------------------------------------------------------------------

// The folder that the dialog shows, empty if it does not tell; and what is in its field for names.
std::string FolderIn(HWND dialog);
std::string FileIn(HWND dialog);
// The box with the kinds of files; null if there is none.
HWND FilterBox(HWND dialog);

// Puts these paths into the field of a file dialog, or goes to the folder in a folder dialog.
void EnterFiles(HWND dialog, const std::vector<std::string>& paths);
void EnterFolder(HWND dialog, const std::string& path);

// ---- Fonts --------------------------------------------------------------------------------------

// The combo boxes of the font dialog.
constexpr int kFontFamily = 1136;
constexpr int kFontStyle = 1137;
constexpr int kFontSize = 1138;

// The position of a style in the dialog's list; -1 if the family does not have it.
int FontStylePosition(HWND dialog, bool bold, bool italic);
