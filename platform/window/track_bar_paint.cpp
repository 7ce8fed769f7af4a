// Where the parts of track bars are, and how they look.
#include "window/control_paint.h"
#include "window/look.h"
#include "window/notify.h"
#include "window/track_bar.h"

#include <algorithm>

namespace win32host {
namespace {

// Everything is in proportion to the thumb's length, which is 21 pixels at 96 dots per inch.
constexpr int kUsualLength = 21;
constexpr int kThumbWidth = 11;
constexpr int kInset = 8;  // of the channel, at each end
constexpr int kMargin = 2; // beside the thumb, where there are no ticks
constexpr int kTickGap = 2;
constexpr int kTickLength = 4;

} // namespace

int TrackBar::Along(LPARAM point) const {
    return IsVertical() ? PointOf(point).y : PointOf(point).x;
}

int TrackBar::PlaceOf(int position) const {
    const RECT channel = ChannelRect();
    const int start = IsVertical() ? channel.top : channel.left;
    const int end = IsVertical() ? channel.bottom : channel.right;
    const int width = kThumbWidth * thumb_length_ / kUsualLength;
    const int64_t room = std::max(0, end - start - width);
    const int64_t range = int64_t{high_} - low_;
    const int64_t moved = range > 0 ? (room * (int64_t{position} - low_) + range / 2) / range : 0;
    return start + width / 2 + static_cast<int>(moved);
}

int TrackBar::ThumbCentre() const {
    return PlaceOf(position_);
}

int TrackBar::PositionAt(int along) const {
    const int64_t first = PlaceOf(low_);
    const int64_t room = PlaceOf(high_) - first;
    if (room <= 0) return low_;
    const int64_t range = int64_t{high_} - low_;
    const int64_t moved = std::clamp<int64_t>(along - first, 0, room);
    return static_cast<int>(low_ + (moved * range + room / 2) / room);
}

RECT TrackBar::Turned(int from, int to, int across_from, int across_to) const {
    if (IsVertical()) return {across_from, from, across_to, to};
    return {from, across_from, to, across_to};
}

int TrackBar::AcrossStart() const {
    RECT client;
    GetClientRect(Self(), &client);
    const int room = IsVertical() ? client.right : client.bottom;
    const int margin = kMargin * thumb_length_ / kUsualLength;
    const int ticks = (kTickGap + kTickLength) * thumb_length_ / kUsualLength;
    const DWORD style = Style();
    if (style & TBS_BOTH) return (room - thumb_length_) / 2;
    if (style & TBS_TOP && !(style & TBS_NOTICKS)) return margin + ticks;
    return margin;
}

RECT TrackBar::ThumbRect() const {
    const int width = kThumbWidth * thumb_length_ / kUsualLength;
    const int start = ThumbCentre() - width / 2;
    return Turned(start, start + width, AcrossStart(), AcrossStart() + thumb_length_);
}

RECT TrackBar::ChannelRect() const {
    RECT client;
    GetClientRect(Self(), &client);
    const int inset = kInset * thumb_length_ / kUsualLength;
    const int length = IsVertical() ? client.bottom : client.right;
    const int thickness = std::max(2, 4 * thumb_length_ / kUsualLength);
    const int across = AcrossStart() + (thumb_length_ - thickness) / 2;
    return Turned(inset, std::max(inset, length - inset), across, across + thickness);
}

void TrackBar::PaintTicks(HDC dc) const {
    const DWORD style = Style();
    if (style & TBS_NOTICKS) return;
    const look::State state = IsWindowEnabled(Self()) ? look::kNormal : look::kDisabled;
    const int gap = kTickGap * thumb_length_ / kUsualLength;
    const int length = kTickLength * thumb_length_ / kUsualLength;
    const auto tick = [&](int position, int across, int to) {
        const int along = PlaceOf(position);
        const RECT line = Turned(along, along, across, to);
        look::DrawTick(dc, {line.left, line.top}, {line.right, line.bottom}, state);
    };
    const auto all = [&](int across, int to) {
        tick(low_, across, to);
        for (int position : ticks_) tick(position, across, to);
        tick(high_, across, to);
    };
    const int start = AcrossStart();
    if (style & (TBS_TOP | TBS_BOTH)) all(start - gap - length, start - gap);
    if (style & TBS_BOTH || !(style & TBS_TOP))
        all(start + thumb_length_ + gap, start + thumb_length_ + gap + length);
}

void TrackBar::Paint(WPARAM context) {
    const ControlPaint paint(Self(), context, nullptr);
    const HDC dc = paint.Context();
    look::State state = IsWindowEnabled(Self()) ? look::kNormal : look::kDisabled;
    paint.FillBackground(WM_CTLCOLORSTATIC);
    look::DrawTrack(dc, ChannelRect(), state);
    PaintTicks(dc);
    if (held_ == Held::Thumb) state |= look::kPressed;
    if (GetFocus() == Self()) state |= look::kFocused;
    if (!(Style() & TBS_NOTHUMB)) look::DrawThumb(dc, ThumbRect(), state);
    if (state & look::kFocused) look::DrawFocus(dc, paint.Client());
}

} // namespace win32host
