// Development options: which fonts programs are offered.
#pragma once

#include "pages/development/registry_flag.h"
#include "ui/prtpage.h"
#include "ui/upop_button.h"

class ppDevelopment : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppDevelopment>;

    ppDevelopment();

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    // Makes every process build its model records again, even if no switch has changed.
    bool Apply() override;
    uint32_t GetCurrentCRC32() const override { return flags_.GetCRC32(0); }

private:
    RegistryFlags<7> flags_;
    UMenu menu_;
    UPopButton button_;
};
