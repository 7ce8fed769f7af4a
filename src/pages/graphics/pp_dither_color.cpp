#include "pages/graphics/pp_dither_color.h"

namespace {

constexpr int kAdjustmentLimit = 100;
constexpr int kAdjustmentStep = 10;

// A slider, the text that shows its value, and what it edits.
const struct {
    uint16_t slider;
    uint16_t label;
    int16_t dithercfg::*value;
} kAdjustments[] = {{345, 347, &dithercfg::brightness},
                    {346, 348, &dithercfg::contrast},
                    {349, 352, &dithercfg::red},
                    {350, 353, &dithercfg::green},
                    {351, 354, &dithercfg::blue}};

const struct {
    uint16_t id;
    int16_t flag;
} kFlagBoxes[] = {
    {544, dithercfg::FLAG_MIRROR}, {545, dithercfg::FLAG_FLIP}, {546, dithercfg::FLAG_INVERT}};

} // namespace

void ppDitherColor::Init() {
    prtpage::Init();
    if (!config_) return;
    const dithercfg& settings = config_->dither;
    for (int i = 0; i < kSliders; ++i) {
        USlider& slider = sliders_[i];
        slider.Bind(this, kAdjustments[i].slider);
        slider.SetRange(-kAdjustmentLimit, kAdjustmentLimit);
        slider.SetTicFrequency(kAdjustmentStep);
        slider.SetPageSize(kAdjustmentStep);
        slider.Link(kAdjustments[i].label);
        slider.SetValue(settings.*kAdjustments[i].value);
    }
    for (const auto& box : kFlagBoxes)
        CheckDlgButton(GetWindow(), box.id,
                       settings.flags & box.flag ? BST_CHECKED : BST_UNCHECKED);
}

bool ppDitherColor::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (!config_) return true;
    dithercfg& settings = config_->dither;
    for (const auto& adjustment : kAdjustments) {
        if (adjustment.slider != id) continue;
        settings.*adjustment.value = static_cast<int16_t>(value);
        return false;
    }
    for (const auto& box : kFlagBoxes) {
        if (box.id != id || code != BN_CLICKED) continue;
        const bool checked = IsDlgButtonChecked(GetWindow(), id) == BST_CHECKED;
        settings.flags =
            static_cast<int16_t>(checked ? settings.flags | box.flag : settings.flags & ~box.flag);
        return false;
    }
    return prtpage::Command(id, code, value);
}
