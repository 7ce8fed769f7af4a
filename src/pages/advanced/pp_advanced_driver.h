// The page for a document's option of the driver and its copies.
#pragma once

#include <cstdint>

#include "ui/prtpage.h"
#include "ui/ucheck_box.h"

// The option and its length are the document's; whether the limit of copies counts is the
// printer's.
class ppAdvancedDriver : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppAdvancedDriver>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    bool Apply() override;
    uint32_t GetCurrentCRC32() const override;
    const char* HelpTopic() override { return "/base/Advanced_DriverOptions.html"; }

private:
    enum Control : int {
        COPIES = 315,
        OPTION = 499,
        OPTION_LENGTH_LABEL = 500,
        OPTION_LENGTH = 501,
        NO_COPIES_LIMIT = 509
    };

    int32_t MostCopies() const;

    bool option_ = false;
    int32_t option_length_ = 0; // micrometres
    int16_t copies_ = 1;
    bool no_copies_limit_ = false;
    UCheckBox option_box_;
    UCheckBox no_limit_box_;
    // What the next refresh brings up to date.
    bool option_changed_ = false;
    bool length_changed_ = false;
    bool copies_changed_ = false;
};
