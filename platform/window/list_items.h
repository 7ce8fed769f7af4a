// The items of a list box.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace win32host {

struct ListItem {
    std::u16string text;
    ULONG_PTR data = 0;
    bool selected = false; // where several can be
};

class ListItems {
public:
    int Count() const { return static_cast<int>(items_.size()); }
    bool Has(int at) const { return at >= 0 && at < Count(); }
    ListItem& operator[](int at) { return items_[static_cast<size_t>(at)]; }
    const ListItem& operator[](int at) const { return items_[static_cast<size_t>(at)]; }

    // `at` must be a place between two items, before the first or after the last one.
    void Insert(int at, ListItem item);
    void Erase(int at);
    void Clear() { items_.clear(); }
    void Reserve(int count) { items_.reserve(static_cast<size_t>(count)); }

    // The next item after `start` whose text is the one wanted, or starts with it, without regard
    // to case; from the last item on to the first, and `start` itself last. -1 if there is none.
    int Find(int start, std::u16string_view text, bool all_of_it) const;
    int SelectedCount() const;

private:
    std::vector<ListItem> items_;
};

} // namespace win32host
