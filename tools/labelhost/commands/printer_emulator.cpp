#include "arguments.h"
#include "commands/commands.h"
#include "fault.h"
#include "files.h"

#include "emulator/server.h"

#include <cstdio>
#include <filesystem>

namespace {

uint16_t PortFrom(const std::string& text) {
    const bool number =
        !text.empty() && text.size() <= 5 && text.find_first_not_of("0123456789") == text.npos;
    const unsigned long port = number ? std::stoul(text) : 65536;
    if (port > 65535) throw Fault("'" + text + "' is no port: a number from 0 to 65535");
    return static_cast<uint16_t>(port);
}

// Readers want the output while the emulator runs.
void Tell(const std::string& line) {
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

} // namespace

void PrinterEmulatorCommand(const Words& words) {
    const Arguments arguments(words, {"port", "answers"}, {});
    const std::string usage = "printer-emulator --port N [--answers DIR]";
    arguments.RequireCount(0, 0, usage);
    if (!arguments.Has("port")) throw UsageFault("usage: labelhost " + usage);
    const uint16_t port = PortFrom(arguments.Get("port", ""));
    const std::string folder = arguments.Get("answers", "");
    if (!folder.empty() && !std::filesystem::is_directory(PathOf(folder)))
        throw Fault("cannot read answers from '" + folder + "': no such folder");

    EmulatorServer server(port, AnswerRules(folder), Tell);
    if (server.Port() == 0)
        throw Fault("cannot listen on port " + std::to_string(port) + ": it is in use");
    Tell("listening on port " + std::to_string(server.Port()));
    server.Run();
}
