// The dialog for what office programs need to be offered the printer's fonts.
#pragma once

#include "core/ostring_array.h"
#include "model/driver_settings.h"
#include "ui/prtpage.h"
#include "ui/ucheck_box.h"
#include "ui/ulist_view.h"

// The selected rows of its list are the additional code pages.
class ppOfficeCompatibility : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppOfficeCompatibility>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    bool Apply() override;
    const char* HelpTopic() override { return "/base/OfficeCompatibility.html"; }

protected:
    // Adds a row: the number, the characters, and for the code pages that are known the suffix of
    // their fonts' names and their languages.
    void AddCodePage(int code_page);

private:
    enum Control : int { BAR_FONTS = 510, CODE_PAGES = 691 };

    DriverSettings settings_;
    OStringArray code_pages_; // as stored: decimal numbers
    UListView list_;
    UCheckBox bar_fonts_;
};
