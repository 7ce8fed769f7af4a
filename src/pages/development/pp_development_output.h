// Development options: which drawing calls the rendering module logs, where to, and which it skips.
#pragma once

#include "pages/development/registry_flag.h"
#include "ui/prtpage.h"

class ppDevelopmentOutput : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ppDevelopmentOutput>;

    enum ControlId : uint16_t { ADDRESS = 610, PORT = 611, STOP_COUNT = 623 };

    ppDevelopmentOutput();

    void Refresh(bool all) override;
    bool Command(uint16_t id, uint16_t code, LPARAM value) override;
    void Init() override;
    bool Apply() override;
    uint32_t GetCurrentCRC32() const override;

private:
    void SetAddress(const OString& address);

    char address_[80] = {}; // cut off to fit
    uint32_t port_ = 0;
    RegistryFlags<11> flags_;
    uint32_t stop_count_ = 0;
};
