#include "sheet/items.h"

#include "fault.h"
#include "sheet/windows_read.h"
#include "text.h"

#include <commctrl.h>

#include <algorithm>

namespace {

constexpr size_t kLongestText = 1 << 20;

LRESULT Send(HWND list, UINT message, int item = 0, LPARAM second = 0) {
    return SendMessageW(list, message, static_cast<WPARAM>(item), second);
}

// The text that `get_length` and `get` deliver.
std::string TextBy(HWND list, UINT get_length, UINT get, int item) {
    const LRESULT length = Send(list, get_length, item);
    if (length <= 0) return {};
    WideString text(static_cast<size_t>(length) + 1, 0);
    const LRESULT copied = Send(list, get, item, reinterpret_cast<LPARAM>(text.data()));
    return ToUtf8(text.data(), static_cast<size_t>(std::clamp<LRESULT>(copied, 0, length)));
}

std::string ListViewText(HWND list, int item, int column) {
    WideString text(256, 0);
    for (;;) {
        LVITEMW asked = {};
        asked.iSubItem = column;
        asked.pszText = text.data();
        asked.cchTextMax = static_cast<int>(text.size());
        const LRESULT length = Send(list, LVM_GETITEMTEXTW, item, reinterpret_cast<LPARAM>(&asked));
        // A text that fills the buffer may be cut.
        if (length + 1 < static_cast<LRESULT>(text.size()) || text.size() >= kLongestText)
            return FromSlot(asked.pszText, static_cast<size_t>(std::max<LRESULT>(length, 0)));
        text.resize(2 * text.size());
    }
}

std::string TabText(HWND tabs, int item) {
    WCHAR text[1024] = {};
    TCITEMW asked = {};
    asked.mask = TCIF_TEXT;
    asked.pszText = text;
    asked.cchTextMax = 1024;
    if (!Send(tabs, TCM_GETITEMW, item, reinterpret_cast<LPARAM>(&asked))) return {};
    return ToUtf8(asked.pszText);
}

// Owner-drawn lists may keep a number in place of each text.
bool KeepsTexts(HWND list, DWORD drawn, DWORD strings) {
    return !(StyleOf(list) & drawn) || StyleOf(list) & strings;
}

} // namespace

ListKind ListKindOf(HWND control) {
    if (IsOfClass(control, "ComboBox")) return ListKind::ComboBox;
    if (IsOfClass(control, "ListBox")) return ListKind::ListBox;
    if (IsOfClass(control, "SysListView32")) return ListKind::ListView;
    if (IsOfClass(control, "SysTabControl32")) return ListKind::Tabs;
    return ListKind::None;
}

int ItemCount(HWND list) {
    constexpr UINT kCounts[] = {0, CB_GETCOUNT, LB_GETCOUNT, LVM_GETITEMCOUNT, TCM_GETITEMCOUNT};
    const UINT message = kCounts[static_cast<int>(ListKindOf(list))];
    return message ? std::max(0, static_cast<int>(Send(list, message))) : 0;
}

std::string ItemText(HWND list, int item, int column) {
    switch (ListKindOf(list)) {
    case ListKind::ComboBox:
        if (!KeepsTexts(list, CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE, CBS_HASSTRINGS))
            return {};
        return TextBy(list, CB_GETLBTEXTLEN, CB_GETLBTEXT, item);
    case ListKind::ListBox:
        if (!KeepsTexts(list, LBS_OWNERDRAWFIXED | LBS_OWNERDRAWVARIABLE, LBS_HASSTRINGS))
            return {};
        return TextBy(list, LB_GETTEXTLEN, LB_GETTEXT, item);
    case ListKind::ListView:
        return ListViewText(list, item, column);
    case ListKind::Tabs:
        return TabText(list, item);
    default:
        return {};
    }
}

bool SelectsMany(HWND list) {
    switch (ListKindOf(list)) {
    case ListKind::ListBox:
        return (StyleOf(list) & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0;
    case ListKind::ListView:
        return !(StyleOf(list) & LVS_SINGLESEL);
    default:
        return false;
    }
}

std::vector<int> SelectedItems(HWND list) {
    std::vector<int> items;
    LRESULT one = -1;
    switch (ListKindOf(list)) {
    case ListKind::ComboBox:
        one = Send(list, CB_GETCURSEL);
        break;
    case ListKind::Tabs:
        one = Send(list, TCM_GETCURSEL);
        break;
    case ListKind::ListBox:
        if (!SelectsMany(list)) {
            one = Send(list, LB_GETCURSEL);
            break;
        }
        for (int i = 0; i < ItemCount(list); ++i)
            if (Send(list, LB_GETSEL, i) > 0) items.push_back(i);
        break;
    case ListKind::ListView:
        for (int i = 0; i < ItemCount(list); ++i)
            if (Send(list, LVM_GETITEMSTATE, i, LVIS_SELECTED)) items.push_back(i);
        break;
    default:
        break;
    }
    if (one >= 0) items.push_back(static_cast<int>(one));
    return items;
}

int ColumnCount(HWND list_view) {
    if ((StyleOf(list_view) & LVS_TYPEMASK) != LVS_REPORT) return 0;
    const auto header = reinterpret_cast<HWND>(Send(list_view, LVM_GETHEADER));
    return header ? std::max(0, static_cast<int>(Send(header, HDM_GETITEMCOUNT))) : 0;
}

int FindItem(HWND list, const ItemName& name, const std::string& noun) {
    const int count = ItemCount(list);
    if (name.position >= 0) {
        if (name.position < count) return name.position;
        throw Fault("there is no " + noun + " #" + std::to_string(name.position));
    }
    for (int i = 0; i < count; ++i)
        if (ItemText(list, i) == name.text) return i;
    throw Fault("there is no " + noun + " '" + name.text + "'");
}
