// The owner of a list box measures, compares and forgets its items.
#include "window/list_box.h"

namespace win32host {

int ListBox::Compare(const ListItem& first, int first_at, const ListItem& second,
                     int second_at) const {
    if (HasStrings()) return lstrcmpiW(first.text.c_str(), second.text.c_str());
    COMPAREITEMSTRUCT pair = {};
    pair.CtlType = OwnerDrawType();
    pair.CtlID = static_cast<UINT>(Id());
    pair.hwndItem = Self();
    pair.itemID1 = static_cast<UINT>(first_at);
    pair.itemData1 = first.data;
    pair.itemID2 = static_cast<UINT>(second_at);
    pair.itemData2 = second.data;
    return static_cast<int>(
        SendMessageW(Owner(), WM_COMPAREITEM, pair.CtlID, reinterpret_cast<LPARAM>(&pair)));
}

// After the items that are not greater.
int ListBox::SortedPlace(const ListItem& item) const {
    int low = 0;
    int high = items_.Count();
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (Compare(item, -1, items_[middle], middle) < 0)
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

void ListBox::TellDeleted(int at) const {
    if (!IsOwnerDrawn() && items_[at].data == 0) return;
    DELETEITEMSTRUCT item = {};
    item.CtlType = OwnerDrawType();
    item.CtlID = static_cast<UINT>(Id());
    item.itemID = static_cast<UINT>(at);
    item.hwndItem = Self();
    item.itemData = items_[at].data;
    SendMessageW(Owner(), WM_DELETEITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
}

void ListBox::MeasureItems() {
    MEASUREITEMSTRUCT measure = {};
    measure.CtlType = OwnerDrawType();
    measure.CtlID = static_cast<UINT>(Id());
    measure.itemID = static_cast<UINT>(-1);
    measure.itemHeight = static_cast<UINT>(item_height_);
    SendMessageW(Owner(), WM_MEASUREITEM, measure.CtlID, reinterpret_cast<LPARAM>(&measure));
    if (measure.itemHeight > 0 && measure.itemHeight <= 0xFFFF)
        item_height_ = static_cast<int>(measure.itemHeight);
}

} // namespace win32host
