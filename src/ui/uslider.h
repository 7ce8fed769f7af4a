// Track bars.
#pragma once

#include <cstdint>

#include "core/oarray.h"
#include "ui/ucontrol.h"

// A track bar whose positions are multiples of a step: value = position * step. Whenever the value
// changes it is shown in the linked controls, and the dialog gets a command with the track bar's
// identifier, code 0 and the value in place of the window.
class USlider : public UControl {
public:
    // At least 1; to be set first.
    void SetStep(int32_t step) { step_ = step > 0 ? step : 1; }
    // Values, like everything here.
    void SetRange(int32_t least, int32_t most);
    void SetTicFrequency(int32_t distance);
    void SetPageSize(int32_t distance);

    int32_t GetValue() const;
    void SetValue(int32_t value);

    // Adds a control of the dialog that shows the value.
    void Link(int id) { linked_.Add(id); }

    void OnUpdate() override;

private:
    int32_t step_ = 1;
    OTypedArray<int> linked_;
};
