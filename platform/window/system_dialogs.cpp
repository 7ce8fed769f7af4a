#include "window/system_dialogs.h"

#include "locale/system_texts.h"

#include <commdlg.h>

namespace win32host {
namespace {

thread_local DWORD g_dialog_error = 0;

} // namespace

DialogTemplate SystemDialog(const std::u16string& title, int width, int height, DWORD style) {
    DialogTemplate made;
    made.extended = true;
    made.style = WS_POPUP | WS_CAPTION | WS_VISIBLE | DS_MODALFRAME | DS_SETFONT | DS_3DLOOK |
                 DS_CENTER | style;
    made.width = static_cast<int16_t>(width);
    made.height = static_cast<int16_t>(height);
    made.title = title;
    made.has_font = true;
    made.points = 8;
    made.face = u"MS Shell Dlg";
    return made;
}

void AddControl(DialogTemplate& dialog, uint16_t window_class, int id, const std::u16string& text,
                DWORD style, RECT place) {
    DialogItem item;
    item.window_class.number = window_class;
    item.id = static_cast<uint32_t>(id);
    item.title.text = text;
    item.style = WS_CHILD | WS_VISIBLE | style;
    item.x = static_cast<int16_t>(place.left);
    item.y = static_cast<int16_t>(place.top);
    item.width = static_cast<int16_t>(place.right - place.left);
    item.height = static_cast<int16_t>(place.bottom - place.top);
    dialog.items.push_back(std::move(item));
}

void AddSystemControl(DialogTemplate& dialog, uint16_t window_class, int id,
                      std::u16string_view english, DWORD style, RECT place) {
    AddControl(dialog, window_class, id, SystemText(english), style, place);
}

std::u16string TextOfControl(HWND dialog, int id) {
    const HWND control = GetDlgItem(dialog, id);
    if (!control) return {};
    std::u16string text(static_cast<size_t>(GetWindowTextLengthW(control)) + 1, u'\0');
    text.resize(
        static_cast<size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
    return text;
}

std::u16string TextOfItem(HWND dialog, int id, LRESULT item) {
    const LRESULT length =
        item < 0 ? CB_ERR
                 : SendDlgItemMessageW(dialog, id, CB_GETLBTEXTLEN, static_cast<WPARAM>(item), 0);
    if (length <= 0) return {};
    std::u16string text(static_cast<size_t>(length) + 1, u'\0');
    SendDlgItemMessageW(dialog, id, CB_GETLBTEXT, static_cast<WPARAM>(item),
                        reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<size_t>(length));
    return text;
}

void SetDialogError(DWORD error) {
    g_dialog_error = error;
}

} // namespace win32host

extern "C" DWORD WINAPI CommDlgExtendedError() {
    return win32host::g_dialog_error;
}
