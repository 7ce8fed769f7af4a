// Development options: what the status monitor records.
#pragma once

#include "pages/development/registry_flag.h"
#include "ui/prtpage.h"

class ppDevelopmentMonitor : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppDevelopmentMonitor>;

    ppDevelopmentMonitor();

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    bool Apply() override;
    uint32_t GetCurrentCRC32() const override { return flags_.GetCRC32(0); }

private:
    RegistryFlags<4> flags_;
};
