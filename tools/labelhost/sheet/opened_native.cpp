// The host itself notes what it is asked to open.
#include "sheet/host.h"

#include "text.h"

#include <win32host/control.h>

OpenedThings::OpenedThings(HMODULE /*module*/) {
    win32host::TakeSystemActs();
}

Json OpenedThings::Told() const {
    constexpr const char* kKinds[] = {"open", "run", "help", "folder"};
    Json told = Json::array();
    for (const win32host::SystemAct& act : win32host::TakeSystemActs())
        told.push_back({{"kind", kKinds[act.kind]},
                        {"what", ToUtf8(act.what.data(), act.what.size())},
                        {"parameters", ToUtf8(act.parameters.data(), act.parameters.size())}});
    return told;
}
