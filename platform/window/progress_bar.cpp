// Progress bars.
#include "window/control.h"
#include "window/control_paint.h"
#include "window/look.h"

#include <commctrl.h>

#include <algorithm>
#include <tuple>
#include <utility>

namespace win32host {
namespace {

class ProgressBar : public Control {
public:
    using Control::Control;

    LRESULT Handle(UINT message, WPARAM first, LPARAM second) override {
        switch (message) {
        case PBM_SETRANGE:
            return SetRange(LOWORD(second), HIWORD(second));
        case PBM_SETRANGE32:
            return SetRange(static_cast<int>(first), static_cast<int>(second));
        case PBM_GETRANGE:
            if (auto* range = reinterpret_cast<PBRANGE*>(second)) *range = {low_, high_};
            return first ? low_ : high_;
        case PBM_SETPOS:
            return MoveTo(static_cast<int>(first));
        case PBM_DELTAPOS:
            return MoveTo(int64_t{position_} + static_cast<int>(first));
        case PBM_STEPIT:
            return Step();
        case PBM_SETSTEP:
            return std::exchange(step_, static_cast<int>(first));
        case PBM_GETPOS:
            return position_;
        case WM_ERASEBKGND:
            return TRUE; // the bar covers everything
        case WM_PAINT:
        case WM_PRINTCLIENT:
            Paint(first);
            return 0;
        default:
            return DefWindowProcW(Self(), message, first, second);
        }
    }

private:
    LRESULT SetRange(int low, int high) {
        const LONG before = MAKELONG(low_, high_);
        std::tie(low_, high_) = std::minmax(low, high);
        MoveTo(position_);
        InvalidateRect(Self(), nullptr, FALSE);
        return before;
    }

    int MoveTo(int64_t position) {
        const int before = position_;
        position_ = static_cast<int>(std::clamp<int64_t>(position, low_, high_));
        if (position_ != before) InvalidateRect(Self(), nullptr, FALSE);
        return before;
    }

    int Step() {
        int64_t position = int64_t{position_} + step_;
        const int64_t range = int64_t{high_} - low_;
        if (range > 0 && position > high_) position = low_ + (position - high_) % range;
        if (range > 0 && position < low_) position = high_ - (low_ - position) % range;
        return MoveTo(position);
    }

    void Paint(WPARAM context) const {
        const ControlPaint paint(Self(), context, nullptr);
        // Ranges of more than 31 bits are shown all the same.
        const int64_t whole = int64_t{high_} - low_;
        const int64_t part = int64_t{position_} - low_;
        const int64_t scale = whole / INT32_MAX + 1;
        look::DrawProgress(paint.Context(), paint.Client(), static_cast<int>(part / scale),
                           static_cast<int>(whole / scale));
    }

    int low_ = 0;
    int high_ = 100;
    int position_ = 0;
    int step_ = 10;
};

} // namespace

void RegisterProgressBar() {
    RegisterControl<ProgressBar>(PROGRESS_CLASSW, CS_HREDRAW | CS_VREDRAW);
}

} // namespace win32host
