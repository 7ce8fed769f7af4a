// How combo boxes look.
#include "window/combo_box.h"
#include "window/control_paint.h"
#include "window/look.h"

namespace win32host {

void ComboBox::Paint(WPARAM context) {
    const ControlPaint paint(Self(), context, font_);
    const HDC dc = paint.Context();
    look::State state = IsWindowEnabled(Self()) ? look::kNormal : look::kDisabled;
    if (has_focus_) state |= look::kFocused;
    if (dropped_ || pressed_) state |= look::kPressed;
    FillRect(dc, &paint.Client(), GetSysColorBrush(COLOR_BTNFACE));
    RECT rect = paint.Client();
    if (IsSimple()) {
        rect.bottom = ClosedHeight();
        look::DrawField(dc, rect, state);
        return;
    }
    look::DrawComboBox(dc, rect, HasEdit(), state);
    if (!HasEdit()) PaintField(paint);
}

void ComboBox::PaintField(const ControlPaint& paint) const {
    const HDC dc = paint.Context();
    RECT rect = FieldRect();
    if (IsOwnerDrawn()) return AskOwnerToDrawField(dc, rect);
    if (has_focus_ && !dropped_) look::DrawFocus(dc, rect);
    rect.left += look::Scaled(dc, 3);
    look::DrawLabel(dc, rect, SelectedText(),
                    DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS,
                    IsWindowEnabled(Self()) ? look::kNormal : look::kDisabled);
}

void ComboBox::AskOwnerToDrawField(HDC dc, const RECT& rect) const {
    const LRESULT at = FromList(LB_GETCURSEL, 0, 0);
    DRAWITEMSTRUCT item = {};
    item.CtlType = ODT_COMBOBOX;
    item.CtlID = static_cast<UINT>(Id());
    item.itemID = static_cast<UINT>(at);
    item.itemAction = ODA_DRAWENTIRE;
    item.itemState = ODS_COMBOBOXEDIT;
    if (has_focus_ && !dropped_) item.itemState |= ODS_SELECTED | ODS_FOCUS;
    if (!IsWindowEnabled(Self())) item.itemState |= ODS_DISABLED;
    item.hwndItem = Self();
    item.hDC = dc;
    item.rcItem = rect;
    if (at != LB_ERR)
        item.itemData =
            static_cast<ULONG_PTR>(FromList(LB_GETITEMDATA, static_cast<WPARAM>(at), 0));
    const int saved = SaveDC(dc);
    IntersectClipRect(dc, rect.left, rect.top, rect.right, rect.bottom);
    if (item.itemState & ODS_SELECTED) {
        SetTextColor(dc, look::SelectionTextColor(look::kFocused));
        SetBkColor(dc, look::SelectionColor(look::kFocused));
    }
    SendMessageW(Parent(), WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
    RestoreDC(dc, saved);
}

} // namespace win32host
