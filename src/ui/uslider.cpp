#include "ui/uslider.h"

#include <commctrl.h>

#include "ui/udialog.h"

void USlider::SetRange(int32_t least, int32_t most) {
    Send(TBM_SETRANGEMIN, FALSE, least / step_);
    Send(TBM_SETRANGEMAX, TRUE, most / step_);
}

void USlider::SetTicFrequency(int32_t distance) {
    Send(TBM_SETTICFREQ, static_cast<WPARAM>(distance / step_));
}

void USlider::SetPageSize(int32_t distance) {
    Send(TBM_SETPAGESIZE, 0, distance / step_);
}

int32_t USlider::GetValue() const {
    return static_cast<int32_t>(Send(TBM_GETPOS)) * step_;
}

void USlider::SetValue(int32_t value) {
    Send(TBM_SETPOS, TRUE, value / step_);
    OnUpdate();
}

void USlider::OnUpdate() {
    if (!GetDialog()) return;
    const int32_t value = GetValue();
    for (int i = 0; i < linked_.GetSize(); ++i)
        SetTextOfWindow(GetDialog()->GetItem(linked_[i]), FormatInt(value));
    SendCommand(0, value);
}
