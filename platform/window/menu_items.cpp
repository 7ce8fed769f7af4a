// How the items of menus are added, changed and taken away.
#include "host/guarded.h"
#include "window/menu.h"
#include "window/menu_template.h"
#include "window/window.h"

#include <algorithm>

namespace win32host {
namespace {

// The size of MENUITEMINFOW before it had `hbmpItem`.
constexpr UINT kOldInfoSize = offsetof(MENUITEMINFOW, hbmpItem);

// Whether the flags name what is shown in place of a text.
bool ShowsNoText(UINT flags) {
    return (flags & (MFT_OWNERDRAW | MFT_BITMAP)) != 0;
}

MenuEntry EntryFrom(UINT flags, UINT_PTR id, LPCWSTR text) {
    MenuEntry entry;
    entry.type = flags & kMenuTypes;
    entry.state = flags & (MFS_GRAYED | MFS_CHECKED | MFS_HILITE);
    entry.id = static_cast<UINT>(id);
    if (flags & MF_POPUP) entry.popup = reinterpret_cast<HMENU>(id);
    if (ShowsNoText(flags))
        entry.data = reinterpret_cast<ULONG_PTR>(text);
    else if (text)
        entry.text = text;
    else
        entry.type |= MFT_SEPARATOR;
    if (entry.IsSeparator()) entry.state |= MFS_GRAYED;
    return entry;
}

// Puts an entry before an item, or at the end if there is no such item.
BOOL Insert(HMENU menu, UINT item, UINT flags, MenuEntry entry) {
    const auto target = MenuOf(menu);
    if (!target) return FALSE;
    if (entry.popup == menu || (entry.popup && !MenuOf(entry.popup))) return FALSE;
    const DWORD error = GetLastError();
    MenuPlace place = PlaceOfItem(menu, item, flags);
    SetLastError(error);
    if (!place) place = {target, target->entries.size()};
    place.menu->entries.insert(place.menu->entries.begin() + static_cast<ptrdiff_t>(place.index),
                               std::move(entry));
    return TRUE;
}

// Takes the item out; it is handed over so that its sub-menu can be destroyed without the lock.
bool TakeOut(HMENU menu, UINT item, UINT flags, MenuEntry& taken) {
    std::lock_guard guard(WindowLock());
    const MenuPlace place = PlaceOfItem(menu, item, flags);
    if (!place) return false;
    taken = std::move(place.Entry());
    place.menu->entries.erase(place.menu->entries.begin() + static_cast<ptrdiff_t>(place.index));
    return true;
}

// Changes bits of an item's state and answers those before; 0xFFFFFFFF if there is no item.
DWORD ChangeState(HMENU menu, UINT item, UINT flags, UINT mask) {
    std::lock_guard guard(WindowLock());
    const MenuPlace place = PlaceOfItem(menu, item, flags);
    if (!place) return 0xFFFFFFFF;
    MenuEntry& entry = place.Entry();
    const DWORD before = entry.state & mask;
    entry.state = (entry.state & ~mask) | (flags & mask);
    return before;
}

// Whether the structure is of a known size and asks for each field once.
bool IsGood(LPCMENUITEMINFOW info) {
    if (info && (info->cbSize == sizeof(MENUITEMINFOW) || info->cbSize == kOldInfoSize) &&
        !(info->fMask & MIIM_TYPE && info->fMask & (MIIM_STRING | MIIM_FTYPE | MIIM_BITMAP)))
        return true;
    SetLastError(ERROR_INVALID_PARAMETER);
    return false;
}

void Change(MenuEntry& entry, const MENUITEMINFOW& info) {
    const bool whole = (info.fMask & MIIM_TYPE) != 0;
    if (whole || info.fMask & MIIM_FTYPE) {
        const bool empty = entry.IsSeparator() && entry.text.empty() && !whole;
        entry.type = info.fType & kMenuTypes;
        if (empty) entry.type |= MFT_SEPARATOR;
    }
    if (info.fMask & MIIM_STRING || (whole && !ShowsNoText(info.fType))) {
        entry.text =
            info.dwTypeData && !(info.fType & MFT_SEPARATOR && whole) ? info.dwTypeData : u"";
        if (!info.dwTypeData)
            entry.type |= MFT_SEPARATOR;
        else if (!whole && !(info.fMask & MIIM_FTYPE))
            entry.type &= ~static_cast<UINT>(MFT_SEPARATOR);
    }
    if (info.fMask & MIIM_STATE) entry.state = info.fState & kMenuStates;
    if (info.fMask & MIIM_ID) entry.id = info.wID;
    if (info.fMask & MIIM_SUBMENU) entry.popup = info.hSubMenu;
    if (info.fMask & MIIM_DATA) entry.data = info.dwItemData;
    if (info.fMask & MIIM_CHECKMARKS) {
        entry.checked = info.hbmpChecked;
        entry.unchecked = info.hbmpUnchecked;
    }
    if (info.fMask & MIIM_BITMAP && info.cbSize == sizeof(MENUITEMINFOW))
        entry.bitmap = info.hbmpItem;
}

void CopyText(const MenuEntry& entry, MENUITEMINFOW& info) {
    const auto length = static_cast<UINT>(entry.text.size());
    if (!info.dwTypeData || info.cch == 0) {
        info.cch = length;
        return;
    }
    info.cch = std::min(length, info.cch - 1);
    *std::copy_n(entry.text.begin(), info.cch, info.dwTypeData) = u'\0';
}

} // namespace
} // namespace win32host

