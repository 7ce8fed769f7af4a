// How menus are made and destroyed, and what they tell of their items.
#include "window/menu.h"

#include "host/guarded.h"
#include "modules/module.h"
#include "window/menu_template.h"
#include "window/window.h"

#include <algorithm>
#include <string>
#include <vector>

namespace win32host {
namespace {

// A template that is not part of a loaded file is the caller's, and its end is not known.
constexpr size_t kLargestMenuTemplate = 0x10000;

HMENU MakeMenu(const std::vector<MenuItem>& items) {
    auto menu = std::make_shared<Menu>();
    for (const MenuItem& item : items) {
        MenuEntry entry;
        entry.type = item.type;
        entry.state = item.state;
        entry.id = item.id;
        entry.text = item.text;
        if (item.is_popup) entry.popup = MakeMenu(item.items);
        menu->entries.push_back(std::move(entry));
    }
    return static_cast<HMENU>(NewHandle(menu));
}

HMENU MakeMenuFrom(std::span<const uint8_t> bytes) {
    const auto items = ReadMenuTemplate(bytes);
    if (items) return MakeMenu(*items);
    SetLastError(ERROR_INVALID_DATA);
    return nullptr;
}

// An item whose identifier is `id`. Sub-menus come before what opens them.
MenuPlace FindCommand(const std::shared_ptr<Menu>& menu, UINT id, int depth) {
    for (size_t i = 0; i < menu->entries.size(); ++i) {
        const MenuEntry& entry = menu->entries[i];
        if (entry.popup && depth < kDeepestMenu) {
            if (const auto below = std::dynamic_pointer_cast<Menu>(FindObject(entry.popup))) {
                if (MenuPlace found = FindCommand(below, id, depth + 1)) return found;
            }
        }
        if (entry.id == id) return {menu, i};
    }
    return {};
}

} // namespace

std::shared_ptr<Menu> MenuOf(HMENU menu) {
    auto found = std::dynamic_pointer_cast<Menu>(FindObject(menu));
    if (!found) SetLastError(ERROR_INVALID_MENU_HANDLE);
    return found;
}

MenuPlace PlaceOfItem(HMENU menu, UINT item, UINT flags) {
    const auto found = MenuOf(menu);
    if (!found) return {};
    MenuPlace place;
    if (!(flags & MF_BYPOSITION))
        place = FindCommand(found, item, 0);
    else if (item < found->entries.size())
        place = {found, item};
    if (!place) SetLastError(ERROR_MENU_ITEM_NOT_FOUND);
    return place;
}

} // namespace win32host

using namespace win32host;

extern "C" {

HMENU WINAPI CreateMenu() {
    return Guarded(HMENU(nullptr),
                   [] { return static_cast<HMENU>(NewHandle(std::make_shared<Menu>())); });
}

HMENU WINAPI CreatePopupMenu() {
    return CreateMenu();
}

HMENU WINAPI LoadMenuW(HINSTANCE module, LPCWSTR name) {
    return Guarded(HMENU(nullptr), [&]() -> HMENU {
        const HRSRC found = FindResourceW(module, name, RT_MENU);
        const HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
        const void* bytes = loaded ? LockResource(loaded) : nullptr;
        if (!bytes) return nullptr;
        return MakeMenuFrom({static_cast<const uint8_t*>(bytes), SizeofResource(module, found)});
    });
}

HMENU WINAPI LoadMenuIndirectW(const MENUTEMPLATEW* menu_template) {
    return Guarded(HMENU(nullptr), [&]() -> HMENU {
        if (!menu_template) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return nullptr;
        }
        auto bytes = ResourceBytesFrom(menu_template);
        if (bytes.empty())
            bytes = {static_cast<const uint8_t*>(menu_template), kLargestMenuTemplate};
        return MakeMenuFrom(bytes);
    });
}

BOOL WINAPI DestroyMenu(HMENU menu) {
    const auto found = MenuOf(menu);
    if (!found || !ForgetHandle(menu, found.get())) return FALSE;
    for (const MenuEntry& entry : found->entries)
        if (entry.popup) DestroyMenu(entry.popup);
    return TRUE;
}

BOOL WINAPI IsMenu(HMENU menu) {
    return MenuOf(menu) != nullptr;
}

int WINAPI GetMenuItemCount(HMENU menu) {
    std::lock_guard guard(WindowLock());
    const auto found = MenuOf(menu);
    return found ? static_cast<int>(found->entries.size()) : -1;
}

HMENU WINAPI GetSubMenu(HMENU menu, int position) {
    std::lock_guard guard(WindowLock());
    const MenuPlace place = PlaceOfItem(menu, static_cast<UINT>(position), MF_BYPOSITION);
    return place ? place.Entry().popup : nullptr;
}

UINT WINAPI GetMenuItemID(HMENU menu, int position) {
    std::lock_guard guard(WindowLock());
    const MenuPlace place = PlaceOfItem(menu, static_cast<UINT>(position), MF_BYPOSITION);
    return place && !place.Entry().popup ? place.Entry().id : 0xFFFFFFFF;
}

int WINAPI GetMenuStringW(HMENU menu, UINT item, LPWSTR buffer, int size, UINT flags) {
    std::lock_guard guard(WindowLock());
    if (buffer && size > 0) buffer[0] = u'\0';
    const MenuPlace place = PlaceOfItem(menu, item, flags);
    if (!place) return 0;
    const std::u16string& text = place.Entry().text;
    if (!buffer || size <= 0) return static_cast<int>(text.size());
    const size_t count = std::min(text.size(), static_cast<size_t>(size) - 1);
    *std::copy_n(text.begin(), count, buffer) = u'\0';
    return static_cast<int>(count);
}

UINT WINAPI GetMenuState(HMENU menu, UINT item, UINT flags) {
    std::lock_guard guard(WindowLock());
    const MenuPlace place = PlaceOfItem(menu, item, flags);
    if (!place) return 0xFFFFFFFF;
    const MenuEntry& entry = place.Entry();
    if (!entry.popup) return entry.type | entry.state;
    const int count = std::max(GetMenuItemCount(entry.popup), 0);
    return static_cast<UINT>(count << 8) |
           ((entry.type | entry.state | static_cast<UINT>(MF_POPUP)) & 0xFF);
}

} // extern "C"
