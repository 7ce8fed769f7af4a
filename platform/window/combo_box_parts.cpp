// The windows that a combo box is put together of, and their places.
#include "window/combo_box.h"
#include "window/look.h"
#include "window/text_measure.h"

#include <algorithm>

namespace win32host {
namespace {

constexpr int kListId = 1000;
constexpr int kEditId = 1001;
constexpr int kFieldEdge = 3;    // around the text
constexpr int kDefaultRows = 30; // of a list that was given no height

LRESULT CALLBACK ComboEditProcedure(HWND edit, UINT message, WPARAM first, LPARAM second) {
    ComboBox* const combo = ComboBoxOf(GetParent(edit));
    if (!combo) return DefWindowProcW(edit, message, first, second);
    const WNDPROC own = combo->EditProcedure();
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        if (combo->TakesKey(message, first)) return 0;
        break;
    case WM_CHAR:
        // The characters of the keys that open and close the list.
        if (first == VK_RETURN || first == VK_ESCAPE) return 0;
        break;
    case WM_GETDLGCODE:
        return CallWindowProcW(own, edit, message, first, second) |
               (SendMessageW(GetParent(edit), message, first, second) & DLGC_WANTMESSAGE);
    default:
        break;
    }
    return CallWindowProcW(own, edit, message, first, second);
}

DWORD ListStyle(DWORD combo) {
    const struct {
        DWORD combo;
        DWORD list;
    } bits[] = {
        {CBS_SORT, LBS_SORT},
        {CBS_OWNERDRAWFIXED, LBS_OWNERDRAWFIXED},
        {CBS_OWNERDRAWVARIABLE, LBS_OWNERDRAWVARIABLE},
        {CBS_HASSTRINGS, LBS_HASSTRINGS},
        {CBS_NOINTEGRALHEIGHT, LBS_NOINTEGRALHEIGHT},
        {CBS_DISABLENOSCROLL, LBS_DISABLENOSCROLL},
        {WS_VSCROLL, WS_VSCROLL},
        {WS_HSCROLL, WS_HSCROLL},
    };
    DWORD style = LBS_NOTIFY | WS_BORDER;
    for (const auto& bit : bits)
        if (combo & bit.combo) style |= bit.list;
    return style;
}

} // namespace

bool ComboBox::Create(const CREATESTRUCTW& create) {
    open_height_ = create.cy;
    // A combo box has no scroll bars of its own.
    const DWORD wanted = Style();
    MeasureField();
    if (HasEdit() && !CreateEdit()) return false;
    if (!CreateList()) return false;
    if (wanted & (WS_VSCROLL | WS_HSCROLL))
        SetWindowLongPtrW(
            Self(), GWL_STYLE,
            static_cast<LONG_PTR>(wanted & ~static_cast<DWORD>(WS_VSCROLL | WS_HSCROLL)));
    made_ = true;
    const int height = IsSimple() ? create.cy : ClosedHeight();
    SetWindowPos(Self(), nullptr, 0, 0, create.cx, height,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED |
                     SWP_NOSENDCHANGING);
    PlaceParts();
    if (HasEdit() && create.lpszName) SetEditText(create.lpszName);
    return true;
}

bool ComboBox::CreateEdit() {
    DWORD style = WS_CHILD | WS_VISIBLE | ES_LEFT | ES_NOHIDESEL;
    if (Style() & CBS_AUTOHSCROLL) style |= ES_AUTOHSCROLL;
    if (Style() & CBS_UPPERCASE) style |= ES_UPPERCASE;
    if (Style() & CBS_LOWERCASE) style |= ES_LOWERCASE;
    if (Style() & WS_DISABLED) style |= WS_DISABLED;
    edit_ =
        CreateWindowExW(0, TEXT("Edit"), nullptr, style, 0, 0, 0, 0, Self(),
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(kEditId)), nullptr, nullptr);
    if (!edit_) return false;
    edit_procedure_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(edit_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ComboEditProcedure)));
    return true;
}

bool ComboBox::CreateList() {
    const DWORD place = IsSimple() ? WS_CHILD | WS_VISIBLE : WS_POPUP;
    const DWORD extended = IsSimple() ? 0 : WS_EX_TOOLWINDOW;
    // A list at the top has no owner: it must stay for as long as the combo box does.
    list_ = CreateWindowExW(extended, TEXT("ComboLBox"), nullptr, place | ListStyle(Style()), 0, 0,
                            0, 0, IsSimple() ? Self() : nullptr,
                            IsSimple() ? reinterpret_cast<HMENU>(static_cast<INT_PTR>(kListId))
                                       : nullptr,
                            nullptr, Self());
    if (list_) SetWindowLongPtrW(list_, GWLP_ID, kListId);
    return list_ != nullptr;
}

