// The dialog for what the printer does by itself: after errors, at power-up, when its head is
// closed.
#pragma once

#include "ui/prtpage.h"

// The settings reach the printer with the next job that carries its configuration.
class ppPrinterOptions : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppPrinterOptions>;

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    bool Apply() override;
    const char* HelpTopic() override { return "/zpl/PrinterOptions.html"; }

private:
    void FillFeeds(int list, int32_t selected);

    bool reprint_ = true;
    bool sends_feeds_ = false;
    int32_t power_up_feed_ = 1;
    int32_t head_close_feed_ = 1;
};
