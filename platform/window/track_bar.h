// Track bars: sliders with a thumb on a range of numbers.
#pragma once

#include "window/control.h"

#include <commctrl.h>

#include <vector>

namespace win32host {

class TrackBar : public Control {
public:
    using Control::Control;

    LRESULT Handle(UINT message, WPARAM first, LPARAM second) override;

private:
    bool IsVertical() const { return (Style() & TBS_VERT) != 0; }
    LRESULT HandleNumbers(UINT message, WPARAM first, LPARAM second);
    LRESULT HandleTicks(UINT message, WPARAM first, LPARAM second);
    LRESULT HandleMouse(UINT message, LPARAM second);
    LRESULT OnKeyDown(WPARAM key);

    int PageSize() const;
    void SetPosition(int64_t position);
    void SetRange(int low, int high, bool redraw);
    void PlaceTicks();
    // Moves to a position, and tells the parent with a TB_ code if that changes something.
    void MoveTo(int64_t position, int code);
    void Tell(int code, int position = 0) const;
    // One page towards a point along the bar, unless the thumb is there already.
    void PageTowards(int along);
    void EndMouse();

    // Lengths and places along the bar, and RECTs of parts, in pixels of the client area.
    int Along(LPARAM point) const;
    int ThumbCentre() const;
    int PlaceOf(int position) const;
    int PositionAt(int along) const;
    RECT Turned(int from, int to, int across_from, int across_to) const;
    RECT ThumbRect() const;
    RECT ChannelRect() const;
    int AcrossStart() const;
    void Paint(WPARAM context);
    void PaintTicks(HDC dc) const;

    enum class Held { Nothing, Thumb, Channel };

    int low_ = 0;
    int high_ = 100;
    int position_ = 0;
    int line_ = 1;
    int page_ = -1; // as TBM_SETPAGESIZE set it
    int selection_start_ = 0;
    int selection_end_ = 0;
    int tick_distance_ = 1;
    std::vector<int> ticks_; // between the ends
    int thumb_length_ = 0;   // across the bar
    HWND buddies_[2] = {};
    Held held_ = Held::Nothing;
    int grip_ = 0; // from the thumb's centre to where it is held
    int pointer_ = 0;
};

} // namespace win32host
