// How buttons look.
#include "window/button.h"
#include "window/control_paint.h"

#include <algorithm>

namespace win32host {
namespace {

UINT CaptionFormat(DWORD style, DWORD usual) {
    const DWORD place = style & BS_CENTER ? style & BS_CENTER : usual;
    UINT format = style & BS_MULTILINE ? DT_WORDBREAK : DT_SINGLELINE;
    if (place == BS_CENTER) format |= DT_CENTER;
    if (place == BS_RIGHT) format |= DT_RIGHT;
    return format;
}

RECT Deflated(const RECT& rect, int by) {
    return {rect.left + by, rect.top + by, rect.right - by, rect.bottom - by};
}

} // namespace

look::State Button::LookState() const {
    look::State state = look::kNormal;
    if (!IsWindowEnabled(Self())) state |= look::kDisabled;
    if (pushed_) state |= look::kPressed;
    if (focused_) state |= look::kFocused;
    if (Kind() == BS_DEFPUSHBUTTON) state |= look::kDefault;
    if (check_ == BST_CHECKED) state |= look::kChecked;
    if (check_ == BST_INDETERMINATE) state |= look::kMixed;
    return state;
}

RECT Button::PaintContent(const ControlPaint& paint, const RECT& rect, DWORD usual) const {
    const DWORD style = Style();
    const bool picture = (style & BS_BITMAP) != 0 && image_;
    const std::u16string text = picture ? std::u16string() : TextOfWindow(Self());
    const UINT format = CaptionFormat(style, usual);
    const SIZE size = picture ? SizeOfBitmap(static_cast<HBITMAP>(image_))
                              : paint.TextSize(text, rect.right - rect.left, format);
    RECT place = rect;
    switch (style & BS_VCENTER) {
    case BS_TOP:
        break;
    case BS_BOTTOM:
        place.top = rect.bottom - size.cy;
        break;
    default:
        place.top = rect.top + (rect.bottom - rect.top - size.cy) / 2;
        break;
    }
    if (format & DT_CENTER) place.left = rect.left + (rect.right - rect.left - size.cx) / 2;
    if (format & DT_RIGHT) place.left = rect.right - size.cx;
    place.right = place.left + size.cx;
    place.bottom = place.top + size.cy;
    if (picture)
        paint.DrawBitmap(static_cast<HBITMAP>(image_), place, false);
    else
        paint.DrawLabelText(text, place, format, !IsWindowEnabled(Self()));
    return place;
}

void Button::PaintPush(const ControlPaint& paint) const {
    look::State state = LookState();
    // Check boxes that look like push buttons stay down while they are on.
    if (check_ != BST_UNCHECKED) state |= look::kPressed;
    paint.FillBackground(WM_CTLCOLORBTN);
    look::DrawPushButton(paint.Context(), paint.Client(), state);
    SetTextColor(paint.Context(), look::TextColor(state));
    const int border = look::Scaled(paint.Context(), 3);
    PaintContent(paint, Deflated(paint.Client(), border), BS_CENTER);
    if (focused_) look::DrawFocus(paint.Context(), Deflated(paint.Client(), border));
}

void Button::PaintMarked(const ControlPaint& paint) const {
    const look::State state = LookState();
    const HDC dc = paint.Context();
    paint.FillBackground(WM_CTLCOLORSTATIC);
    const RECT& client = paint.Client();
    RECT mark = client;
    RECT content = client;
    const int size = look::MarkSize(dc);
    if (Style() & BS_LEFTTEXT) {
        mark.left = client.right - size;
        content.right = mark.left - look::MarkGap(dc);
    } else {
        mark.right = client.left + size;
        content.left = mark.right + look::MarkGap(dc);
    }
    // The mark stands beside the text, wherever that is.
    switch (Style() & BS_VCENTER) {
    case BS_TOP:
        mark.bottom = mark.top + size;
        break;
    case BS_BOTTOM:
        mark.top = mark.bottom - size;
        break;
    default:
        break;
    }
    if (IsRadio())
        look::DrawRadioMark(dc, mark, state);
    else
        look::DrawCheckMark(dc, mark, state);
    const RECT text = PaintContent(paint, content, BS_LEFT);
    if (!focused_ || text.right <= text.left) return;
    const RECT around = {std::max(client.left, text.left - 1), std::max(client.top, text.top - 1),
                         std::min(client.right, text.right + 1),
                         std::min(client.bottom, text.bottom + 1)};
    look::DrawFocus(dc, around);
}

void Button::PaintGroup(const ControlPaint& paint) const {
    const HDC dc = paint.Context();
    const RECT& client = paint.Client();
    paint.AskColors(WM_CTLCOLORSTATIC);
    const std::u16string text = TextOfWindow(Self());
    const int inset = look::Scaled(dc, 9);
    const int gap = look::Scaled(dc, 3);
    // Without a text the frame is where it would be with one.
    const SIZE line = paint.TextSize(text.empty() ? u"X" : text, client.right, DT_SINGLELINE);
    if (text.empty()) {
        look::DrawGroupBox(dc, client, line.cy, 0, 0);
        return;
    }
    RECT place = {inset, 0, std::min<LONG>(inset + line.cx, client.right - inset), line.cy};
    if ((Style() & BS_CENTER) == BS_CENTER) {
        place.left = (client.right - line.cx) / 2;
        place.right = place.left + line.cx;
    } else if (Style() & BS_RIGHT) {
        place.left = client.right - inset - line.cx;
        place.right = client.right - inset;
    }
    look::DrawGroupBox(dc, client, line.cy, place.left - gap, place.right + gap);
    paint.DrawLabelText(text, place, DT_SINGLELINE, !IsWindowEnabled(Self()));
}

void Button::AskOwnerToDraw(const ControlPaint& paint) const {
    DRAWITEMSTRUCT item = {};
    item.CtlType = ODT_BUTTON;
    item.CtlID = static_cast<UINT>(Id());
    item.itemAction = ODA_DRAWENTIRE;
    if (pushed_) item.itemState |= ODS_SELECTED;
    if (focused_) item.itemState |= ODS_FOCUS;
    if (!IsWindowEnabled(Self())) item.itemState |= ODS_DISABLED;
    item.hwndItem = Self();
    item.hDC = paint.Context();
    item.rcItem = paint.Client();
    paint.AskColors(WM_CTLCOLORBTN);
    SendMessageW(Parent(), WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
}

void Button::Paint(WPARAM context) {
    const ControlPaint paint(Self(), context, font_);
    if (Kind() == BS_OWNERDRAW)
        AskOwnerToDraw(paint);
    else if (Kind() == BS_GROUPBOX)
        PaintGroup(paint);
    else if (HasCheck() && !(Style() & BS_PUSHLIKE))
        PaintMarked(paint);
    else
        PaintPush(paint);
}

} // namespace win32host
