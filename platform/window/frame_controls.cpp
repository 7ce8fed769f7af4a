// DrawFrameControl, over the look of controls.
#include "window/look.h"

extern "C" BOOL WINAPI DrawFrameControl(HDC dc, LPRECT rect, UINT type, UINT flags) {
    using namespace win32host;
    if (!rect) return FALSE;
    look::State state = look::kNormal;
    if (flags & DFCS_INACTIVE) state |= look::kDisabled;
    if (flags & DFCS_PUSHED) state |= look::kPressed;
    if (flags & DFCS_CHECKED) state |= look::kChecked;
    constexpr look::Arrow kArrows[] = {look::Arrow::Up, look::Arrow::Down, look::Arrow::Left,
                                       look::Arrow::Right};
    const UINT kind = flags & 0xFF;
    switch (type) {
    case DFC_BUTTON:
        if (kind & DFCS_BUTTONPUSH)
            look::DrawPushButton(dc, *rect, state);
        else if (kind & DFCS_BUTTONRADIO)
            look::DrawRadioMark(dc, *rect, state);
        else
            look::DrawCheckMark(dc, *rect, state);
        return TRUE;
    case DFC_SCROLL:
        if (kind > DFCS_SCROLLCOMBOBOX || kind == DFCS_SCROLLCOMBOBOX - 1) return FALSE;
        look::DrawSpinButton(
            dc, *rect, kind == DFCS_SCROLLCOMBOBOX ? look::Arrow::Down : kArrows[kind], state);
        return TRUE;
    default: // title bars and menus are drawn by the window system alone
        return FALSE;
    }
}
