// What a menu handle names.
#pragma once

#include "host/handles.h"

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

namespace win32host {

constexpr UINT kMenuTypes = MFT_BITMAP | MFT_OWNERDRAW | MFT_MENUBARBREAK | MFT_MENUBREAK |
                            MFT_RADIOCHECK | MFT_SEPARATOR | MFT_RIGHTJUSTIFY;
constexpr UINT kMenuStates = MFS_GRAYED | MFS_CHECKED | MFS_HILITE | MFS_DEFAULT;

struct MenuEntry {
    UINT type = 0;  // MFT_
    UINT state = 0; // MFS_
    UINT id = 0;
    HMENU popup = nullptr;
    std::u16string text;
    ULONG_PTR data = 0;
    HBITMAP checked = nullptr;
    HBITMAP unchecked = nullptr;
    HBITMAP bitmap = nullptr;
    RECT rect = {}; // in the window that shows the menu

    bool IsSeparator() const { return (type & MFT_SEPARATOR) != 0; }
    bool IsOff() const { return (state & MFS_GRAYED) != 0; }
};

// Menus may be asked for by any thread: WindowLock guards their entries.
class Menu : public HandleObject {
public:
    std::vector<MenuEntry> entries;
};

// An item of a menu or of one below it.
struct MenuPlace {
    std::shared_ptr<Menu> menu;
    size_t index = 0;

    explicit operator bool() const { return menu != nullptr; }
    MenuEntry& Entry() const { return menu->entries[index]; }
};

// The item at a position (MF_BYPOSITION), or with an identifier anywhere below. The lock must be
// held. Nothing with ERROR_INVALID_MENU_HANDLE or ERROR_MENU_ITEM_NOT_FOUND.
MenuPlace PlaceOfItem(HMENU menu, UINT item, UINT flags);

// The menu, or null with ERROR_INVALID_MENU_HANDLE.
std::shared_ptr<Menu> MenuOf(HMENU menu);

} // namespace win32host
