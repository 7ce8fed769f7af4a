// The dialog that edits an RFID font.
#pragma once

#include "fonts/data_font_rfid.h"
#include "ui/prtpage.h"

// Edits a copy of the UI object's edit_data_font, which is an RFID font; OK writes it back. If
// another data font has the name, the user is asked whether the edited one takes its place.
class ppRFIDFontEdit : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppRFIDFontEdit>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    bool VerifyOkay() override;
    const char* HelpTopic() override { return "/base/RFID_Font_Edit.html"; }

private:
    bool IsEPC() const;
    void FillTagTypes();
    // Everything that depends on the kind of tag.
    void ShowTag();
    void FillFormats();
    void ShowMask();
    // Takes the choice in a list. False for another control.
    bool TakeChoice(uint16_t list);

    DataFont_RFID font_;
    // What the next refresh brings up to date.
    bool tag_changed_ = false;
    bool format_changed_ = false;
};
