// Menus made from templates.
#include "host/handles.h"
#include "modules/module.h"
#include "window/menu_template.h"

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using win32host::Find;
using win32host::MenuItem;

struct Entry {
    uint32_t id;
    bool is_popup;
    std::u16string text;
    HMENU popup;
};

// A menu never changes once it is made.
class Menu : public win32host::HandleObject {
public:
    std::vector<Entry> entries;
};

// A template that is not part of a loaded file is the caller's, and its end is not known.
constexpr size_t kLargestTemplate = 0x10000;

HMENU Make(const std::vector<MenuItem>& items) {
    auto menu = std::make_shared<Menu>();
    for (const MenuItem& item : items)
        menu->entries.push_back(
            {item.id, item.is_popup, item.text, item.is_popup ? Make(item.items) : nullptr});
    return static_cast<HMENU>(win32host::NewHandle(menu));
}

// The entry at a position, or that of a command anywhere below.
const Entry* EntryOf(const Menu& menu, UINT item, UINT flags) {
    if (flags & MF_BYPOSITION) return item < menu.entries.size() ? &menu.entries[item] : nullptr;
    for (const Entry& entry : menu.entries)
        if (!entry.is_popup && entry.id == item) return &entry;
    for (const Entry& entry : menu.entries) {
        const auto below = std::dynamic_pointer_cast<Menu>(win32host::FindObject(entry.popup));
        const Entry* found = below ? EntryOf(*below, item, flags) : nullptr;
        if (found) return found;
    }
    return nullptr;
}

} // namespace

extern "C" {

HMENU WINAPI LoadMenuIndirectW(const MENUTEMPLATEW* menu_template) {
    if (!menu_template) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto bytes = win32host::ResourceBytesFrom(menu_template);
    if (bytes.empty()) bytes = {static_cast<const uint8_t*>(menu_template), kLargestTemplate};
    const auto items = win32host::ReadMenuTemplate(bytes);
    if (!items) {
        SetLastError(ERROR_INVALID_DATA);
        return nullptr;
    }
    return Make(*items);
}

BOOL WINAPI DestroyMenu(HMENU menu) {
    const auto found = win32host::Close<Menu>(menu);
    if (!found) return FALSE;
    for (const Entry& entry : found->entries)
        if (entry.popup) DestroyMenu(entry.popup);
    return TRUE;
}

int WINAPI GetMenuItemCount(HMENU menu) {
    const auto found = Find<Menu>(menu);
    return found ? static_cast<int>(found->entries.size()) : -1;
}

HMENU WINAPI GetSubMenu(HMENU menu, int position) {
    const auto found = Find<Menu>(menu);
    const Entry* entry =
        found ? EntryOf(*found, static_cast<UINT>(position), MF_BYPOSITION) : nullptr;
    return entry ? entry->popup : nullptr;
}

UINT WINAPI GetMenuItemID(HMENU menu, int position) {
    const auto found = Find<Menu>(menu);
    const Entry* entry =
        found ? EntryOf(*found, static_cast<UINT>(position), MF_BYPOSITION) : nullptr;
    return entry && !entry->is_popup ? entry->id : 0xFFFFFFFF;
}

int WINAPI GetMenuStringW(HMENU menu, UINT item, LPWSTR buffer, int size, UINT flags) {
    if (buffer && size > 0) buffer[0] = u'\0';
    const auto found = Find<Menu>(menu);
    const Entry* entry = found ? EntryOf(*found, item, flags) : nullptr;
    if (!entry) return 0;
    if (!buffer || size <= 0) return static_cast<int>(entry->text.size());
    const size_t count = std::min(entry->text.size(), static_cast<size_t>(size) - 1);
    *std::copy_n(entry->text.begin(), count, buffer) = u'\0';
    return static_cast<int>(count);
}

} // extern "C"
