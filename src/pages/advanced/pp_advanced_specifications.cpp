#include "pages/advanced/pp_advanced_specifications.h"

#include <algorithm>

#include "core/crc.h"
#include "locale/text_numbers.h"
#include "model/prtmodel.h"
#include "pages/page_setup/field_values.h"
#include "ui/prtui.h"

namespace {

constexpr char kUnprintableWidth[] = "Settings:Unprintable Width";
constexpr char kSpecifications[] = "Settings:Specifications";

enum Tracking : int32_t { kRightTracked = 0, kLeftTracked = 1, kCentreTracked = 2 };

} // namespace

int32_t Range_Resolution(int32_t dpi) {
    return fitrange(dpi, 24, 9600);
}

int32_t Range_PaperSize(int32_t microns) {
    return fitrange(microns, 1000, 3048000);
}

struct ppAdvancedSpecifications::Specifications {
    int32_t x_resolution;
    int32_t y_resolution;
    int32_t printable_width;
    int32_t tracking;
    int32_t width_min;
    int32_t width_max;
    int32_t length_min;
    int32_t length_max;

    int32_t LargestUnprintableWidth() const { return std::max(0, width_max - printable_width); }

    // Brings them into their ranges, and what is part of something larger below that.
    void Limit() {
        x_resolution = Range_Resolution(x_resolution);
        y_resolution = Range_Resolution(y_resolution);
        for (int32_t* const length :
             {&printable_width, &width_min, &width_max, &length_min, &length_max})
            *length = Range_PaperSize(*length);
        width_min = std::min(width_min, width_max);
        length_min = std::min(length_min, length_max);
        printable_width = std::min(printable_width, width_max);
    }
};

ppAdvancedSpecifications::Specifications ppAdvancedSpecifications::OfModel() const {
    const prtmodel& model = *GetModel();
    return {model.GetXResolution(),
            model.GetYResolution(),
            model.GetPrintableWidth().Microns(),
            model.GetTracking(),
            model.GetPaperWidthMin().Microns(),
            model.GetPaperWidthMax().Microns(),
            model.GetPaperLengthMin().Microns(),
            model.GetPaperLengthMax().Microns()};
}

ppAdvancedSpecifications::Specifications ppAdvancedSpecifications::OfSettings() const {
    return {settings_.GetXResolution(),    settings_.GetYResolution(),
            settings_.GetPrintableWidth(), settings_.GetTracking(),
            settings_.GetPaperWidthMin(),  settings_.GetPaperWidthMax(),
            settings_.GetPaperLengthMin(), settings_.GetPaperLengthMax()};
}

void ppAdvancedSpecifications::Take(const Specifications& specifications) {
    settings_.SetXResolution(specifications.x_resolution);
    settings_.SetYResolution(specifications.y_resolution);
    settings_.SetPrintableWidth(specifications.printable_width);
    settings_.SetTracking(specifications.tracking);
    settings_.SetPaperWidthMin(specifications.width_min);
    settings_.SetPaperWidthMax(specifications.width_max);
    settings_.SetPaperLengthMin(specifications.length_min);
    settings_.SetPaperLengthMax(specifications.length_max);
}

void ppAdvancedSpecifications::Init() {
    prtpage::Init();
    settings_.Load(registry_);
    override_.Bind(this, OVERRIDE);
    tracking_.Bind(this, TRACKING);
}

// ---- What the page shows ------------------------------------------------------------------------

void ppAdvancedSpecifications::Refresh(bool all) {
    if (all) Reload();
    const bool show_values = all || override_changed_ || values_changed_;
    if (all || override_changed_) ShowOverride();
    if (show_values) ShowValues();
    if (all || unprintable_changed_) ShowUnprintableWidth();
    if (IsRestricted()) WM_EnableAll(false, 0, 0);
}

void ppAdvancedSpecifications::Reload() {
    settings_.Load(registry_);
    const int32_t width = GetModel()->GetUnprintableWidth().Microns();
    unprintable_width_ =
        static_cast<int32_t>(registry_.GetDWORD(kUnprintableWidth, static_cast<uint32_t>(width)));
    tracking_.ResetContent();
    tracking_.AddString(GetString(TEXT_LEFT_TRACKED), kLeftTracked);
    tracking_.AddString(GetString(TEXT_CENTRE_TRACKED), kCentreTracked);
    tracking_.AddString(GetString(TEXT_RIGHT_TRACKED), kRightTracked);
}

void ppAdvancedSpecifications::ShowOverride() {
    const bool on = settings_.OverrideSpecifications();
    override_.Check(on);
    for (const int field : {X_RESOLUTION, Y_RESOLUTION, PRINTABLE_WIDTH, WIDTH_MIN, WIDTH_MAX,
                            LENGTH_MIN, LENGTH_MAX})
        EM_SetReadOnly(field, !on);
    tracking_.Enable(on);
    override_changed_ = false;
}

void ppAdvancedSpecifications::ShowValues() {
    Specifications shown = OfModel();
    if (settings_.OverrideSpecifications()) {
        shown = OfSettings();
        shown.Limit();
    }
    unprintable_applies_ = shown.tracking != kCentreTracked;
    unprintable_width_ =
        unprintable_applies_ ? fitrange(unprintable_width_, 0, shown.LargestUnprintableWidth()) : 0;
    EM_SetInt(X_RESOLUTION, shown.x_resolution);
    EM_SetInt(Y_RESOLUTION, shown.y_resolution);
    EM_SetMicrons(PRINTABLE_WIDTH, shown.printable_width);
    tracking_.SetCurSelData(shown.tracking);
    EM_SetMicrons(WIDTH_MIN, shown.width_min);
    EM_SetMicrons(WIDTH_MAX, shown.width_max);
    EM_SetMicrons(LENGTH_MIN, shown.length_min);
    EM_SetMicrons(LENGTH_MAX, shown.length_max);
    unprintable_changed_ = true;
    values_changed_ = false;
}

