// The host itself notes what it is asked to open.
#include "sheet/host.h"

#include "text.h"

#include <windows.h>

#include <winreg.h>

#include <win32host/control.h>

namespace {

// Programs find out whether a system shows help by the version of its web browser.
void TellThatHelpCanBeShown() {
    constexpr const WCHAR* kBrowser = TEXT("Software\\Microsoft\\Internet Explorer");
    constexpr const WCHAR* kValue = TEXT("Version");
    constexpr WCHAR kVersion[] = TEXT("6.0");
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, kBrowser, 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr,
                        &key, nullptr) != ERROR_SUCCESS)
        return;
    if (RegQueryValueExW(key, kValue, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
        RegSetValueExW(key, kValue, 0, REG_SZ, reinterpret_cast<const BYTE*>(kVersion),
                       sizeof kVersion);
    RegCloseKey(key);
}

} // namespace

OpenedThings::OpenedThings(HMODULE /*module*/) {
    TellThatHelpCanBeShown();
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
