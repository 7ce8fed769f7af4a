// The page for the commands that a user adds to a document.
#pragma once

#include <cstdint>

#include "pages/advanced/escape_sequences.h"
#include "settings/prtconfig.h"
#include "ui/prtpage.h"
#include "ui/ucombo_box.h"
#include "ui/uedit.h"
#include "ui/ulist_box.h"
#include "ui/umenu.h"
#include "ui/upop_button.h"

// One command sequence for each of four places in the document. What the escape character begins is
// coloured; the character is a setting of the printer, the sequences are the document's.
class ppAdvanced : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppAdvanced>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    bool Notify(uint16_t id, uint32_t code, NMHDR* header) override;
    void Init() override;
    bool Apply() override;
    bool SetActive() override;
    uint32_t GetCurrentCRC32() const override;
    const char* HelpTopic() override { return "/base/Advanced.html"; }

protected:
    // Replaces the selected text of the shown sequence, and puts the caret after it.
    void InsertSequence(const OString& text);

private:
    enum Control : int {
        CHOOSE_FILE = 115,
        SEQUENCES = 493,
        COMMANDS = 494,
        ESCAPE_CHARACTERS = 622,
        INSERT = 666,
        FIRST_CONTROL_CHARACTER = 4900,
        LAST_CONTROL_CHARACTER = 4931,
        DELETE_CHARACTER = 4932
    };

    // The sequence that is shown.
    OString& Current();
    void FillSequences();
    void FillEscapeCharacters();
    void InsertCharacter(char c);
    void ChooseFile();
    void Highlight();
    void SetFormatOf(TextRange range, COLORREF color);

    OString sequences_[prtconfig::USER_COMMANDS];
    char escape_ = 0; // 0 for none
    UListBox list_;
    UEdit commands_;
    UComboBox escapes_;
    UMenu menu_;
    UPopButton insert_;
    // What the next refresh brings up to date.
    bool reload_ = false;
    bool escape_changed_ = false;
    bool highlighting_ = false;
    bool protected_touched_ = false; // since the last colouring
};
