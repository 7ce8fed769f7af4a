#include "window/track_bar.h"

#include "window/notify.h"
#include "window/text_measure.h"

#include <algorithm>
#include <utility>

namespace win32host {
namespace {

constexpr UINT_PTR kPageTimer = 1;
constexpr UINT kPageDelay = 250;

} // namespace

LRESULT TrackBar::Handle(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_CREATE:
        thumb_length_ = TextMeasure(Self(), nullptr).Scaled(21);
        PlaceTicks();
        return 0;
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS;
    case WM_KEYDOWN:
        return OnKeyDown(first);
    case WM_KEYUP:
        if (first >= VK_PRIOR && first <= VK_DOWN) Tell(TB_ENDTRACK);
        return DefWindowProcW(Self(), message, first, second);
    case WM_LBUTTONDOWN:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
        return HandleMouse(message, second);
    case WM_TIMER:
        if (held_ == Held::Channel) PageTowards(pointer_);
        return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
    case WM_ENABLE:
        InvalidateRect(Self(), nullptr, FALSE);
        return 0;
    case WM_ERASEBKGND:
        return TRUE; // everything is painted at once
    case WM_PAINT:
    case WM_PRINTCLIENT:
        Paint(first);
        return 0;
    default:
        return HandleNumbers(message, first, second);
    }
}

LRESULT TrackBar::HandleNumbers(UINT message, WPARAM first, LPARAM second) {
    const int number = static_cast<int>(second);
    switch (message) {
    case TBM_GETPOS:
        return position_;
    case TBM_SETPOS:
        SetPosition(number);
        return 0;
    case TBM_GETRANGEMIN:
        return low_;
    case TBM_GETRANGEMAX:
        return high_;
    case TBM_SETRANGE:
        SetRange(static_cast<int16_t>(LOWORD(second)), static_cast<int16_t>(HIWORD(second)),
                 first != 0);
        return 0;
    case TBM_SETRANGEMIN:
        SetRange(number, std::max(number, high_), first != 0);
        return 0;
    case TBM_SETRANGEMAX:
        SetRange(std::min(number, low_), number, first != 0);
        return 0;
    case TBM_GETLINESIZE:
        return line_;
    case TBM_SETLINESIZE:
        return std::exchange(line_, number);
    case TBM_GETPAGESIZE:
        return PageSize();
    case TBM_SETPAGESIZE: {
        const int before = PageSize();
        page_ = number;
        return before;
    }
    case TBM_SETSEL:
        selection_start_ = static_cast<int16_t>(LOWORD(second));
        selection_end_ = static_cast<int16_t>(HIWORD(second));
        return 0;
    case TBM_SETSELSTART:
        selection_start_ = number;
        return 0;
    case TBM_SETSELEND:
        selection_end_ = number;
        return 0;
    case TBM_GETSELSTART:
        return selection_start_;
    case TBM_GETSELEND:
        return selection_end_;
    case TBM_CLEARSEL:
        selection_start_ = selection_end_ = 0;
        return 0;
    case TBM_GETTHUMBRECT:
        if (second) *reinterpret_cast<RECT*>(second) = ThumbRect();
        return 0;
    case TBM_GETCHANNELRECT:
        if (second) *reinterpret_cast<RECT*>(second) = ChannelRect();
        return 0;
    case TBM_GETTHUMBLENGTH:
        return thumb_length_;
    case TBM_SETTHUMBLENGTH:
        // No window is larger.
        if (Style() & TBS_FIXEDLENGTH)
            thumb_length_ = static_cast<int>(std::min<WPARAM>(first, INT16_MAX));
        InvalidateRect(Self(), nullptr, FALSE);
        return 0;
    case TBM_SETBUDDY:
        return reinterpret_cast<LRESULT>(
            std::exchange(buddies_[first ? 0 : 1], reinterpret_cast<HWND>(second)));
    case TBM_GETBUDDY:
        return reinterpret_cast<LRESULT>(buddies_[first ? 0 : 1]);
    default:
        return HandleTicks(message, first, second);
    }
}

LRESULT TrackBar::HandleTicks(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case TBM_SETTICFREQ:
        tick_distance_ = static_cast<int>(first);
        PlaceTicks();
        return 0;
    case TBM_GETNUMTICS:
        return Style() & TBS_NOTICKS ? 0 : static_cast<LRESULT>(ticks_.size()) + 2;
    case TBM_GETTIC:
        return first < ticks_.size() ? ticks_[first] : -1;
    case TBM_SETTIC:
        if (second < low_ || second > high_) return FALSE;
        ticks_.push_back(static_cast<int>(second));
        InvalidateRect(Self(), nullptr, FALSE);
        return TRUE;
    case TBM_CLEARTICS:
        ticks_.clear();
        if (first) InvalidateRect(Self(), nullptr, FALSE);
        return 0;
    default:
        return DefWindowProcW(Self(), message, first, second);
    }
}

