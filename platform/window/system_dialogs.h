// What the system's own dialogs have in common: message boxes, file, folder and font dialogs.
#pragma once

#include "window/dialog.h"

#include <windows.h>

#include <string>
#include <string_view>

namespace win32host {

constexpr uint16_t kButtonClass = 0x80;
constexpr uint16_t kEditClass = 0x81;
constexpr uint16_t kStaticClass = 0x82;
constexpr uint16_t kListBoxClass = 0x83;
constexpr uint16_t kComboBoxClass = 0x85;

// A dialog in the system's font, in the middle of the screen; the size is in dialog units. `style`
// is added to that of every dialog.
DialogTemplate SystemDialog(const std::u16string& title, int width, int height, DWORD style);

// Adds a visible control; place and size are in dialog units.
void AddControl(DialogTemplate& dialog, uint16_t window_class, int id, const std::u16string& text,
                DWORD style, RECT place);
// The same with a text of the system's, which is given in English and shown in the user's language.
void AddSystemControl(DialogTemplate& dialog, uint16_t window_class, int id,
                      std::u16string_view english, DWORD style, RECT place);

// The text of a control, whatever its length.
std::u16string TextOfControl(HWND dialog, int id);
// The text of a combo box's item; empty for -1.
std::u16string TextOfItem(HWND dialog, int id, LRESULT item);

// Why the last of the common dialogs on this thread failed; 0 if the user cancelled.
void SetDialogError(DWORD error);

} // namespace win32host
