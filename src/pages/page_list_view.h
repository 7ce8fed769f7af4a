// The list view that fills a page.
#pragma once

#include <span>

#include "ui/prtpage.h"
#include "ui/ulist_view.h"
#include "ui/umenu.h"

// Whole rows are selected. The user's column widths are kept, and a right click opens a menu, whose
// items are commands of the page.
class PageListView : public UListView {
public:
    // Takes a control of the page, gives it columns and loads the menu. The widths of the columns
    // are those stored as the value `widths` of the page's registry, or else their own. The
    // registry lives as long as the page.
    void Open(prtpage& page, prtreg& registry, int id, const OString& widths,
              std::span<UColumnInfo> columns, const OString& menu);
    // Stores the widths if the user has changed them. For the page's Destroy.
    void Close();

    // The menu, which the page keeps in line with the selection.
    UMenu& GetMenu() { return menu_; }

    // Handles a notification of the list. False if it is none that concerns a page; otherwise
    // `column` is the one whose header was clicked, or -1.
    bool Notify(uint32_t code, const NMHDR* header, int& column);

private:
    void OpenMenu();

    prtpage* page_ = nullptr;
    prtreg* registry_ = nullptr;
    OString widths_value_;
    UMenu menu_;
};