void ComboBox::MeasureField() {
    field_height_ = TextMeasure(Self(), font_).LineHeight() + 2;
    if (!IsOwnerDrawn()) return;
    MEASUREITEMSTRUCT measure = {};
    measure.CtlType = ODT_COMBOBOX;
    measure.CtlID = static_cast<UINT>(Id());
    measure.itemID = static_cast<UINT>(-1);
    measure.itemHeight = static_cast<UINT>(field_height_);
    SendMessageW(Parent(), WM_MEASUREITEM, measure.CtlID, reinterpret_cast<LPARAM>(&measure));
    if (measure.itemHeight > 0 && measure.itemHeight <= 0xFFFF)
        field_height_ = static_cast<int>(measure.itemHeight);
}

void ComboBox::SetFont(HFONT font, LPARAM redraw) {
    font_ = font;
    if (HasEdit()) SendMessageW(edit_, WM_SETFONT, reinterpret_cast<WPARAM>(font), redraw);
    FromList(WM_SETFONT, reinterpret_cast<WPARAM>(font), redraw);
    if (!IsOwnerDrawn()) SetItemHeight(-1, TextMeasure(Self(), font_).LineHeight() + 2);
}

LRESULT ComboBox::SetItemHeight(int part, int height) {
    if (height <= 0 || height > 0x7FFF) return CB_ERR;
    if (part != -1) return FromList(LB_SETITEMHEIGHT, static_cast<WPARAM>(part), height);
    field_height_ = height;
    RECT rect = {};
    GetWindowRect(Self(), &rect);
    if (!IsSimple())
        SetWindowPos(Self(), nullptr, 0, 0, rect.right - rect.left, ClosedHeight(),
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOSENDCHANGING);
    PlaceParts();
    return CB_OKAY;
}

int ComboBox::ClosedHeight() const {
    return field_height_ + 2 * kFieldEdge;
}

// The height that a combo box is given is that of its list too; its own stays as it is.
void ComboBox::KeepHeight(WINDOWPOS& position) {
    if (position.flags & SWP_NOSIZE || position.cy == ClosedHeight()) return;
    open_height_ = position.cy;
    position.cy = ClosedHeight();
}

RECT ComboBox::ButtonRect() const {
    RECT client = {};
    GetClientRect(Self(), &client);
    if (IsSimple()) return {};
    const LONG width = look::ComboArrowWidth(TextMeasure(Self(), font_).Context());
    return {std::max<LONG>(0, client.right - width), 0, client.right, client.bottom};
}

RECT ComboBox::FieldRect() const {
    RECT client = {};
    GetClientRect(Self(), &client);
    const LONG right = IsSimple() ? client.right - kFieldEdge : ButtonRect().left;
    return {kFieldEdge, kFieldEdge, std::max<LONG>(kFieldEdge, right), kFieldEdge + field_height_};
}

void ComboBox::PlaceParts() {
    const RECT field = FieldRect();
    if (HasEdit())
        SetWindowPos(edit_, nullptr, field.left, field.top, field.right - field.left,
                     field.bottom - field.top, SWP_NOZORDER | SWP_NOACTIVATE);
    if (IsSimple()) {
        RECT client = {};
        GetClientRect(Self(), &client);
        const int top = ClosedHeight();
        SetWindowPos(list_, nullptr, 0, top, client.right, std::max<LONG>(0, client.bottom - top),
                     SWP_NOZORDER | SWP_NOACTIVATE);
    } else if (dropped_) {
        PlaceList();
    }
    InvalidateRect(Self(), nullptr, TRUE);
}

void ComboBox::PlaceList() {
    RECT rect = {};
    GetWindowRect(Self(), &rect);
    const auto row = static_cast<int>(FromList(LB_GETITEMHEIGHT, 0, 0));
    const auto count = static_cast<int>(FromList(LB_GETCOUNT, 0, 0));
    const int border = 2;
    int height = open_height_ - ClosedHeight();
    if (height < row + border) height = kDefaultRows * row + border;
    if (!(Style() & CBS_NOINTEGRALHEIGHT))
        height = std::min(height, std::max(1, count) * row + border);
    const LONG width = std::max<LONG>(dropped_width_, rect.right - rect.left);
    SetWindowPos(list_, HWND_TOP, rect.left, rect.bottom, width, height, SWP_NOACTIVATE);
}

} // namespace win32host
