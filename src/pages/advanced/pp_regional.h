// The page on which the user chooses a language and units of length.
#pragma once

#include <cstdint>

#include "ui/prtpage.h"
#include "ui/ucombo_box.h"

// A new language is used when the properties are next opened, new units at once.
class ppRegional : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppRegional>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    bool Apply() override;
    uint32_t GetCurrentCRC32() const override;
    const char* HelpTopic() override { return "/base/RegionalSettings.html"; }

private:
    enum Control : int { LANGUAGES = 351, UNITS = 397, SYSTEM_SETTINGS = 740 };

    void FillLanguages();
    void FillUnits();

    uint32_t language_ = 0; // its letters, the first one in the lowest byte
    int32_t units_ = 0;     // prtlocale::Units
    UComboBox languages_;
    UComboBox unit_list_;
};
