// Scroll bars that are windows of their own (ScrollBar). The parent moves the thumb: it is told
// what the user asks for (WM_HSCROLL, WM_VSCROLL) and sets the new position.
#include "window/control.h"
#include "window/look.h"
#include "window/notify.h"
#include "window/scroll_bars.h"

#include <algorithm>

namespace win32host {
namespace {

class ScrollBarControl : public Control {
public:
    using Control::Control;
    LRESULT Handle(UINT message, WPARAM first, LPARAM second) override;

private:
    bool IsVertical() const { return Style() & SBS_VERT; }
    int Along(POINT point) const { return IsVertical() ? point.y : point.x; }
    int Length() const;
    int ArrowSize() const;
    LRESULT SetNumbers(const SCROLLINFO& info);
    LRESULT SetRange(int least, int most);
    void MouseDown(POINT point);
    void MouseMove(POINT point);
    void MouseUp();
    void KeyDown(WPARAM key);
    void Ask(int request, int position = 0) const;
    void Paint(WPARAM context) const;

    ScrollBar bar_ = {.most = 0};
    bool pressed_ = false;
    bool dragging_ = false;
    int grip_ = 0;  // from the thumb's start to the point that is held
    int asked_ = 0; // the position where it is dragged to
};

LRESULT ScrollBarControl::Handle(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_CREATE:
        bar_.disabled = Style() & WS_DISABLED;
        return 0;
    case SBM_SETSCROLLINFO:
        return second ? SetNumbers(*reinterpret_cast<const SCROLLINFO*>(second)) : 0;
    case SBM_GETSCROLLINFO:
        if (!second) return FALSE;
        bar_.Tell(*reinterpret_cast<SCROLLINFO*>(second));
        return TRUE;
    case SBM_GETPOS:
        return bar_.position;
    case SBM_SETPOS: {
        const int before = bar_.position;
        SetNumbers({sizeof(SCROLLINFO), SIF_POS, 0, 0, 0, static_cast<int>(first), 0});
        return before;
    }
    case SBM_SETRANGE:
    case SBM_SETRANGEREDRAW:
        return SetRange(static_cast<int>(first), static_cast<int>(second));
    case SBM_GETRANGE:
        if (first) *reinterpret_cast<int*>(first) = bar_.least;
        if (second) *reinterpret_cast<int*>(second) = bar_.most;
        return 0;
    case SBM_ENABLE_ARROWS:
        bar_.disabled = first == ESB_DISABLE_BOTH;
        InvalidateRect(Self(), nullptr, FALSE);
        return TRUE;
    case WM_ENABLE:
        bar_.disabled = first == 0;
        InvalidateRect(Self(), nullptr, FALSE);
        return 0;
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        MouseDown(PointOf(second));
        return 0;
    case WM_MOUSEMOVE:
        MouseMove(PointOf(second));
        return 0;
    case WM_LBUTTONUP:
        MouseUp();
        return 0;
    case WM_KEYDOWN:
        KeyDown(first);
        return 0;
    case WM_KEYUP:
        Ask(SB_ENDSCROLL);
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

int ScrollBarControl::Length() const {
    RECT client = {};
    GetClientRect(Self(), &client);
    return IsVertical() ? client.bottom : client.right;
}

int ScrollBarControl::ArrowSize() const {
    RECT client = {};
    GetClientRect(Self(), &client);
    return std::min<int>(IsVertical() ? client.right : client.bottom, Length() / 2);
}

LRESULT ScrollBarControl::SetNumbers(const SCROLLINFO& info) {
    bar_.Take(info);
    InvalidateRect(Self(), nullptr, FALSE);
    return bar_.position;
}

LRESULT ScrollBarControl::SetRange(int least, int most) {
    const int before = bar_.position;
    SetNumbers({sizeof(SCROLLINFO), SIF_RANGE, least, most, 0, 0, 0});
    return bar_.position == before ? 0 : before;
}

void ScrollBarControl::Ask(int request, int position) const {
    SendMessageW(Parent(), IsVertical() ? WM_VSCROLL : WM_HSCROLL,
                 static_cast<WPARAM>(MAKELONG(request, position)),
                 reinterpret_cast<LPARAM>(Self()));
}

void ScrollBarControl::MouseDown(POINT point) {
    if (Style() & WS_TABSTOP) SetFocus(Self());
    if (bar_.disabled) return;
    pressed_ = true;
    SetCapture(Self());
    int start = 0;
    int end = 0;
    bar_.Thumb(Length(), ArrowSize(), start, end);
    const int along = Along(point);
    if (along < ArrowSize()) return Ask(SB_LINEUP);
    if (along >= Length() - ArrowSize()) return Ask(SB_LINEDOWN);
    if (start == end) return;
    if (along < start) return Ask(SB_PAGEUP);
    if (along >= end) return Ask(SB_PAGEDOWN);
    dragging_ = true;
    grip_ = along - start;
    asked_ = bar_.position;
}

void ScrollBarControl::MouseMove(POINT point) {
    if (!dragging_) return;
    int start = 0;
    int end = 0;
    bar_.Thumb(Length(), ArrowSize(), start, end);
    const int64_t room = Length() - 2 * ArrowSize() - (end - start);
    const int64_t last = bar_.most - std::max(bar_.page - 1, 0);
    if (room <= 0) return;
    const int64_t moved = std::clamp<int64_t>(Along(point) - grip_ - ArrowSize(), 0, room);
    const auto to = static_cast<int>(bar_.least + ((last - bar_.least) * moved + room / 2) / room);
    if (to == asked_) return;
    asked_ = to;
    Ask(SB_THUMBTRACK, to);
}

void ScrollBarControl::MouseUp() {
    if (!pressed_) return;
    pressed_ = false;
    if (GetCapture() == Self()) ReleaseCapture();
    if (dragging_) Ask(SB_THUMBPOSITION, asked_);
    dragging_ = false;
    Ask(SB_ENDSCROLL);
}

void ScrollBarControl::KeyDown(WPARAM key) {
    const struct {
        int key;
        int request;
    } requests[] = {{VK_UP, SB_LINEUP},      {VK_LEFT, SB_LINEUP},  {VK_DOWN, SB_LINEDOWN},
                    {VK_RIGHT, SB_LINEDOWN}, {VK_PRIOR, SB_PAGEUP}, {VK_NEXT, SB_PAGEDOWN},
                    {VK_HOME, SB_TOP},       {VK_END, SB_BOTTOM}};
    for (const auto& known : requests)
        if (static_cast<WPARAM>(known.key) == key) return Ask(known.request);
}

void ScrollBarControl::Paint(WPARAM context) const {
    PAINTSTRUCT paint = {};
    const HDC dc = context ? reinterpret_cast<HDC>(context) : BeginPaint(Self(), &paint);
    RECT client = {};
    GetClientRect(Self(), &client);
    int start = 0;
    int end = 0;
    bar_.Thumb(Length(), ArrowSize(), start, end);
    look::DrawScrollBar(dc, client, IsVertical(), start, end,
                        bar_.disabled ? look::kDisabled
                        : dragging_   ? look::kPressed
                                      : look::kNormal);
    if (!context) EndPaint(Self(), &paint);
}

} // namespace

void RegisterScrollBar();
void RegisterScrollBar() {
    RegisterControl<ScrollBarControl>(TEXT("ScrollBar"), CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW);
}

} // namespace win32host
