// How static controls look.
#include "window/control_paint.h"
#include "window/look.h"
#include "window/static.h"

#include <utility>

namespace win32host {
namespace {

UINT LabelFormat(DWORD style) {
    UINT format = style & SS_NOPREFIX ? DT_NOPREFIX : 0;
    switch (style & SS_TYPEMASK) {
    case SS_CENTER:
        format |= DT_CENTER | DT_WORDBREAK;
        break;
    case SS_RIGHT:
        format |= DT_RIGHT | DT_WORDBREAK;
        break;
    case SS_SIMPLE:
        return format | DT_SINGLELINE;
    case SS_LEFTNOWORDWRAP:
        break;
    default:
        format |= DT_WORDBREAK;
        break;
    }
    format |= DT_EXPANDTABS;
    if (style & SS_EDITCONTROL) format |= DT_EDITCONTROL;
    const DWORD ellipsis = style & SS_ELLIPSISMASK;
    if (ellipsis) format = (format & ~static_cast<UINT>(DT_WORDBREAK)) | DT_SINGLELINE;
    if (ellipsis == SS_ENDELLIPSIS) format |= DT_END_ELLIPSIS;
    if (ellipsis == SS_PATHELLIPSIS) format |= DT_PATH_ELLIPSIS;
    if (ellipsis == SS_WORDELLIPSIS) format |= DT_WORD_ELLIPSIS;
    return format;
}

// The colour of rectangles and frames.
HBRUSH ShapeBrush(DWORD kind) {
    switch (kind) {
    case SS_BLACKRECT:
    case SS_BLACKFRAME:
        return GetSysColorBrush(COLOR_WINDOWTEXT);
    case SS_WHITERECT:
    case SS_WHITEFRAME:
        return GetSysColorBrush(COLOR_WINDOW);
    default:
        return GetSysColorBrush(COLOR_BTNSHADOW);
    }
}

} // namespace

void StaticControl::PaintText(const ControlPaint& paint) const {
    const DWORD style = Style();
    const std::u16string text = TextOfWindow(Self());
    UINT format = LabelFormat(style);
    RECT rect = paint.Client();
    if (style & SS_CENTERIMAGE) {
        // One line, in the middle.
        format = (format & ~static_cast<UINT>(DT_WORDBREAK)) | DT_SINGLELINE | DT_VCENTER;
    }
    paint.DrawLabelText(text, rect, format, !IsWindowEnabled(Self()));
}

void StaticControl::PaintBitmap(const ControlPaint& paint) const {
    const auto bitmap = static_cast<HBITMAP>(image_);
    const SIZE size = SizeOfBitmap(bitmap);
    RECT rect = paint.Client();
    const DWORD style = Style();
    const bool stretch = (style & SS_REALSIZECONTROL) != 0;
    if (style & SS_CENTERIMAGE && !stretch) {
        rect.left = (rect.right - size.cx) / 2;
        rect.top = (rect.bottom - size.cy) / 2;
    }
    paint.DrawBitmap(bitmap, rect, stretch);
}

void StaticControl::PaintShape(const ControlPaint& paint) const {
    RECT rect = paint.Client();
    switch (Kind()) {
    case SS_BLACKRECT:
    case SS_GRAYRECT:
    case SS_WHITERECT:
        FillRect(paint.Context(), &rect, ShapeBrush(Kind()));
        return;
    case SS_BLACKFRAME:
    case SS_GRAYFRAME:
    case SS_WHITEFRAME:
        FrameRect(paint.Context(), &rect, ShapeBrush(Kind()));
        return;
    case SS_ETCHEDHORZ:
        DrawEdge(paint.Context(), &rect, EDGE_ETCHED, BF_TOP | BF_BOTTOM);
        return;
    case SS_ETCHEDVERT:
        DrawEdge(paint.Context(), &rect, EDGE_ETCHED, BF_LEFT | BF_RIGHT);
        return;
    default:
        DrawEdge(paint.Context(), &rect, EDGE_ETCHED, BF_RECT);
        return;
    }
}

// The icons of message boxes. Others are not drawn on this host.
void StaticControl::PaintIcon(const ControlPaint& paint) const {
    const std::pair<LPCWSTR, look::Icon> icons[] = {{IDI_HAND, look::Icon::Error},
                                                    {IDI_QUESTION, look::Icon::Question},
                                                    {IDI_EXCLAMATION, look::Icon::Warning},
                                                    {IDI_ASTERISK, look::Icon::Information}};
    for (const auto& [name, icon] : icons)
        if (image_ == LoadIconW(nullptr, name))
            look::DrawMessageIcon(paint.Context(), paint.Client(), icon);
}

void StaticControl::Paint(WPARAM context) {
    const ControlPaint paint(Self(), context, font_);
    const DWORD kind = Kind();
    const HBRUSH background = paint.AskColors(WM_CTLCOLORSTATIC);
    // The frames and lines leave what is inside as it is.
    if (kind < SS_BLACKFRAME || (kind > SS_WHITEFRAME && kind < SS_ETCHEDHORZ))
        FillRect(paint.Context(), &paint.Client(), background);
    switch (kind) {
    case SS_LEFT:
    case SS_CENTER:
    case SS_RIGHT:
    case SS_SIMPLE:
    case SS_LEFTNOWORDWRAP:
        PaintText(paint);
        return;
    case SS_BITMAP:
        PaintBitmap(paint);
        return;
    case SS_ICON:
        PaintIcon(paint);
        return;
    case SS_USERITEM:
    case SS_ENHMETAFILE:
        return;
    case SS_OWNERDRAW: {
        DRAWITEMSTRUCT item = {};
        item.CtlType = ODT_STATIC;
        item.CtlID = static_cast<UINT>(Id());
        item.itemAction = ODA_DRAWENTIRE;
        item.itemState = IsWindowEnabled(Self()) ? 0 : ODS_DISABLED;
        item.hwndItem = Self();
        item.hDC = paint.Context();
        item.rcItem = paint.Client();
        SendMessageW(Parent(), WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
        return;
    }
    default:
        PaintShape(paint);
        return;
    }
}

} // namespace win32host
