// The page for a symbology's own options, inside the editor of a bar code font.
#pragma once

#include "pages/fonts/symbology_lists.h"
#include "ui/prtpage.h"

// Works directly on the UI object's edit_data_font as it was when the page was made, which is a bar
// code font and outlives the page. The page stays with the symbology that the font had then.
class ppBarFontSymbology : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppBarFontSymbology>;

    // The name of the template for a symbology.
    static OString TemplateOf(int symbology);

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    const char* HelpTopic() override { return "/base/BarCode_Font_Edit.html"; } // the editor's

private:
    void ShowTitle();
    void ShowBoxes();
    void ShowCheckDigit();
    void TakeChoice(uint16_t list, int value);
    void TakeAztecChoice(uint16_t list, int value);
    void TakeFunction();
    bool TakeBox(uint16_t box);

    DataFont_BarCode* font_ = nullptr;
    SymbologyLists lists_;
    uint16_t changed_ = 0; // the control whose change the next refresh follows
};
