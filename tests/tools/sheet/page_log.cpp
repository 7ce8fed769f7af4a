#include "page_log.h"

#include "identifiers.h"

#include <commctrl.h>
#include <prsht.h>

namespace {

const char* NameOfNotification(UINT code) {
    switch (code) {
    case PSN_KILLACTIVE:
        return "kill active";
    case PSN_APPLY:
        return "apply";
    case PSN_HELP:
        return "help";
    case LVN_COLUMNCLICK:
        return "column";
    case LVN_ITEMCHANGED:
        return "changed";
    case NM_DBLCLK:
        return "double";
    default:
        return nullptr;
    }
}

} // namespace

void LogText(HWND page, const std::string& text) {
    const HWND log = GetDlgItem(page, ID_LOG);
    if (!log) return;
    const std::string line = text + "; ";
    const std::basic_string<WCHAR> wide(line.begin(), line.end());
    const int end = GetWindowTextLengthW(log);
    SendMessageW(log, EM_SETSEL, static_cast<WPARAM>(end), end);
    SendMessageW(log, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(wide.c_str()));
}

void Log(HWND page, const char* what, std::initializer_list<int> numbers) {
    std::string text = what;
    for (const int number : numbers) text += " " + std::to_string(number);
    LogText(page, text);
}

void LogCommand(HWND page, int id, int code) {
    std::string keys;
    if (GetKeyState(VK_CONTROL) < 0) keys += "+ctrl";
    if (GetKeyState(VK_MENU) < 0) keys += "+alt";
    if (GetKeyState(VK_SHIFT) < 0) keys += "+shift";
    LogText(page, std::to_string(id) + ":" + std::to_string(code) + keys);
}

void LogNotification(HWND page, const NMHDR& notification) {
    const char* const name = NameOfNotification(notification.code);
    if (!name) return;
    if (notification.code == LVN_ITEMCHANGED || notification.code == LVN_COLUMNCLICK) {
        const auto& told = reinterpret_cast<const NMLISTVIEW&>(notification);
        if (notification.code == LVN_COLUMNCLICK)
            Log(page, name, {told.iSubItem});
        else if ((told.uOldState ^ told.uNewState) & LVIS_SELECTED)
            Log(page, name, {told.iItem, (told.uNewState & LVIS_SELECTED) != 0});
        return;
    }
    LogText(page, name);
}
