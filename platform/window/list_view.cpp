// Messages of list views.
#include "window/list_view.h"

#include "host/guarded.h"
#include "window/field_frame.h"
#include "window/scroll_bars.h"
#include "window/text_measure.h"

namespace win32host {

LRESULT ListView::Handle(UINT message, WPARAM first, LPARAM second) {
    if (message >= LVM_FIRST && message < LVM_FIRST + 0x100)
        return HandleItems(message, first, second);
    switch (message) {
    case WM_CREATE:
        return Create() ? 0 : -1;
    case WM_DESTROY:
        DeleteAll();
        return 0;
    case WM_SETFONT:
        font_ = reinterpret_cast<HFONT>(first);
        SendMessageW(header_, WM_SETFONT, first, second);
        Arrange();
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(font_);
    case WM_SIZE:
    case WM_STYLECHANGED:
        Arrange();
        return 0;
    case WM_NOTIFY: {
        const auto& head = *reinterpret_cast<const NMHDR*>(second);
        return head.hwndFrom == header_ ? FromHeader(head, second) : 0;
    }
    case WM_NOTIFYFORMAT:
        return NFR_UNICODE;
    case CCM_GETUNICODEFORMAT:
        return TRUE;
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        has_focus_ = message == WM_SETFOCUS;
        Changed();
        NotifyParent(Self(), has_focus_ ? NM_SETFOCUS : NM_KILLFOCUS);
        return 0;
    case WM_ENABLE:
        Changed();
        return 0;
    case WM_LBUTTONDOWN:
        MouseDown(PointOf(second));
        return 0;
    case WM_LBUTTONUP:
        MouseUp(PointOf(second));
        return 0;
    case WM_LBUTTONDBLCLK:
        DoubleClick(PointOf(second));
        return 0;
    case WM_RBUTTONUP:
        RightClick(NM_RCLICK, PointOf(second));
        return 0;
    case WM_RBUTTONDBLCLK:
        RightClick(NM_RDBLCLK, PointOf(second));
        return 0;
    case WM_KEYDOWN:
        KeyDown(first, second);
        return 0;
    case WM_CHAR:
        Character(static_cast<WCHAR>(first));
        return 0;
    case WM_MOUSEWHEEL:
        ScrollTo(top_ - 3 * static_cast<SHORT>(HIWORD(first)) / WHEEL_DELTA);
        return 0;
    case WM_VSCROLL:
        ScrollTo(ScrolledTo(Self(), SB_VERT, first, 1));
        return 0;
    case WM_HSCROLL:
        ScrollSideways(ScrolledTo(Self(), SB_HORZ, first, row_height_));
        return 0;
    case WM_SETREDRAW:
        DefWindowProcW(Self(), message, first, second);
        if (first) Arrange();
        return 0;
    case WM_ERASEBKGND:
        return TRUE;
    case WM_NCPAINT:
        PaintFieldFrame(Self(), has_focus_);
        return 0;
    case WM_PAINT:
    case WM_PRINTCLIENT:
        Paint(first);
        return 0;
    default:
        return DefWindowProcW(Self(), message, first, second);
    }
}

bool ListView::Create() {
    DWORD style = WS_CHILD | HDS_HORZ;
    if (!(Style() & LVS_NOSORTHEADER)) style |= HDS_BUTTONS;
    if (!(Style() & LVS_NOCOLUMNHEADER)) style |= WS_VISIBLE;
    header_ = CreateWindowExW(0, WC_HEADERW, nullptr, style, 0, 0, 0, 0, Self(), nullptr, nullptr,
                              nullptr);
    if (!header_) return false;
    Arrange();
    return true;
}

// These take a pointer.
static constexpr UINT kViewPointers[] = {LVM_INSERTITEMW,  LVM_GETITEMW,      LVM_SETITEMW,
                                         LVM_GETITEMTEXTW, LVM_SETITEMTEXTW,  LVM_SETITEMSTATE,
                                         LVM_FINDITEMW,    LVM_INSERTCOLUMNW, LVM_GETCOLUMNW,
                                         LVM_SETCOLUMNW,   LVM_HITTEST,       LVM_SUBITEMHITTEST};
// Of these, what answers an item or a column.
static constexpr UINT kViewIndices[] = {LVM_INSERTITEMW, LVM_FINDITEMW, LVM_INSERTCOLUMNW,
                                        LVM_HITTEST, LVM_SUBITEMHITTEST};

LRESULT ListView::HandleItems(UINT message, WPARAM first, LPARAM second) {
    if (!second && IsOneOf(kViewPointers, message))
        return IsOneOf(kViewIndices, message) ? -1 : FALSE;
    const int at = static_cast<int>(first);
    switch (message) {
    case LVM_GETITEMCOUNT:
        return Count();
    case LVM_INSERTITEMW:
        return Guarded(LRESULT(-1),
                       [&] { return Insert(*reinterpret_cast<const LVITEMW*>(second)); });
    case LVM_DELETEITEM:
        return Delete(at);
    case LVM_DELETEALLITEMS:
        return DeleteAll();
    case LVM_GETITEMW:
        return Get(*reinterpret_cast<LVITEMW*>(second));
    case LVM_SETITEMW:
        return Set(*reinterpret_cast<const LVITEMW*>(second));
    case LVM_GETITEMTEXTW:
        return GetText(at, *reinterpret_cast<LVITEMW*>(second));
    case LVM_SETITEMTEXTW:
        return SetText(at, *reinterpret_cast<const LVITEMW*>(second));
    case LVM_SETITEMSTATE:
        return SetState(at, *reinterpret_cast<const LVITEMW*>(second));
    case LVM_GETITEMSTATE:
        return Has(at) ? At(at).state & static_cast<UINT>(second) : 0;
    case LVM_GETNEXTITEM:
        return Next(at, LOWORD(second));
    case LVM_FINDITEMW:
        return Find(at, *reinterpret_cast<const LVFINDINFOW*>(second));
    case LVM_SORTITEMS:
        return Sort(reinterpret_cast<PFNLVCOMPARE>(second), static_cast<LPARAM>(first), false);
    case LVM_SORTITEMSEX:
        return Sort(reinterpret_cast<PFNLVCOMPARE>(second), static_cast<LPARAM>(first), true);
    case LVM_GETSELECTEDCOUNT:
        return SelectedCount();
    case LVM_GETSELECTIONMARK:
        return mark_;
    case LVM_SETSELECTIONMARK: {
        const int before = mark_;
        mark_ = Has(static_cast<int>(second)) ? static_cast<int>(second) : -1;
        return before;
    }
    case LVM_SETITEMCOUNT:
        if (at > 0) items_.reserve(static_cast<size_t>(at));
        return TRUE;
    default:
        return HandleColumns(message, first, second);
    }
}

LRESULT ListView::HandleColumns(UINT message, WPARAM first, LPARAM second) {
    const int at = static_cast<int>(first);
    switch (message) {
    case LVM_GETHEADER:
        return reinterpret_cast<LRESULT>(header_);
    case LVM_INSERTCOLUMNW:
        return Guarded(LRESULT(-1), [&] {
            return InsertColumn(at, *reinterpret_cast<const LVCOLUMNW*>(second));
        });
    case LVM_DELETECOLUMN:
        return DeleteColumn(at);
    case LVM_GETCOLUMNW:
        return GetColumn(at, *reinterpret_cast<LVCOLUMNW*>(second));
    case LVM_SETCOLUMNW:
        return SetColumn(at, *reinterpret_cast<const LVCOLUMNW*>(second));
    case LVM_GETCOLUMNWIDTH:
        return ColumnWidth(at);
    case LVM_SETCOLUMNWIDTH:
        return SetColumnWidth(at, static_cast<SHORT>(LOWORD(second)));
    case LVM_GETCOLUMNORDERARRAY:
        return SendMessageW(header_, HDM_GETORDERARRAY, first, second);
    case LVM_SETCOLUMNORDERARRAY: {
        const LRESULT done = SendMessageW(header_, HDM_SETORDERARRAY, first, second);
        Changed();
        return done;
    }
    case LVM_GETSTRINGWIDTHW:
        if (!second) return 0;
        return TextMeasure(Self(), font_).Width(reinterpret_cast<LPCWSTR>(second));
    case LVM_SETEXTENDEDLISTVIEWSTYLE:
        return SetExtendedStyle(static_cast<DWORD>(first), static_cast<DWORD>(second));
    case LVM_GETEXTENDEDLISTVIEWSTYLE:
        return static_cast<LRESULT>(extended_);
    default:
        return HandleView(message, first, second);
    }
}

LRESULT ListView::HandleView(UINT message, WPARAM first, LPARAM second) {
    const int at = static_cast<int>(first);
    switch (message) {
    case LVM_GETITEMRECT:
        return ItemRect(at, reinterpret_cast<RECT*>(second));
    case LVM_GETSUBITEMRECT:
        return SubItemRect(at, reinterpret_cast<RECT*>(second));
    case LVM_HITTEST:
        return HitTest(*reinterpret_cast<LVHITTESTINFO*>(second), false);
    case LVM_SUBITEMHITTEST:
        return HitTest(*reinterpret_cast<LVHITTESTINFO*>(second), true);
    case LVM_ENSUREVISIBLE:
        return Show(at);
    case LVM_GETTOPINDEX:
        return top_;
    case LVM_GETCOUNTPERPAGE:
        return PageCount();
    case LVM_SCROLL:
        ScrollSideways(left_ + at);
        ScrollTo(top_ + static_cast<int>(second) / row_height_);
        return TRUE;
    case LVM_REDRAWITEMS:
    case LVM_UPDATE:
        Changed();
        return TRUE;
    case LVM_GETBKCOLOR:
        return static_cast<LRESULT>(background_ == CLR_DEFAULT ? GetSysColor(COLOR_WINDOW)
                                                               : background_);
    case LVM_SETBKCOLOR:
        background_ = static_cast<COLORREF>(second);
        Changed();
        return TRUE;
    case LVM_GETTEXTCOLOR:
        return static_cast<LRESULT>(text_color_ == CLR_DEFAULT ? GetSysColor(COLOR_WINDOWTEXT)
                                                               : text_color_);
    case LVM_SETTEXTCOLOR:
        text_color_ = static_cast<COLORREF>(second);
        Changed();
        return TRUE;
    case LVM_GETTEXTBKCOLOR:
        return static_cast<LRESULT>(text_background_ == CLR_DEFAULT ? GetSysColor(COLOR_WINDOW)
                                                                    : text_background_);
    case LVM_SETTEXTBKCOLOR:
        text_background_ = static_cast<COLORREF>(second);
        Changed();
        return TRUE;
    default:
        return 0;
    }
}

LRESULT ListView::SetExtendedStyle(DWORD mask, DWORD style) {
    const DWORD before = extended_;
    extended_ = mask ? (before & ~mask) | (style & mask) : style;
    if ((before ^ extended_) & LVS_EX_CHECKBOXES)
        for (auto& item : items_)
            item->state = (item->state & ~static_cast<UINT>(LVIS_STATEIMAGEMASK)) |
                          (HasChecks() ? INDEXTOSTATEIMAGEMASK(1u) : 0);
    Arrange();
    return static_cast<LRESULT>(before);
}

void RegisterListView();
void RegisterListView() {
    RegisterControl<ListView>(WC_LISTVIEWW, CS_DBLCLKS);
}

} // namespace win32host
