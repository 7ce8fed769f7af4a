// labelhost connect, labelhost disconnect: printers of other machines.
#include "arguments.h"
#include "commands.h"
#include "fault.h"
#include "text.h"

#include <windows.h>
#include <winspool.h>

#include <win32host/control.h>

#include <cstdio>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

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

// Has the name `server` lead to another root folder, as a name service does.
void NameServer(const std::string& server, const std::string& folder) {
    std::error_code error;
    const fs::path root = fs::canonical(folder, error);
    if (error || !fs::exists(root / "registry.db", error))
        throw Fault("'" + folder + "' is no machine's root folder");
    const fs::path link = fs::path(win32host::Root()) / "servers" / server;
    fs::create_directories(link.parent_path(), error);
    if (fs::exists(fs::symlink_status(link, error))) {
        if (fs::equivalent(link, root, error)) return;
        throw Fault("'" + link.string() + "' is another machine already");
    }
    fs::create_directory_symlink(root, link, error);
    if (error) throw Fault("cannot make '" + link.string() + "': " + error.message());
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
