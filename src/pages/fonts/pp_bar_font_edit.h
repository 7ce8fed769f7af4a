// The dialog that edits a bar code font.
#pragma once

#include "fonts/data_font_bar_code.h"
#include "model/model_records.h"
#include "ui/prtpage.h"

// Edits a copy of the UI object's edit_data_font, which is a bar code font; OK writes it back. If
// another data font has the name, the user is asked whether the edited one takes its place.
//
// The symbology's own options are on a page inside the dialog (ppBarFontSymbology), which another
// one replaces when the user chooses another symbology.
class ppBarFontEdit : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppBarFontEdit>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    bool VerifyOkay() override;
    const char* HelpTopic() override { return "/base/BarCode_Font_Edit.html"; }

private:
    // What the printer offers of the font's symbology.
    KVSymbologyData Offer() const;
    void FillSymbologies();
    void FillRotations();
    void FillWidths();
    // Everything that depends on the symbology.
    void ShowSymbology();
    void ShowWidth();
    void FillRatios();
    void FillHumanReadable();
    void ShowOptions();
    // Takes the choice in a list. False for another control.
    bool TakeChoice(uint16_t list);

    DataFont_BarCode font_;
    HWND options_ = nullptr; // the page inside
    // What the next refresh brings up to date.
    bool symbology_changed_ = false;
    bool width_changed_ = false;
};
