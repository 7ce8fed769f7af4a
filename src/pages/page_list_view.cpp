#include "pages/page_list_view.h"

#include "pages/column_widths.h"
#include "ui/prtui.h"

void PageListView::Open(prtpage& page, prtreg& registry, int id, const OString& widths,
                        std::span<UColumnInfo> columns, const OString& menu) {
    page_ = &page;
    registry_ = &registry;
    widths_value_ = widths;
    Bind(&page, id);
    SetFullRowSelect();
    LoadColumnWidths(registry, widths, columns);
    SetColumns(columns);
    SaveWidths();
    menu_.Load(page.GetUI()->locale, menu);
}

void PageListView::Close() {
    if (registry_) SaveColumnWidths(*registry_, widths_value_, *this);
}

bool PageListView::Notify(uint32_t code, const NMHDR* header, int& column) {
    column = -1;
    switch (code) {
    case LVN_ITEMCHANGED: // the selection
        return true;
    case LVN_COLUMNCLICK:
        column = reinterpret_cast<const NMLISTVIEW*>(header)->iSubItem;
        return true;
    case NM_RCLICK:
        OpenMenu();
        return true;
    default:
        return false;
    }
}

void PageListView::OpenMenu() {
    POINT at = {};
    GetCursorPos(&at);
    const int chosen = menu_.GetSubMenu(0).Track(page_->GetWindow(), at, TPM_RIGHTBUTTON);
    // The sheet may have gone while the menu was open; nothing is chosen then.
    if (chosen != 0) page_->Command(static_cast<uint16_t>(chosen), BN_CLICKED, 0);
}
