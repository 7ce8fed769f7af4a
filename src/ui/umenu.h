// Menus.
#pragma once

#include <windows.h>

#include <cstdint>

#include "core/ostring.h"

class prtlocale;

// Owns a menu, or refers to a sub-menu of another, or has none; then operations do nothing and
// answer false, 0 or an empty text. Items are named by their identifier or, with `by_position`, by
// their position from 0. By identifier, items of sub-menus are found too.
class UMenu {
public:
    UMenu() = default;
    UMenu(UMenu&& other) noexcept;
    UMenu& operator=(UMenu&& other) noexcept;
    ~UMenu() { Destroy(); }

    // Replace the menu: by an empty one that pops up, by a template of the language libraries, or
    // by a menu of the caller's, which stays the caller's. False, and no menu, if there is none.
    bool CreatePopup();
    bool Load(const prtlocale& locale, const OString& name);
    bool Attach(HMENU menu);
    // Destroys the menu if it is this object's own.
    void Destroy();

    HMENU GetMenu() const { return menu_; }
    int GetCount() const;
    // The identifier of the item at a position, or -1 for a sub-menu and beyond the end.
    int GetItemID(int position) const;
    // Refers to the sub-menu of the item at a position, as long as this menu lives.
    UMenu GetSubMenu(int position) const;

    void Check(int item, bool check, bool by_position = false);
    bool IsChecked(int item, bool by_position = false) const;
    void Enable(int item, bool enable, bool by_position = false);
    OString GetText(int item, bool by_position = false) const;
    void SetText(int item, const OString& text, bool by_position = false);

    bool Append(int id, const OString& text);
    bool AppendSeparator();
    // Appends an item with a sub-menu, which belongs to this menu from then on. Unchanged if that
    // fails.
    bool AppendSubMenu(UMenu& menu, const OString& text);
    // Inserts before another item.
    bool Insert(int before, int id, const OString& text, bool by_position = false);
    bool Delete(int item, bool by_position = false);

    // Shows the menu at a point of the screen until the user has chosen; TPM_ `flags` say where it
    // lies about the point. The chosen identifier, or 0. `owner` gets the messages about the menu.
    int Track(HWND owner, POINT at, uint32_t flags = 0) const;
    // The same outside of a rectangle of the screen, which it must not cover.
    int Track(HWND owner, POINT at, uint32_t flags, const RECT& exclude) const;

private:
    HMENU menu_ = nullptr;
    bool owned_ = false;
};