void ppAdvancedSpecifications::ShowUnprintableWidth() {
    for (const int id :
         {UNPRINTABLE_FRAME, UNPRINTABLE_NOTE, UNPRINTABLE_LABEL, UNPRINTABLE_WIDTH, DEFAULT_WIDTH})
        WM_Enable(id, unprintable_applies_);
    EM_SetText(UNPRINTABLE_WIDTH,
               unprintable_applies_ ? microns_to_string(unprintable_width_) : OString());
    unprintable_changed_ = false;
}

// ---- The user's acts ----------------------------------------------------------------------------

bool ppAdvancedSpecifications::IsField(uint16_t id) {
    switch (id) {
    case X_RESOLUTION:
    case Y_RESOLUTION:
    case PRINTABLE_WIDTH:
    case WIDTH_MIN:
    case WIDTH_MAX:
    case LENGTH_MIN:
    case LENGTH_MAX:
        return true;
    default:
        return false;
    }
}

bool ppAdvancedSpecifications::ReadField(uint16_t id) {
    switch (id) {
    case X_RESOLUTION:
        settings_.SetXResolution(Range_Resolution(EM_GetInt(id)));
        return true;
    case Y_RESOLUTION:
        settings_.SetYResolution(Range_Resolution(EM_GetInt(id)));
        return true;
    case PRINTABLE_WIDTH:
        settings_.SetPrintableWidth(Range_PaperSize(EM_GetMicrons(id)));
        return true;
    case WIDTH_MIN:
        settings_.SetPaperWidthMin(Range_PaperSize(EM_GetMicrons(id)));
        return true;
    case WIDTH_MAX:
        settings_.SetPaperWidthMax(Range_PaperSize(EM_GetMicrons(id)));
        return true;
    case LENGTH_MIN:
        settings_.SetPaperLengthMin(Range_PaperSize(EM_GetMicrons(id)));
        return true;
    case LENGTH_MAX:
        settings_.SetPaperLengthMax(Range_PaperSize(EM_GetMicrons(id)));
        return true;
    case UNPRINTABLE_WIDTH:
        ReadUnprintableWidth();
        return true;
    default:
        return false;
    }
}

void ppAdvancedSpecifications::ReadUnprintableWidth() {
    const Specifications used = settings_.OverrideSpecifications() ? OfSettings() : OfModel();
    unprintable_width_ =
        fitrange(EM_GetMicrons(UNPRINTABLE_WIDTH), 0, used.LargestUnprintableWidth());
}

bool ppAdvancedSpecifications::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (code == EN_UPDATE && ReadField(id)) return false;
    if (code == EN_KILLFOCUS && IsField(id)) {
        values_changed_ = true;
        return false;
    }
    if (code == EN_KILLFOCUS && id == UNPRINTABLE_WIDTH) {
        unprintable_changed_ = true;
        return false;
    }
    if (code == CBN_SELCHANGE && id == TRACKING) {
        settings_.SetTracking(static_cast<int32_t>(tracking_.GetCurSelData()));
        return false;
    }
    if (code == BN_CLICKED && id == DEFAULT_WIDTH) {
        unprintable_width_ = GetModel()->GetUnprintableWidthDefault().Microns();
        unprintable_changed_ = true;
        return false;
    }
    if (code == BN_CLICKED && id == OVERRIDE) {
        ChooseOverride();
        return false;
    }
    return prtpage::Command(id, code, value);
}

void ppAdvancedSpecifications::ChooseOverride() {
    override_changed_ = true;
    if (!override_.IsChecked()) {
        settings_.OverrideSpecifications(false);
        values_changed_ = true;
        return;
    }
    OString question = GetString(TEXT_SPECIFICATIONS_WARNING);
    question << "\n\n" << GetString(TEXT_OVERRIDE_QUESTION);
    if (Message(question, GetString(TEXT_SPECIFICATIONS), MB_OKCANCEL | MB_ICONEXCLAMATION) != IDOK)
        return;
    Take(OfModel());
    settings_.OverrideSpecifications(true);
}

// ---- Storing ------------------------------------------------------------------------------------

bool ppAdvancedSpecifications::Apply() {
    registry_.ForgetFailures();
    registry_.SetDWORD(kUnprintableWidth, static_cast<uint32_t>(unprintable_width_));
    settings_.Save(registry_);
    // Values that do not count are not kept.
    if (!settings_.OverrideSpecifications()) registry_.Delete(kSpecifications, false);
    GetModel()->FlushDataCache();
    values_changed_ = true; // the model has others now
    // Users who may not change the printer only looked.
    if (CheckChanged() && (registry_.HasFailed() || settings_.HasFailed())) {
        ReportNotStored(GetString(TEXT_SPECIFICATIONS));
        return false;
    }
    return prtpage::Apply();
}

uint32_t ppAdvancedSpecifications::GetCurrentCRC32() const {
    CRC32_Calculator checksum(0);
    const bool on = settings_.OverrideSpecifications();
    checksum.CRC32(static_cast<char>(on));
    if (on) {
        const Specifications specifications = OfSettings();
        for (const int32_t number :
             {specifications.x_resolution, specifications.y_resolution,
              specifications.printable_width, specifications.tracking, specifications.width_min,
              specifications.width_max, specifications.length_min, specifications.length_max})
            checksum.CRC32(number);
    }
    return checksum.CRC32(unprintable_width_);
}
