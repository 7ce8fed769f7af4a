// The items of list views: texts, states, order.
#include "window/list_view.h"

#include "host/text.h"

#include <algorithm>
#include <numeric>

namespace win32host {

static constexpr int kLongestAnswer = 260; // of LVN_GETDISPINFO

LRESULT ListView::Tell(UINT code, int at, int sub_item, UINT changed, UINT old_state,
                       UINT new_state) {
    NMLISTVIEW record = {};
    record.iItem = at;
    record.iSubItem = sub_item;
    record.uChanged = changed;
    record.uOldState = old_state;
    record.uNewState = new_state;
    record.lParam = Has(at) ? At(at).data : 0;
    return NotifyParent(Self(), code, record.hdr);
}

int ListView::Focused() const {
    for (int at = 0; at < Count(); ++at)
        if (At(at).state & LVIS_FOCUSED) return at;
    return -1;
}

UINT ListView::SelectedCount() const {
    return static_cast<UINT>(std::count_if(items_.begin(), items_.end(), [](const auto& item) {
        return item->state & LVIS_SELECTED;
    }));
}

void ListView::TakeText(Item& item, int sub_item, LPCWSTR text) {
    const auto index = static_cast<size_t>(sub_item);
    if (item.cells.size() <= index) item.cells.resize(index + 1);
    Cell& cell = item.cells[index];
    cell.asks = text == LPSTR_TEXTCALLBACKW;
    cell.text = text && !cell.asks ? text : u"";
}

std::u16string ListView::TextOf(int at, int sub_item) {
    const Item& item = At(at);
    const auto index = static_cast<size_t>(sub_item);
    if (sub_item < 0 || index >= item.cells.size()) return {};
    const Cell& cell = item.cells[index];
    if (!cell.asks) return cell.text;
    WCHAR buffer[kLongestAnswer] = {};
    NMLVDISPINFOW record = {};
    record.item.mask = LVIF_TEXT;
    record.item.iItem = at;
    record.item.iSubItem = sub_item;
    record.item.pszText = buffer;
    record.item.cchTextMax = kLongestAnswer;
    record.item.lParam = item.data;
    NotifyParent(Self(), LVN_GETDISPINFOW, record.hdr);
    return record.item.pszText ? record.item.pszText : u"";
}

int ListView::SortedPlace(const std::u16string& text) {
    const bool down = Style() & LVS_SORTDESCENDING;
    int at = 0;
    while (at < Count()) {
        const int order = lstrcmpiW(text.c_str(), TextOf(at, 0).c_str());
        if (down ? order > 0 : order < 0) break;
        ++at;
    }
    return at;
}

LRESULT ListView::Insert(const LVITEMW& wanted) {
    if (wanted.iSubItem != 0 || wanted.iItem < 0) return -1;
    auto item = std::make_unique<Item>();
    if (wanted.mask & LVIF_TEXT) TakeText(*item, 0, wanted.pszText);
    if (wanted.mask & LVIF_PARAM) item->data = wanted.lParam;
    if (wanted.mask & LVIF_IMAGE) item->image = wanted.iImage;
    if (wanted.mask & LVIF_INDENT) item->indent = wanted.iIndent;
    if (HasChecks()) item->state = INDEXTOSTATEIMAGEMASK(1u);
    if (wanted.mask & LVIF_STATE)
        item->state = (item->state & ~wanted.stateMask) | (wanted.state & wanted.stateMask);
    int at = std::min(wanted.iItem, Count());
    const bool asks = !item->cells.empty() && item->cells[0].asks;
    if (Style() & (LVS_SORTASCENDING | LVS_SORTDESCENDING) && !asks)
        at = SortedPlace(item->cells.empty() ? u"" : item->cells[0].text);
    // There is one focus, and with LVS_SINGLESEL one selection.
    for (auto& other : items_) {
        if (item->state & LVIS_FOCUSED) other->state &= ~static_cast<UINT>(LVIS_FOCUSED);
        if (item->state & LVIS_SELECTED && IsSingle())
            other->state &= ~static_cast<UINT>(LVIS_SELECTED);
    }
    items_.insert(items_.begin() + at, std::move(item));
    if (mark_ >= at) ++mark_;
    Arrange();
    Tell(LVN_INSERTITEM, at);
    return at;
}

LRESULT ListView::Delete(int at) {
    if (!Has(at)) return FALSE;
    Tell(LVN_DELETEITEM, at);
    if (!Has(at)) return FALSE;
    items_.erase(items_.begin() + at);
    if (mark_ == at)
        mark_ = -1;
    else if (mark_ > at)
        --mark_;
    Arrange();
    return TRUE;
}

LRESULT ListView::DeleteAll() {
    const bool quietly = Tell(LVN_DELETEALLITEMS, -1) != 0;
    for (int at = Count() - 1; at >= 0; --at) {
        if (!quietly) Tell(LVN_DELETEITEM, at);
        if (Has(at)) items_.erase(items_.begin() + at);
    }
    mark_ = -1;
    top_ = 0;
    Arrange();
    return TRUE;
}

LRESULT ListView::Get(LVITEMW& wanted) {
    if (!Has(wanted.iItem)) return FALSE;
    if (wanted.mask & LVIF_TEXT)
        CopyText(TextOf(wanted.iItem, wanted.iSubItem), wanted.pszText, wanted.cchTextMax);
    if (!Has(wanted.iItem)) return FALSE; // the parent was asked for the text
    const Item& item = At(wanted.iItem);
    if (wanted.mask & LVIF_PARAM) wanted.lParam = item.data;
    if (wanted.mask & LVIF_IMAGE) wanted.iImage = item.image;
    if (wanted.mask & LVIF_INDENT) wanted.iIndent = item.indent;
    if (wanted.mask & LVIF_STATE)
        wanted.state = wanted.iSubItem == 0 ? item.state & wanted.stateMask : 0;
    return TRUE;
}

LRESULT ListView::Set(const LVITEMW& wanted) {
    const int at = wanted.iItem;
    if (!Has(at) || wanted.iSubItem < 0 || wanted.iSubItem > 0xFFFF) return FALSE;
    const UINT mask = wanted.mask & (wanted.iSubItem == 0 ? ~0u : static_cast<UINT>(LVIF_TEXT));
    const UINT changed = mask & (LVIF_TEXT | LVIF_PARAM | LVIF_IMAGE | LVIF_INDENT);
    if (changed) {
        if (Tell(LVN_ITEMCHANGING, at, wanted.iSubItem, changed) || !Has(at)) return FALSE;
        Item& item = At(at);
        if (mask & LVIF_TEXT) TakeText(item, wanted.iSubItem, wanted.pszText);
        if (mask & LVIF_PARAM) item.data = wanted.lParam;
        if (mask & LVIF_IMAGE) item.image = wanted.iImage;
        if (mask & LVIF_INDENT) item.indent = wanted.iIndent;
        Changed();
        Tell(LVN_ITEMCHANGED, at, wanted.iSubItem, changed);
    }
    if (mask & LVIF_STATE) return Has(at) && ChangeState(at, wanted.state, wanted.stateMask);
    return TRUE;
}

LRESULT ListView::GetText(int at, LVITEMW& wanted) {
    if (!Has(at)) return 0;
    return CopyText(TextOf(at, wanted.iSubItem), wanted.pszText, wanted.cchTextMax);
}

LRESULT ListView::SetText(int at, const LVITEMW& wanted) {
    LVITEMW item = wanted;
    item.mask = LVIF_TEXT;
    item.iItem = at;
    return Set(item);
}

LRESULT ListView::SetState(int at, const LVITEMW& wanted) {
    if (at != -1) return Has(at) && ChangeState(at, wanted.state, wanted.stateMask);
    bool all = true;
    for (int i = 0; i < Count(); ++i) all = ChangeState(i, wanted.state, wanted.stateMask) && all;
    return all;
}

bool ListView::ChangeState(int at, UINT state, UINT mask) {
    const UINT before = At(at).state;
    const UINT after = (before & ~mask) | (state & mask);
    if (after == before) return true;
    if (Tell(LVN_ITEMCHANGING, at, 0, LVIF_STATE, before, after) || !Has(at)) return false;
    const UINT gained = after & ~before;
    for (int i = 0; i < Count(); ++i) {
        if (i == at) continue;
        if (gained & LVIS_SELECTED && IsSingle()) ChangeState(i, 0, LVIS_SELECTED);
        if (gained & LVIS_FOCUSED && Has(i)) ChangeState(i, 0, LVIS_FOCUSED);
    }
    if (!Has(at)) return false;
    At(at).state = after;
    Changed();
    Tell(LVN_ITEMCHANGED, at, 0, LVIF_STATE, before, after);
    return true;
}

LRESULT ListView::Find(int start, const LVFINDINFOW& wanted) {
    if (!wanted.psz && !(wanted.flags & LVFI_PARAM)) return -1;
    const bool partial = wanted.flags & LVFI_PARTIAL;
    const int count = wanted.flags & LVFI_WRAP ? Count() : Count() - start - 1;
    for (int i = 1; i <= count; ++i) {
        const int at = (std::max(start, -1) + i) % Count();
        if (wanted.flags & LVFI_PARAM) {
            if (At(at).data == wanted.lParam) return at;
            continue;
        }
        const std::u16string text = TextOf(at, 0);
        const std::u16string_view sought = wanted.psz;
        const std::u16string_view own = text;
        if (SameName(partial ? own.substr(0, sought.size()) : own, sought)) return at;
        if (!Has(at)) return -1;
    }
    return -1;
}

LRESULT ListView::Next(int start, UINT flags) const {
    const UINT states = flags & (LVNI_FOCUSED | LVNI_SELECTED | LVNI_CUT | LVNI_DROPHILITED);
    const int step = flags & LVNI_ABOVE ? -1 : 1;
    for (int at = std::max(start, -1) + step; Has(at); at += step)
        if ((At(at).state & states) == states) return at;
    return -1;
}

LRESULT ListView::Sort(PFNLVCOMPARE compare, LPARAM parameter, bool by_number) {
    if (!compare) return FALSE;
    // Items stay in place while the program compares them. Its answers may contradict each other.
    std::vector<int> order;
    const int count = Count();
    order.reserve(static_cast<size_t>(count));
    for (int next = 0; next < count; ++next) {
        size_t low = 0;
        size_t high = order.size();
        while (low < high) {
            const size_t middle = low + (high - low) / 2;
            const int other = order[middle];
            if (!Has(next) || !Has(other)) return FALSE;
            const int result = by_number ? compare(static_cast<LPARAM>(next),
                                                   static_cast<LPARAM>(other), parameter)
                                         : compare(At(next).data, At(other).data, parameter);
            if (result < 0)
                high = middle;
            else
                low = middle + 1;
        }
        order.insert(order.begin() + static_cast<ptrdiff_t>(low), next);
    }
    if (Count() != count) return FALSE;
    std::vector<std::unique_ptr<Item>> sorted;
    sorted.reserve(items_.size());
    for (int at : order) sorted.push_back(std::move(items_[static_cast<size_t>(at)]));
    items_ = std::move(sorted);
    Changed();
    return TRUE;
}

} // namespace win32host