using namespace win32host;

extern "C" {

BOOL WINAPI AppendMenuW(HMENU menu, UINT flags, UINT_PTR id, LPCWSTR text) {
    return InsertMenuW(menu, 0xFFFFFFFF, flags | MF_BYPOSITION, id, text);
}

BOOL WINAPI InsertMenuW(HMENU menu, UINT item, UINT flags, UINT_PTR id, LPCWSTR text) {
    return Guarded(FALSE, [&] {
        std::lock_guard guard(WindowLock());
        return Insert(menu, item, flags, EntryFrom(flags, id, text));
    });
}

BOOL WINAPI InsertMenuItemW(HMENU menu, UINT item, BOOL by_position, LPCMENUITEMINFOW info) {
    return Guarded(FALSE, [&] {
        if (!IsGood(info)) return FALSE;
        std::lock_guard guard(WindowLock());
        MenuEntry entry;
        if (!(info->fMask & (MIIM_STRING | MIIM_TYPE | MIIM_FTYPE))) entry.type = MFT_SEPARATOR;
        Change(entry, *info);
        return Insert(menu, item, by_position ? MF_BYPOSITION : MF_BYCOMMAND, std::move(entry));
    });
}

BOOL WINAPI ModifyMenuW(HMENU menu, UINT item, UINT flags, UINT_PTR id, LPCWSTR text) {
    return Guarded(FALSE, [&] {
        HMENU before = nullptr;
        {
            std::lock_guard guard(WindowLock());
            const MenuPlace place = PlaceOfItem(menu, item, flags);
            if (!place) return FALSE;
            MenuEntry entry = EntryFrom(flags, id, text);
            if (place.Entry().popup != entry.popup) before = place.Entry().popup;
            place.Entry() = std::move(entry);
        }
        if (before) DestroyMenu(before);
        return TRUE;
    });
}

BOOL WINAPI DeleteMenu(HMENU menu, UINT item, UINT flags) {
    MenuEntry taken;
    if (!TakeOut(menu, item, flags, taken)) return FALSE;
    if (taken.popup) DestroyMenu(taken.popup);
    return TRUE;
}

BOOL WINAPI RemoveMenu(HMENU menu, UINT item, UINT flags) {
    MenuEntry taken;
    return TakeOut(menu, item, flags, taken);
}

DWORD WINAPI CheckMenuItem(HMENU menu, UINT item, UINT flags) {
    return ChangeState(menu, item, flags, MFS_CHECKED);
}

BOOL WINAPI EnableMenuItem(HMENU menu, UINT item, UINT flags) {
    return static_cast<BOOL>(ChangeState(menu, item, flags, MFS_GRAYED));
}

BOOL WINAPI CheckMenuRadioItem(HMENU menu, UINT first, UINT last, UINT item, UINT flags) {
    std::lock_guard guard(WindowLock());
    if (item < first || item > last) return FALSE;
    const MenuPlace place = PlaceOfItem(menu, item, flags);
    if (!place) return FALSE;
    // The group are the items of the range in the same menu.
    auto& entries = place.menu->entries;
    for (size_t i = 0; i < entries.size(); ++i) {
        const size_t number = flags & MF_BYPOSITION ? i : entries[i].id;
        if (number < first || number > last || entries[i].IsSeparator()) continue;
        if (i == place.index) {
            entries[i].type |= MFT_RADIOCHECK;
            entries[i].state |= MFS_CHECKED;
        } else {
            entries[i].state &= ~static_cast<UINT>(MFS_CHECKED);
        }
    }
    return TRUE;
}

BOOL WINAPI SetMenuDefaultItem(HMENU menu, UINT item, UINT by_position) {
    std::lock_guard guard(WindowLock());
    const auto found = MenuOf(menu);
    if (!found) return FALSE;
    for (MenuEntry& entry : found->entries) entry.state &= ~static_cast<UINT>(MFS_DEFAULT);
    if (item == 0xFFFFFFFF) return TRUE;
    // A default item of a sub-menu would be that menu's.
    for (size_t i = 0; i < found->entries.size(); ++i) {
        if (by_position ? i != item : found->entries[i].id != item) continue;
        found->entries[i].state |= MFS_DEFAULT;
        return TRUE;
    }
    return Fail(ERROR_MENU_ITEM_NOT_FOUND);
}

BOOL WINAPI GetMenuItemInfoW(HMENU menu, UINT item, BOOL by_position, LPMENUITEMINFOW info) {
    if (!IsGood(info)) return FALSE;
    std::lock_guard guard(WindowLock());
    const MenuPlace place = PlaceOfItem(menu, item, by_position ? MF_BYPOSITION : MF_BYCOMMAND);
    if (!place) return FALSE;
    const MenuEntry& entry = place.Entry();
    if (info->fMask & (MIIM_TYPE | MIIM_FTYPE)) info->fType = entry.type;
    if (info->fMask & MIIM_STRING ||
        (info->fMask & MIIM_TYPE && !ShowsNoText(entry.type) && !entry.IsSeparator()))
        CopyText(entry, *info);
    else if (info->fMask & MIIM_TYPE)
        info->cch = 0;
    if (info->fMask & MIIM_STATE) info->fState = entry.state;
    if (info->fMask & MIIM_ID) info->wID = entry.id;
    if (info->fMask & MIIM_SUBMENU) info->hSubMenu = entry.popup;
    if (info->fMask & MIIM_DATA) info->dwItemData = entry.data;
    if (info->fMask & MIIM_CHECKMARKS) {
        info->hbmpChecked = entry.checked;
        info->hbmpUnchecked = entry.unchecked;
    }
    if (info->fMask & MIIM_BITMAP && info->cbSize == sizeof(MENUITEMINFOW))
        info->hbmpItem = entry.bitmap;
    return TRUE;
}

BOOL WINAPI SetMenuItemInfoW(HMENU menu, UINT item, BOOL by_position, LPCMENUITEMINFOW info) {
    return Guarded(FALSE, [&] {
        if (!IsGood(info)) return FALSE;
        std::lock_guard guard(WindowLock());
        const MenuPlace place = PlaceOfItem(menu, item, by_position ? MF_BYPOSITION : MF_BYCOMMAND);
        if (!place) return FALSE;
        Change(place.Entry(), *info);
        return TRUE;
    });
}

} // extern "C"
