#include "arguments.h"
#include "commands.h"
#include "fault.h"

#include "emulator/answer_rules.h"
#include "emulator/emulated_printer.h"
#include "net/socket.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <thread>

namespace {

constexpr int kSendLimit = 10000;

void Send(net::Socket& client, const SpoiltAnswer& answer) {
    if (answer.bytes.empty()) return;
    if (answer.delay > 0) std::this_thread::sleep_for(std::chrono::milliseconds(answer.delay));
    const size_t packet = answer.packet ? answer.packet : answer.bytes.size();
    for (size_t at = 0; at < answer.bytes.size(); at += packet) {
        // A pause keeps the network from joining the packets again.
        if (at > 0) std::this_thread::sleep_for(std::chrono::milliseconds(1));
        const size_t size = std::min(packet, answer.bytes.size() - at);
        if (!client.Send(answer.bytes.data() + at, size, kSendLimit)) return;
    }
}

void ShowNotes(EmulatedPrinter& printer) {
    for (const std::string& note : printer.TakeNotes()) std::printf("%s\n", note.c_str());
    std::fflush(stdout);
}

void Serve(net::Socket client, EmulatedPrinter& printer, const AnswerRules& rules) {
    char bytes[4096];
    int size = 0;
    while ((size = client.Receive(bytes, sizeof bytes, -1)) > 0) {
        for (const EmulatedAnswer& answer : printer.Receive(bytes, static_cast<size_t>(size)))
            Send(client, rules.Apply(answer));
        ShowNotes(printer);
    }
    printer.Disconnect();
    ShowNotes(printer);
}

uint16_t PortFrom(const std::string& text) {
    const bool number =
        !text.empty() && text.size() <= 5 && text.find_first_not_of("0123456789") == text.npos;
    const unsigned long port = number ? std::stoul(text) : 65536;
    if (port > 65535) throw Fault("'" + text + "' is no port: a number from 0 to 65535");
    return static_cast<uint16_t>(port);
}

} // namespace

void PrinterEmulatorCommand(const Words& words) {
    const Arguments arguments(words, {"port", "answers"}, {});
    const std::string usage = "printer-emulator --port N [--answers DIR]";
    arguments.RequireCount(0, 0, usage);
    if (!arguments.Has("port")) throw UsageFault("usage: labelhost " + usage);
    const uint16_t port = PortFrom(arguments.Get("port", ""));
    const std::string folder = arguments.Get("answers", "");
    if (!folder.empty() && !std::filesystem::is_directory(folder))
        throw Fault("cannot read answers from '" + folder + "': no such folder");

    const net::Socket listener = net::Socket::Listen(port);
    if (!listener.IsOpen())
        throw Fault("cannot listen on port " + std::to_string(port) + ": it is in use");
    std::printf("listening on port %u\n", listener.Port());
    std::fflush(stdout);

    EmulatedPrinter printer;
    const AnswerRules rules(folder);
    // One host at a time, as such printers do it.
    for (;;) {
        net::Socket client = listener.Accept();
        if (client.IsOpen()) Serve(std::move(client), printer, rules);
    }
}
