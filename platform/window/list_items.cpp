#include "window/list_items.h"

#include "host/text.h"

#include <algorithm>

namespace win32host {

void ListItems::Insert(int at, ListItem item) {
    items_.insert(items_.begin() + at, std::move(item));
}

void ListItems::Erase(int at) {
    items_.erase(items_.begin() + at);
}

int ListItems::Find(int start, std::u16string_view text, bool all_of_it) const {
    if (start < -1 || start >= Count()) start = -1;
    for (int i = 1; i <= Count(); ++i) {
        const int at = (start + i) % Count();
        const std::u16string_view own = (*this)[at].text;
        if (SameName(all_of_it ? own : own.substr(0, text.size()), text)) return at;
    }
    return -1;
}

int ListItems::SelectedCount() const {
    return static_cast<int>(std::count_if(items_.begin(), items_.end(),
                                          [](const ListItem& item) { return item.selected; }));
}

} // namespace win32host
