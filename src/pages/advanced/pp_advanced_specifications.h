// The page that corrects the specifications of the printer's model.
#pragma once

#include <cstdint>

#include "model/driver_settings.h"
#include "ui/prtpage.h"
#include "ui/ucheck_box.h"
#include "ui/ucombo_box.h"

// The nearest resolution that can be stored, in dots per inch, and the nearest length of media, in
// micrometres.
int32_t Range_Resolution(int32_t dpi);
int32_t Range_PaperSize(int32_t microns);

// The specifications are the model's unless the user overrides them, and then those of the driver
// settings. The unprintable width can always be set, but for media in the centre it is 0.
class ppAdvancedSpecifications : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppAdvancedSpecifications>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    bool Apply() override;
    uint32_t GetCurrentCRC32() const override;
    const char* HelpTopic() override { return "/base/Advanced_PrinterSpecifications.html"; }

private:
    enum Control : int {
        UNPRINTABLE_FRAME = 502,
        UNPRINTABLE_NOTE = 503,
        UNPRINTABLE_LABEL = 504,
        UNPRINTABLE_WIDTH = 505,
        LENGTH_MIN = 514,
        WIDTH_MIN = 516,
        WIDTH_MAX = 518,
        LENGTH_MAX = 520,
        OVERRIDE = 624,
        TRACKING = 625,
        X_RESOLUTION = 626,
        Y_RESOLUTION = 627,
        PRINTABLE_WIDTH = 631,
        DEFAULT_WIDTH = 725
    };

    // Dots per inch and micrometres; the tracking as prtmodel has it.
    struct Specifications;

    Specifications OfModel() const;
    Specifications OfSettings() const;
    void Take(const Specifications& specifications);

    void Reload();
    void ShowOverride();
    void ShowValues();
    void ShowUnprintableWidth();

    bool ReadField(uint16_t id);
    static bool IsField(uint16_t id);
    void ReadUnprintableWidth();
    void ChooseOverride();

    mutable DriverSettings settings_; // reads values when they are first asked for
    int32_t unprintable_width_ = 0;   // micrometres
    bool unprintable_applies_ = true;
    UCheckBox override_;
    UComboBox tracking_;
    // What the next refresh brings up to date.
    bool unprintable_changed_ = false;
    bool override_changed_ = false;
    bool values_changed_ = false;
};
