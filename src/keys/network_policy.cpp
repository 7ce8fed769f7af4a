#include "keys/network_policy.h"

#include <windows.h>

#include "keys/user_info.h"
#include "spooler/platform_flags.h"

namespace {

constexpr char kUserSharing[] = "USER:Printers/[PRINTER]/Network Sharing";
constexpr char kPrinterSharing[] = "Settings:Network Sharing";
constexpr char kLocalLevel[] = "Settings:Local Access Level";
constexpr char kNetworkLevel[] = "Settings:Network Access Level";

int DefaultLevel() {
    return winNT ? USER_LEVEL_POWER : USER_LEVEL_USER;
}

// Whether the server offers its settings. The name is new each time, so that no cache can answer.
bool ServerShares(prtreg& printer) {
    const OString name = OString("Network Sharing") << GetTickCount();
    unsigned char answer = 0;
    return printer.GetPrinterDataW(name, REG_BINARY, &answer, sizeof answer) && answer != 0;
}

} // namespace

bool NetworkPolicy::IsNetworkShared() const {
    if (!winNT) return false;
    prtreg printer(printer_);
    if (printer.IsRemote()) {
        printer.SetShadow(false);
        return printer.GetByte(kUserSharing, 1) != 0 && ServerShares(printer);
    }
    return printer.GetByte(kPrinterSharing, 1) != 0 && printer.Enable_BiDirectional_On();
}

bool NetworkPolicy::CanShareNetwork() const {
    if (!winNT) return false;
    prtreg printer(printer_);
    return printer.IsRemote() ? ServerShares(printer) : printer.Enable_BiDirectional_On();
}

void NetworkPolicy::SetNetworkSharing(bool shared) {
    prtreg printer(printer_);
    if (printer.IsRemote()) {
        printer.SetShadow(false);
        printer.SetByte(kUserSharing, shared);
    } else {
        printer.SetByte(kPrinterSharing, shared);
    }
}

int NetworkPolicy::GetAccessLevel() const {
    if (!printer_.IsRemote()) return GetLocalAccessLevel();
    return IsNetworkShared() ? GetNetworkAccessLevel() : USER_LEVEL_NONE;
}

bool NetworkPolicy::MayChange() const {
    return UserInfo().GetLevel() >= GetAccessLevel();
}

int NetworkPolicy::GetLocalAccessLevel() const {
    return prtreg(printer_).GetInt(kLocalLevel, DefaultLevel());
}

void NetworkPolicy::SetLocalAccessLevel(int level) {
    prtreg(printer_).SetInt(kLocalLevel, level);
}

int NetworkPolicy::GetNetworkAccessLevel() const {
    return prtreg(printer_).GetInt(kNetworkLevel, DefaultLevel());
}

void NetworkPolicy::SetNetworkAccessLevel(int level) {
    prtreg(printer_).SetInt(kNetworkLevel, level);
}
