#include "window/tab_control.h"

#include "host/guarded.h"

namespace win32host {
namespace {

// What tabs and page keep free at the edges of the control.
constexpr int kTabsInset = 2;
constexpr int kPageInset = 4;

} // namespace

// These take a pointer.
static constexpr UINT kTabPointers[] = {TCM_INSERTITEMW, TCM_GETITEMW, TCM_SETITEMW, TCM_HITTEST,
                                        TCM_ADJUSTRECT};

LRESULT TabControl::Handle(UINT message, WPARAM first, LPARAM second) {
    if (!second && IsOneOf(kTabPointers, message))
        return message == TCM_INSERTITEMW || message == TCM_HITTEST ? -1 : FALSE;
    const int at = static_cast<int>(first);
    switch (message) {
    case TCM_INSERTITEMW:
        return Guarded(LRESULT(-1),
                       [&] { return Insert(at, *reinterpret_cast<const TCITEMW*>(second)); });
    case TCM_DELETEITEM:
        return Delete(at);
    case TCM_DELETEALLITEMS:
        return DeleteAll();
    case TCM_GETITEMW:
        return Get(at, *reinterpret_cast<TCITEMW*>(second));
    case TCM_SETITEMW:
        return Set(at, *reinterpret_cast<const TCITEMW*>(second));
    case TCM_GETITEMCOUNT:
        return static_cast<LRESULT>(tabs_.size());
    case TCM_GETCURSEL:
    case TCM_GETCURFOCUS:
        return selected_;
    case TCM_SETCURSEL:
        return Select(at);
    case TCM_SETCURFOCUS:
        if (Has(at)) Choose(at);
        return 0;
    case TCM_HITTEST:
        return HitTest(*reinterpret_cast<TCHITTESTINFO*>(second));
    case TCM_GETITEMRECT:
        return ItemRect(at, reinterpret_cast<RECT*>(second));
    case TCM_ADJUSTRECT:
        return AdjustRect(first != 0, *reinterpret_cast<RECT*>(second));
    case TCM_GETROWCOUNT:
        Layout();
        return tabs_.empty() ? 0 : rows_;
    case TCM_SETITEMSIZE:
        return SetItemSize(LOWORD(second), HIWORD(second));
    case TCM_SETPADDING:
        padding_x_ = LOWORD(second);
        padding_y_ = HIWORD(second);
        Changed();
        return 0;
    case TCM_SETMINTABWIDTH: {
        const int before = least_width_;
        least_width_ = static_cast<int>(second);
        Changed();
        return before;
    }
    case CCM_GETUNICODEFORMAT:
        return TRUE;
    case WM_SETFONT:
        font_ = reinterpret_cast<HFONT>(first);
        Changed();
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(font_);
    case WM_SIZE:
    case WM_STYLECHANGED:
        Changed();
        return 0;
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_LBUTTONDOWN:
        MouseDown(PointOf(second));
        return 0;
    case WM_LBUTTONUP:
        NotifyParent(Self(), NM_CLICK);
        return 0;
    case WM_RBUTTONUP:
        NotifyParent(Self(), NM_RCLICK);
        return 0;
    case WM_KEYDOWN:
        KeyDown(first, second);
        return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        InvalidateRect(Self(), nullptr, FALSE);
        return 0;
    case WM_ERASEBKGND:
        return TRUE;
    case WM_PAINT:
    case WM_PRINTCLIENT:
        Paint(first);
        return 0;
    default:
        return DefWindowProcW(Self(), message, first, second);
    }
}

void TabControl::Changed() {
    placed_ = false;
    InvalidateRect(Self(), nullptr, TRUE);
}

void TabControl::Change(Tab& tab, const TCITEMW& item) {
    if (item.mask & TCIF_TEXT) tab.text = item.pszText ? item.pszText : u"";
    if (item.mask & TCIF_PARAM) tab.data = item.lParam;
    if (item.mask & TCIF_IMAGE) tab.image = item.iImage;
    if (item.mask & TCIF_STATE)
        tab.state = (tab.state & ~item.dwStateMask) | (item.dwState & item.dwStateMask);
}

LRESULT TabControl::Insert(int at, const TCITEMW& item) {
    if (at < 0) return -1;
    if (!Has(at)) at = static_cast<int>(tabs_.size());
    Tab tab;
    Change(tab, item);
    tabs_.insert(tabs_.begin() + at, std::move(tab));
    if (tabs_.size() == 1)
        selected_ = 0;
    else if (at <= selected_)
        ++selected_;
    Changed();
    return at;
}

LRESULT TabControl::Delete(int at) {
    if (!Has(at)) return FALSE;
    tabs_.erase(tabs_.begin() + at);
    if (at == selected_)
        selected_ = -1;
    else if (at < selected_)
        --selected_;
    Changed();
    return TRUE;
}

LRESULT TabControl::DeleteAll() {
    tabs_.clear();
    selected_ = -1;
    Changed();
    return TRUE;
}

LRESULT TabControl::Get(int at, TCITEMW& item) const {
    if (!Has(at)) return FALSE;
    const Tab& tab = tabs_[static_cast<size_t>(at)];
    if (item.mask & TCIF_TEXT) CopyText(tab.text, item.pszText, item.cchTextMax);
    if (item.mask & TCIF_PARAM) item.lParam = tab.data;
    if (item.mask & TCIF_IMAGE) item.iImage = tab.image;
    if (item.mask & TCIF_STATE) item.dwState = tab.state & item.dwStateMask;
    return TRUE;
}

LRESULT TabControl::Set(int at, const TCITEMW& item) {
    if (!Has(at)) return FALSE;
    Change(tabs_[static_cast<size_t>(at)], item);
    Changed();
    return TRUE;
}

LRESULT TabControl::Select(int at) {
    if (at != -1 && !Has(at)) return -1;
    const int before = selected_;
    selected_ = at;
    if (before != at) Changed();
    return before;
}

LRESULT TabControl::HitTest(TCHITTESTINFO& info) {
    const int tab = TabAt(info.pt);
    info.flags = tab == -1 ? TCHT_NOWHERE : TCHT_ONITEMLABEL;
    return tab;
}

LRESULT TabControl::ItemRect(int at, RECT* rect) {
    if (!Has(at) || !rect) return FALSE;
    Layout();
    *rect = tabs_[static_cast<size_t>(at)].rect;
    return TRUE;
}

LRESULT TabControl::AdjustRect(bool larger, RECT& rect) {
    const int above = TabsHeight() + kTabsInset + 2;
    const int direction = larger ? -1 : 1;
    rect.left += direction * kPageInset;
    rect.top += direction * above;
    rect.right -= direction * kPageInset;
    rect.bottom -= direction * kPageInset;
    return 0;
}

LRESULT TabControl::SetItemSize(int width, int height) {
    const LRESULT before = MAKELONG(fixed_width_, fixed_height_);
    fixed_width_ = width;
    fixed_height_ = height;
    Changed();
    return before;
}

int TabControl::TabAt(POINT point) {
    Layout();
    for (size_t i = 0; i < tabs_.size(); ++i)
        if (Holds(tabs_[i].rect, point)) return static_cast<int>(i);
    return -1;
}

void TabControl::MouseDown(POINT point) {
    const int tab = TabAt(point);
    if (tab == -1) return;
    if (!(Style() & TCS_FOCUSNEVER)) SetFocus(Self());
    if (tab != selected_) Choose(tab);
}

void TabControl::KeyDown(WPARAM key, LPARAM flags) {
    alignas(NMHDR) NMTCKEYDOWN record = {};
    record.wVKey = static_cast<WORD>(key);
    record.flags = static_cast<UINT>(flags);
    NotifyParent(Self(), TCN_KEYDOWN, reinterpret_cast<NMHDR&>(record));
    if (key == VK_LEFT && Has(selected_ - 1)) Choose(selected_ - 1);
    if (key == VK_RIGHT && Has(selected_ + 1)) Choose(selected_ + 1);
}

void TabControl::Choose(int at) {
    if (at == selected_ || NotifyParent(Self(), TCN_SELCHANGING)) return;
    if (!Has(at)) return;
    selected_ = at;
    Changed();
    NotifyParent(Self(), TCN_SELCHANGE);
}

void RegisterTabControl();
void RegisterTabControl() {
    RegisterControl<TabControl>(WC_TABCONTROLW, CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW);
}

} // namespace win32host
