// Development options: how long things take.
#pragma once

#include "ui/prtpage.h"
#include "ui/uedit.h"
#include "ui/upop_button.h"

// Three buttons open menus of tests. A test that was chosen runs at once, and its time is added to
// the text on the page as a line: the item's text, a tab, and the milliseconds. The page edits
// nothing.
class ppDevelopmentPerformance : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppDevelopmentPerformance>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    bool Apply() override { return true; }
    uint32_t GetCurrentCRC32() const override { return 0; }

private:
    void RunTest(uint16_t item);
    // Milliseconds. The rendering module's answer to one of its tests, from 0, and the time of one
    // of this module's own. A rendering module without such a test answers 0 or less, which is
    // shown in the same way.
    int32_t RunEscapeTest(uint32_t test);
    int32_t RunTimedTest(uint16_t item);

    UMenu menu_;
    UPopButton escape_tests_;
    UPopButton timed_tests_;
    UPopButton other_;
    UEdit output_;
};
