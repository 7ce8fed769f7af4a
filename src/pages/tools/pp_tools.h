// The page for what the printer can be told to do.
#pragma once

#include "ui/prtpage.h"
#include "ui/upop_button.h"

// Three buttons open menus of the actions that are offered for the printer as it is set up; others
// open sheets and dialogs.
class ppTools : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppTools>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    const char* HelpTopic() override { return "/base/Tools.html"; }

    // Fills a button's menu with those actions of a list that are offered; the list ends with
    // kEnd, and kSeparator separates items. The button of an empty menu cannot be used.
    void FillActionMenu(UPopButton& button, const int16_t* actions);
    // Whether the user may use an action here: it is offered, and not kept for administrators.
    bool PrinterActionAllowed(printer_action action);

    enum : int16_t { kEnd = 0, kSeparator = -1 };

private:
    UPopButton print_;
    UPopButton action_;
    UPopButton configure_;
};
