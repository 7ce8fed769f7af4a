#include "arguments.h"
#include "commands/commands.h"
#include "fault.h"
#include "json.h"
#include "machine/driver_module.h"

#include <cstdio>

void EventCommand(const Words& words) {
    const Arguments arguments(words, {}, {"json"});
    arguments.RequireCount(2, 2, "event PRINTER N");
    const std::string& printer = arguments[0];
    int64_t event = 0;
    if (!ToNumber(arguments[1], event) || event < 0 || event > INT32_MAX)
        throw UsageFault("'" + arguments[1] + "' is no event's number");

    const DriverModule driver(printer);
    const auto raise = driver.Export<int(WINAPI*)(HANDLE, HDC, int, ULONG, PVOID, ULONG, PVOID)>(
        "DrvDocumentEvent");
    const OpenedPrinter opened(printer, PRINTER_ACCESS_USE);
    const int result =
        raise(opened.handle(), nullptr, static_cast<int>(event), 0, nullptr, 0, nullptr);
    if (arguments.Has("json"))
        PrintJson({{"printer", printer}, {"event", event}, {"result", result}});
    else
        std::printf("%s: event %s answered with %d\n", printer.c_str(), arguments[1].c_str(),
                    result);
}