int TrackBar::PageSize() const {
    if (page_ >= 0) return page_;
    return static_cast<int>(std::max<int64_t>(1, (int64_t{high_} - low_) / 5));
}

void TrackBar::SetPosition(int64_t position) {
    const auto limited = static_cast<int>(std::clamp<int64_t>(position, low_, high_));
    if (limited == position_) return;
    position_ = limited;
    InvalidateRect(Self(), nullptr, FALSE);
}

void TrackBar::SetRange(int low, int high, bool redraw) {
    low_ = low;
    high_ = std::max(low, high);
    SetPosition(position_);
    PlaceTicks();
    if (redraw) InvalidateRect(Self(), nullptr, FALSE);
}

void TrackBar::PlaceTicks() {
    if (!(Style() & TBS_AUTOTICKS) || tick_distance_ < 1) return;
    ticks_.clear();
    // More than there are pixels would be one line.
    constexpr int64_t kMost = 10000;
    if ((int64_t{high_} - low_) / tick_distance_ > kMost) return;
    const int64_t first = static_cast<int64_t>(low_) + tick_distance_;
    for (int64_t at = first; at < high_; at += tick_distance_)
        ticks_.push_back(static_cast<int>(at));
    InvalidateRect(Self(), nullptr, FALSE);
}

void TrackBar::Tell(int code, int position) const {
    SendMessageW(Parent(), IsVertical() ? WM_VSCROLL : WM_HSCROLL,
                 static_cast<WPARAM>(MAKELONG(code, position)), reinterpret_cast<LPARAM>(Self()));
}

void TrackBar::MoveTo(int64_t position, int code) {
    const int before = position_;
    SetPosition(position);
    if (position_ != before) Tell(code, code == TB_THUMBTRACK ? position_ : 0);
}

LRESULT TrackBar::OnKeyDown(WPARAM key) {
    const int64_t from = position_;
    switch (key) {
    case VK_LEFT:
    case VK_UP:
        MoveTo(from - line_, TB_LINEUP);
        return 0;
    case VK_RIGHT:
    case VK_DOWN:
        MoveTo(from + line_, TB_LINEDOWN);
        return 0;
    case VK_PRIOR:
        MoveTo(from - PageSize(), TB_PAGEUP);
        return 0;
    case VK_NEXT:
        MoveTo(from + PageSize(), TB_PAGEDOWN);
        return 0;
    case VK_HOME:
        MoveTo(low_, TB_TOP);
        return 0;
    case VK_END:
        MoveTo(high_, TB_BOTTOM);
        return 0;
    default:
        return DefWindowProcW(Self(), WM_KEYDOWN, key, 0);
    }
}

void TrackBar::PageTowards(int along) {
    const RECT thumb = ThumbRect();
    const LONG start = IsVertical() ? thumb.top : thumb.left;
    const LONG end = IsVertical() ? thumb.bottom : thumb.right;
    if (along < start) MoveTo(int64_t{position_} - PageSize(), TB_PAGEUP);
    if (along >= end) MoveTo(int64_t{position_} + PageSize(), TB_PAGEDOWN);
}

LRESULT TrackBar::HandleMouse(UINT message, LPARAM second) {
    pointer_ = message == WM_CAPTURECHANGED ? pointer_ : Along(second);
    switch (message) {
    case WM_LBUTTONDOWN:
        SetFocus(Self());
        SetCapture(Self());
        if (Holds(ThumbRect(), PointOf(second))) {
            held_ = Held::Thumb;
            grip_ = pointer_ - ThumbCentre();
            InvalidateRect(Self(), nullptr, FALSE);
            return 0;
        }
        held_ = Held::Channel;
        SetTimer(Self(), kPageTimer, kPageDelay, nullptr);
        PageTowards(pointer_);
        return 0;
    case WM_MOUSEMOVE:
        if (held_ == Held::Thumb) MoveTo(PositionAt(pointer_ - grip_), TB_THUMBTRACK);
        return 0;
    case WM_LBUTTONUP:
        if (held_ == Held::Thumb) Tell(TB_THUMBPOSITION, position_);
        if (GetCapture() == Self()) ReleaseCapture();
        return 0;
    default: // WM_CAPTURECHANGED
        EndMouse();
        return 0;
    }
}

void TrackBar::EndMouse() {
    if (held_ == Held::Nothing) return;
    held_ = Held::Nothing;
    KillTimer(Self(), kPageTimer);
    InvalidateRect(Self(), nullptr, FALSE);
    Tell(TB_ENDTRACK);
    NotifyParent(Self(), NM_RELEASEDCAPTURE);
}

void RegisterTrackBar() {
    RegisterControl<TrackBar>(TRACKBAR_CLASSW, CS_HREDRAW | CS_VREDRAW);
}

} // namespace win32host
