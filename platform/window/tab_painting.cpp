// How tab controls look.
#include "window/control_paint.h"
#include "window/look.h"
#include "window/tab_control.h"

namespace win32host {

void TabControl::Paint(WPARAM context) {
    Layout();
    const ControlPaint paint(Self(), context, font_);
    const HDC dc = paint.Context();
    FillRect(dc, &paint.Client(), GetSysColorBrush(COLOR_BTNFACE));
    RECT body = paint.Client();
    body.top = TabsHeight() + 2;
    look::DrawTabBody(dc, body);
    for (int at = 0; at < static_cast<int>(tabs_.size()); ++at)
        if (at != selected_) PaintTab(paint, at);
    if (Has(selected_)) PaintTab(paint, selected_);
}

// The selected tab is a little larger than its place and covers the edges of its neighbours.
void TabControl::PaintTab(const ControlPaint& paint, int at) const {
    const HDC dc = paint.Context();
    const Tab& tab = tabs_[static_cast<size_t>(at)];
    const bool selected = at == selected_;
    look::State state = selected ? look::kSelected : look::kNormal;
    if (!IsWindowEnabled(Self())) state |= look::kDisabled;
    RECT rect = tab.rect;
    if (selected) {
        rect.left -= 2;
        rect.right += 2;
        rect.top -= 2;
        rect.bottom += 1;
    }
    look::DrawTab(dc, rect, state);
    rect = tab.rect;
    if (selected) rect.top -= 1;
    look::DrawLabel(dc, rect, tab.text, DT_CENTER | DT_VCENTER | DT_SINGLELINE, state);
    if (!selected || GetFocus() != Self()) return;
    const RECT focus = {rect.left + 2, rect.top + 3, rect.right - 2, rect.bottom - 2};
    look::DrawFocus(dc, focus);
}

} // namespace win32host
