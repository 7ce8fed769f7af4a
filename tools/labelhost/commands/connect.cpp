// labelhost connect, labelhost disconnect: printers of other machines.
#include "arguments.h"
#include "commands/commands.h"
#include "fault.h"
#include "machine/machine.h"
#include "text.h"

#include <windows.h>
#include <winspool.h>

#include <cstdio>

namespace {

// The server's name in "\\SERVER\PRINTER", without its backslashes.
std::string ServerOf(const std::string& name) {
    const size_t end = name.rfind("\\\\", 0) == 0 ? name.find('\\', 2) : std::string::npos;
    if (end == std::string::npos || end == 2 || end + 1 == name.size())
        throw UsageFault("'" + name + "' is no printer of another machine: \\\\SERVER\\PRINTER");
    const std::string server = name.substr(2, end - 2);
    if (server.find('/') != std::string::npos || server == "." || server == "..")
        throw Fault("'" + server + "' is no name of a machine");
    return server;
}

} // namespace

void ConnectCommand(const Words& words) {
    const Arguments arguments(words, {"server"}, {});
    arguments.RequireCount(1, 1, "connect \\\\SERVER\\PRINTER [--server DIR]");
    const std::string& printer = arguments[0];
    const std::string server = ServerOf(printer);
    if (arguments.Has("server")) NameServer(server, arguments.Get("server", ""));
    if (!AddPrinterConnectionW(ToWide(printer).data()))
        throw SystemFault("cannot connect to '" + printer + "'", GetLastError());
    std::printf("connected to %s\n", printer.c_str());
}

void DisconnectCommand(const Words& words) {
    const Arguments arguments(words, {}, {});
    arguments.RequireCount(1, 1, "disconnect \\\\SERVER\\PRINTER");
    if (!DeletePrinterConnectionW(ToWide(arguments[0]).data()))
        throw SystemFault("cannot disconnect from '" + arguments[0] + "'", GetLastError());
}
