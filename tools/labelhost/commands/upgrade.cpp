#include "arguments.h"
#include "commands/commands.h"
#include "fault.h"
#include "machine/driver_module.h"

#include <winddiui.h>

#include <cstdio>

void UpgradeCommand(const Words& words) {
    const Arguments arguments(words, {}, {});
    arguments.RequireCount(1, 1, "upgrade PRINTER");
    const std::string& printer = arguments[0];
    const DriverModule driver(printer);
    const auto upgrade = driver.Export<BOOL(WINAPI*)(DWORD, LPBYTE)>("DrvUpgradePrinter");

    WideString name = ToWide(printer);
    DRIVER_UPGRADE_INFO_1W info = {};
    info.pPrinterName = name.data();
    SetLastError(ERROR_SUCCESS);
    if (upgrade(1, reinterpret_cast<BYTE*>(&info))) {
        std::printf("%s: upgraded\n", printer.c_str());
        return;
    }
    const DWORD error = GetLastError();
    const std::string what = "the driver does not upgrade '" + printer + "'";
    throw error ? SystemFault(what, error) : Fault(what);
}
