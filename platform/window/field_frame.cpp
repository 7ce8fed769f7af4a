#include "window/field_frame.h"

#include "window/look.h"
#include "window/scroll_bars.h"

namespace win32host {

void PaintFieldFrame(HWND field, bool focused) {
    const HDC dc = GetWindowDC(field);
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(field, GWL_STYLE));
    const auto extended = static_cast<DWORD>(GetWindowLongPtrW(field, GWL_EXSTYLE));
    if (style & WS_BORDER || extended & (WS_EX_CLIENTEDGE | WS_EX_STATICEDGE)) {
        look::State state = focused ? look::kFocused : look::kNormal;
        if (style & WS_DISABLED) state |= look::kDisabled;
        RECT rect = {};
        GetWindowRect(field, &rect);
        rect = {0, 0, rect.right - rect.left, rect.bottom - rect.top};
        // A border of several pixels belongs to the field but for the outermost line.
        RECT client = {};
        GetClientRect(field, &client);
        POINT origin = {};
        RECT whole = {};
        GetWindowRect(field, &whole);
        ClientToScreen(field, &origin);
        const int inset = origin.x - whole.left;
        const int line = look::FieldBorder(dc);
        for (int i = line; i < inset; ++i) {
            const RECT ring = {i, i, rect.right - i, rect.bottom - i};
            const HBRUSH brush = CreateSolidBrush(look::FieldColor(state));
            FrameRect(dc, &ring, brush);
            DeleteObject(brush);
        }
        look::DrawFieldBorder(dc, rect, state);
    }
    DrawScrollBars(field, dc);
    ReleaseDC(field, dc);
}

} // namespace win32host
