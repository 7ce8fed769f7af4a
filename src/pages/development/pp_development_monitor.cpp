#include "pages/development/pp_development_monitor.h"

namespace {

constexpr RegistryFlag kMonitorFlags[] = {{"GLOBAL:Development/Monitor Log API Calls", 651},
                                          {"GLOBAL:Development/Monitor Save Write Data", 652},
                                          {"GLOBAL:Development/Monitor Save Read Data", 646},
                                          {"GLOBAL:Development/Monitor Save Status Command", 647}};

} // namespace

ppDevelopmentMonitor::ppDevelopmentMonitor()
    : flags_(kMonitorFlags) {}

void ppDevelopmentMonitor::Init() {
    prtpage::Init();
    flags_.Read(registry_);
}

void ppDevelopmentMonitor::Refresh(bool all) {
    if (all) flags_.ShowIn(GetWindow());
}

bool ppDevelopmentMonitor::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (code == BN_CLICKED && flags_.TakeFrom(GetWindow(), id)) return false;
    return prtpage::Command(id, code, value);
}

bool ppDevelopmentMonitor::Apply() {
    flags_.Write(registry_);
    return prtpage::Apply();
}
