#include "zpl/extconfig.h"

#include <cstring>

#include "core/numbers.h"
#include "zpl/extmodel.h"

namespace {

int32_t Limited(int32_t value, int32_t min, int32_t max) {
    prtconfig::validate_range(value, min, max);
    return value;
}

// An offset in micrometres within limits in dots.
int32_t LimitedOffset(int32_t microns, int32_t min, int32_t max, int dpi) {
    if (dpi == 0) return microns;
    return Limited(microns, muldiv64s(min, 25400, dpi), muldiv64s(max, 25400, dpi));
}

} // namespace

// The framework knows that there is a configuration, but not what a printer language needs in it.
void prtconfig::Reset(prtconfig* config, const prtmodel* model) {
    if (config) static_cast<extconfig*>(config)->Reset(model);
}

int prtconfig::GetTotalSize() {
    return sizeof(extconfig) + sizeof(endconfig);
}

void extconfig::Reset(const prtmodel* model) {
    *this = extconfig();
    prtconfig::Reset(model);
    length = sizeof *this;
    version = VERSION;
    media_type = -1;
    media_tracking = -1;
    print_mode = PRINT_AS_SET;
    if (model) print_speed = slew_speed = backfeed_speed = GetDefaultSpeed(*model->GetCustomData());
    absolute_darkness = 12;
}

void extconfig::Validate(const prtmodel* model) {
    prtconfig::Validate(model);
    const CustomData& data = *model->GetCustomData();
    const int dpi = model->GetXResolution();
    const auto has = [&data](uint32_t flag) { return (data.flags & flag) != 0; };
    const auto clear = [this](int flag) {
        setting_flags = static_cast<uint16_t>(setting_flags & ~flag);
    };

    if (!has(CustomData::CUTTER)) {
        cut_variant = 0;
        if (print_mode == PRINT_CUTTER) print_mode = PRINT_TEAR_OFF;
        clear(SETTING_PAUSE_AFTER_CUT);
    }
    if (print_mode == PRINT_REWIND && AsZpl(*model).IsPPLZ()) print_mode = PRINT_AS_SET;
    if (has(CustomData::TEAR_OFF))
        tear_off = LimitedOffset(tear_off, data.tear_off_min, data.tear_off_max, dpi);
    stock_count = Limited(stock_count, 1, MOST_LABELS);
    label_top = LimitedOffset(label_top, data.label_top_min, data.label_top_max, dpi);
    absolute_darkness = Limited(absolute_darkness, 0, 30);
    relative_darkness = Limited(relative_darkness, -30, 30);
    if (!has(CustomData::ABSOLUTE_DARKNESS)) clear(SETTING_ABSOLUTE_DARKNESS);

    if (has(CustomData::BACKFEED_PERCENTAGE)) {
        backfeed_percentage = Limited(backfeed_percentage, 0, 100);
    } else if (backfeed >= BACKFEED_PERCENTAGE) {
        backfeed = 0;
        backfeed_percentage = 0;
    }

    // Here the last mark in the table counts.
    int32_t fastest = 0;
    int32_t usual = 0;
    for (const CustomData::Speed& speed : data.speeds) {
        if (speed.value != 0) fastest = speed.value;
        if (speed.is_default) usual = speed.value;
    }
    const auto valid_speed = [fastest, usual](int32_t speed) {
        speed = Limited(speed, 0, fastest);
        return speed ? speed : usual;
    };
    print_speed = valid_speed(print_speed);
    slew_speed = valid_speed(slew_speed);
    backfeed_speed = valid_speed(backfeed_speed);

    if (has(CustomData::TRANSFER_ONLY) && media_type == 0) media_type = 1;
    if (has(CustomData::DIRECT_ONLY) && media_type == 1) media_type = 0;
    if (option < 0 || option > (has(CustomData::EXTENDED_OPTIONS) ? 4 : 2)) option = 0;
}

int extconfig::GetDarkness() const {
    return IsAbsoluteDarkness() ? absolute_darkness : relative_darkness;
}

void extconfig::SetDarkness(int darkness) {
    if (IsAbsoluteDarkness())
        absolute_darkness = darkness;
    else
        relative_darkness = darkness;
}

void extconfig::SetAbsoluteDarkness(bool absolute) {
    const int others = setting_flags & ~SETTING_ABSOLUTE_DARKNESS;
    setting_flags = static_cast<uint16_t>(others | (absolute ? SETTING_ABSOLUTE_DARKNESS : 0));
}

void extconfig::SettlePrintMode() {
    if (print_mode >= PRINT_PEEL_OFF && print_mode <= PRINT_APPLICATOR)
        setting_flags = static_cast<uint16_t>(setting_flags & ~SETTING_TEAR_OFF);
    const bool each_label =
        print_mode == PRINT_CUTTER ? cut_variant != 1 && cut_variant != 2 : stock_option == 1;
    if (each_label) stock_count = 1;
}

bool extconfig::get_pauseaftercut() const {
    return print_mode == PRINT_CUTTER && (setting_flags & SETTING_PAUSE_AFTER_CUT);
}

OString extconfig::FindSpdLetter(int32_t speed, const CustomData& data) {
    for (const CustomData::Speed& entry : data.speeds) {
        if (entry.value != speed) continue;
        char letter[sizeof entry.letter + 1] = {};
        std::memcpy(letter, entry.letter, sizeof entry.letter);
        return OString(letter);
    }
    return OString();
}

int32_t extconfig::GetDefaultSpeed(const CustomData& data) {
    for (const CustomData::Speed& entry : data.speeds)
        if (entry.is_default) return entry.value;
    return 0;
}

const char* extconfig::mediafeed(int action) {
    switch (action) {
    case 0:
        return "F";
    case 2:
        return "L";
    case 3:
        return "C";
    default:
        return "N";
    }
}

const extconfig* extconfig::get_cfg(const DEVMODEW* dev_mode) {
    const prtconfig* config = prtconfig::get_cfg(dev_mode);
    return config && config->length >= sizeof(extconfig) ? static_cast<const extconfig*>(config)
                                                         : nullptr;
}

extconfig* extconfig::get_cfg(DEVMODEW* dev_mode) {
    return const_cast<extconfig*>(get_cfg(static_cast<const DEVMODEW*>(dev_mode)));
}
