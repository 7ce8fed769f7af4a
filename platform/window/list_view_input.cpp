// What a user does with a list view.
#include "window/list_view.h"

#include <algorithm>

namespace win32host {
namespace {

constexpr DWORD kTypingPause = 1000; // milliseconds that end a word that is typed to search for it

bool IsKeyHeld(int key) {
    return GetKeyState(key) < 0;
}

} // namespace

void ListView::TellMouse(UINT code, POINT point) {
    LVHITTESTINFO hit = {};
    hit.pt = point;
    HitTest(hit, true);
    NMITEMACTIVATE record = {};
    record.iItem = IsFullRow() || hit.iSubItem == 0 || hit.iItem == -1 ? hit.iItem : -1;
    LVHITTESTINFO own = {};
    own.pt = point;
    if (!IsFullRow()) record.iItem = static_cast<int>(HitTest(own, false));
    record.iSubItem = hit.iSubItem;
    record.ptAction = point;
    record.lParam = Has(record.iItem) ? At(record.iItem).data : 0;
    record.uKeyFlags = (IsKeyHeld(VK_MENU) ? LVKF_ALT : 0) |
                       (IsKeyHeld(VK_CONTROL) ? LVKF_CONTROL : 0) |
                       (IsKeyHeld(VK_SHIFT) ? LVKF_SHIFT : 0);
    NotifyParent(Self(), code, record.hdr);
}

void ListView::MouseDown(POINT point) {
    pressed_ = true;
    LVHITTESTINFO hit = {};
    hit.pt = point;
    const auto at = static_cast<int>(HitTest(hit, false));
    if (at == -1) {
        DeselectAll(-1);
    } else if (hit.flags == LVHT_ONITEMSTATEICON) {
        pressed_ = false;
        TellMouse(NM_CLICK, point);
        if (Has(at)) ToggleCheck(at);
        return;
    } else if (IsKeyHeld(VK_SHIFT) && !IsSingle() && mark_ != -1) {
        SelectRange(at);
    } else if (IsKeyHeld(VK_CONTROL) && !IsSingle()) {
        Toggle(at);
    } else {
        SelectOnly(at);
    }
    if (GetFocus() != Self()) SetFocus(Self());
}

void ListView::MouseUp(POINT point) {
    if (pressed_) TellMouse(NM_CLICK, point);
    pressed_ = false;
}

void ListView::DoubleClick(POINT point) {
    LVHITTESTINFO hit = {};
    hit.pt = point;
    const bool on_item = HitTest(hit, false) != -1;
    if (on_item && hit.flags == LVHT_ONITEMSTATEICON) return MouseDown(point);
    TellMouse(NM_DBLCLK, point);
    if (on_item) TellMouse(LVN_ITEMACTIVATE, point);
}

void ListView::RightClick(UINT code, POINT point) {
    if (GetFocus() != Self()) SetFocus(Self());
    LVHITTESTINFO hit = {};
    hit.pt = point;
    const auto at = static_cast<int>(HitTest(hit, false));
    if (code == NM_RCLICK && at != -1 && !(At(at).state & LVIS_SELECTED)) SelectOnly(at);
    TellMouse(code, point);
}

void ListView::DeselectAll(int except) {
    for (int at = 0; at < Count(); ++at)
        if (at != except) ChangeState(at, 0, LVIS_SELECTED);
}

void ListView::SelectOnly(int at) {
    if (!IsSingle()) DeselectAll(at);
    if (!Has(at)) return;
    mark_ = at;
    ChangeState(at, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
    Show(at);
}

void ListView::SelectRange(int to) {
    const int low = std::min(mark_, to);
    const int high = std::max(mark_, to);
    for (int at = 0; at < Count(); ++at)
        ChangeState(at, at >= low && at <= high ? LVIS_SELECTED : 0, LVIS_SELECTED);
    if (!Has(to)) return;
    ChangeState(to, LVIS_FOCUSED, LVIS_FOCUSED);
    Show(to);
}

void ListView::Toggle(int at) {
    mark_ = at;
    const UINT selected = At(at).state & LVIS_SELECTED;
    ChangeState(at, LVIS_FOCUSED | (selected ^ LVIS_SELECTED), LVIS_FOCUSED | LVIS_SELECTED);
}

void ListView::ToggleCheck(int at) {
    const bool on = (At(at).state & LVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2u);
    ChangeState(at, INDEXTOSTATEIMAGEMASK(on ? 1u : 2u), LVIS_STATEIMAGEMASK);
}

void ListView::Activate() {
    NotifyParent(Self(), NM_RETURN);
    NMITEMACTIVATE record = {};
    record.iItem = Focused();
    record.lParam = Has(record.iItem) ? At(record.iItem).data : 0;
    NotifyParent(Self(), LVN_ITEMACTIVATE, record.hdr);
}

void ListView::MoveFocus(int to) {
    if (Count() == 0) return;
    to = std::clamp(to, 0, Count() - 1);
    if (IsKeyHeld(VK_SHIFT) && !IsSingle() && mark_ != -1) {
        SelectRange(to);
    } else if (IsKeyHeld(VK_CONTROL) && !IsSingle()) {
        ChangeState(to, LVIS_FOCUSED, LVIS_FOCUSED);
        Show(to);
    } else {
        SelectOnly(to);
    }
}

void ListView::KeyDown(WPARAM key, LPARAM flags) {
    alignas(NMHDR) NMLVKEYDOWN record = {};
    record.wVKey = static_cast<WORD>(key);
    record.flags = static_cast<UINT>(flags);
    NotifyParent(Self(), LVN_KEYDOWN, reinterpret_cast<NMHDR&>(record));
    const int focused = Focused();
    const int page = std::max(1, PageCount() - 1);
    switch (key) {
    case VK_RETURN:
        if (Count() > 0) Activate();
        return;
    case VK_SPACE:
        if (!Has(focused)) return;
        if (HasChecks()) return ToggleCheck(focused);
        return IsKeyHeld(VK_CONTROL) && !IsSingle() ? Toggle(focused) : SelectOnly(focused);
    case VK_UP:
        return MoveFocus(focused - 1);
    case VK_DOWN:
        return MoveFocus(focused + 1);
    case VK_HOME:
        return MoveFocus(0);
    case VK_END:
        return MoveFocus(Count() - 1);
    case VK_PRIOR:
        return MoveFocus(focused - page);
    case VK_NEXT:
        return MoveFocus(focused + page);
    case VK_LEFT:
        return ScrollSideways(left_ - row_height_);
    case VK_RIGHT:
        return ScrollSideways(left_ + row_height_);
    default:
        return;
    }
}

// Letters that follow each other are the beginning of a text.
void ListView::Character(WCHAR character) {
    if (character < TEXT(' ') || Count() == 0) return;
    const DWORD now = GetTickCount();
    const bool goes_on = !typed_.empty() && now - typed_at_ < kTypingPause;
    if (!goes_on && character == TEXT(' ')) return;
    if (!goes_on) typed_.clear();
    typed_ += character;
    typed_at_ = now;
    LVFINDINFOW wanted = {};
    wanted.flags = LVFI_PARTIAL | LVFI_WRAP;
    wanted.psz = typed_.c_str();
    // A word that becomes longer may still be that of the item that was found for its beginning.
    const auto at = static_cast<int>(Find(goes_on ? Focused() - 1 : Focused(), wanted));
    if (at != -1) SelectOnly(at);
}

} // namespace win32host
