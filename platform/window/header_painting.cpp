// How headers look.
#include "window/control_paint.h"
#include "window/header_control.h"
#include "window/look.h"

#include <algorithm>

namespace win32host {

void HeaderControl::Paint(WPARAM context) const {
    const ControlPaint paint(Self(), context, font_);
    const HDC dc = paint.Context();
    const look::State enabled = IsWindowEnabled(Self()) ? look::kNormal : look::kDisabled;
    look::DrawHeader(dc, paint.Client(), enabled);
    for (int at : order_) {
        const Title& title = At(at);
        RECT rect = RectOf(at);
        if (rect.left >= rect.right) continue;
        look::DrawHeader(dc, rect, at == pressed_ ? look::kPressed : enabled);
        if (title.format & (HDF_SORTUP | HDF_SORTDOWN)) {
            RECT arrow = rect;
            arrow.left = std::max(rect.left, rect.right - look::Scaled(dc, 16));
            look::DrawArrow(dc, arrow,
                            title.format & HDF_SORTUP ? look::Arrow::Up : look::Arrow::Down,
                            enabled);
            rect.right = arrow.left;
        }
        rect.left += look::Scaled(dc, 6);
        rect.right -= look::Scaled(dc, 6);
        UINT format = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
        if ((title.format & HDF_JUSTIFYMASK) == HDF_RIGHT) format |= DT_RIGHT;
        if ((title.format & HDF_JUSTIFYMASK) == HDF_CENTER) format |= DT_CENTER;
        if (rect.left < rect.right) look::DrawLabel(dc, rect, title.text, format, enabled);
    }
}

} // namespace win32host
