// The dialog that formats, lists and erases the memories of the printer.
#pragma once

#include "ui/prtpage.h"
#include "zpl/extui.h"

class ppMemoryFormat : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppMemoryFormat>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    // Keeps the chosen memory for the next time.
    bool Apply() override;
    const char* HelpTopic() override { return "/zpl/FormatMemory.html"; }

private:
    // The letter of the chosen memory; of the first one if none is chosen, 0 if there are none.
    char Memory() const;

    char memory_ = 'E';
};
