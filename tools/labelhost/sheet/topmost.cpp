#include "sheet/topmost.h"

#include "sheet/system_dialogs.h"
#include "sheet/windows_read.h"

#include <commctrl.h>
#include <prsht.h>

#include <vector>

namespace {

constexpr int kTabControl = 0x3020;     // of a sheet
constexpr UINT kGetMenu = 0x01E1;       // MN_GETHMENU
constexpr const char* kMenu = "#32768"; // the class of open menus

// The windows that are shown, the uppermost first.
std::vector<HWND> ShownWindows() {
    std::vector<HWND> windows;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM list) -> BOOL {
            if (IsWindowVisible(window))
                reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    return windows;
}

HMENU MenuOf(HWND window) {
    return reinterpret_cast<HMENU>(SendMessageW(window, kGetMenu, 0, 0));
}

bool HasSubMenu(HMENU menu, HMENU wanted) {
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        const HMENU below = GetSubMenu(menu, i);
        if (below && (below == wanted || HasSubMenu(below, wanted))) return true;
    }
    return false;
}

bool IsBelowOneOf(const std::vector<HMENU>& menus, HMENU menu) {
    for (const HMENU other : menus)
        if (HasSubMenu(other, menu)) return true;
    return false;
}

// The open menu that no other open one leads to.
HMENU FirstMenu(const std::vector<HWND>& windows) {
    std::vector<HMENU> menus;
    for (const HWND window : windows)
        if (IsOfClass(window, kMenu) && MenuOf(window)) menus.push_back(MenuOf(window));
    for (const HMENU menu : menus)
        if (!IsBelowOneOf(menus, menu)) return menu;
    return nullptr;
}

WindowKind KindOf(HWND window) {
    if (TabsOf(window)) return WindowKind::Sheet;
    if (IsFontDialog(window)) return WindowKind::Font;
    if (IsFolderDialog(window)) return WindowKind::Folder;
    if (IsFileDialog(window)) return WindowKind::File;
    return IsMessageBox(window) ? WindowKind::Message : WindowKind::Dialog;
}

} // namespace

HWND TabsOf(HWND sheet) {
    const HWND tabs = IsDialog(sheet) ? GetDlgItem(sheet, kTabControl) : nullptr;
    return tabs && IsOfClass(tabs, "SysTabControl32") ? tabs : nullptr;
}

HWND CurrentPageOf(HWND sheet) {
    return reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETCURRENTPAGEHWND, 0, 0));
}

HWND MenuWindow(HMENU menu) {
    for (const HWND window : ShownWindows())
        if (IsOfClass(window, kMenu) && MenuOf(window) == menu) return window;
    return nullptr;
}

Topmost FindTopmost() {
    const std::vector<HWND> windows = ShownWindows();
    Topmost found;
    if ((found.menu = FirstMenu(windows))) {
        found.kind = WindowKind::Menu;
        found.window = MenuWindow(found.menu);
        return found;
    }
    for (const HWND window : windows) {
        if (!IsDialog(window) || !IsWindowEnabled(window)) continue;
        found.window = window;
        found.kind = KindOf(window);
        found.dialog = found.kind == WindowKind::Sheet ? CurrentPageOf(window) : window;
        // A sheet has no page before its first one is made, and none when it is being closed.
        return found.dialog ? found : Topmost();
    }
    return found;
}

HWND SheetOf(HWND window) {
    while (window && !TabsOf(window)) window = GetWindow(window, GW_OWNER);
    return window;
}
