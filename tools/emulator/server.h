// An emulated printer on the network.
#pragma once

#include <atomic>
#include <functional>
#include <string>

#include "emulator/answer_rules.h"
#include "emulator/emulated_printer.h"
#include "net/socket.h"

// Listens on this machine's loopback address and serves one host at a time, as real printers do.
class EmulatorServer {
public:
    // `port` 0 means any free one. `note` gets one line for everything that happens.
    EmulatorServer(uint16_t port, AnswerRules rules, std::function<void(const std::string&)> note)
        : listener_(net::Socket::Listen(port))
        , rules_(std::move(rules))
        , note_(std::move(note)) {}

    // The port it listens on; 0 if the wanted one is in use.
    uint16_t Port() const { return listener_.Port(); }

    // Serves hosts until somebody stops it.
    void Run();

    // Makes Run end once the host that it serves has gone. May be called from any thread.
    void Stop();

private:
    void Serve(net::Socket client);
    static void Send(net::Socket& client, const SpoiltAnswer& answer);
    void TellNotes();

    const net::Socket listener_;
    const AnswerRules rules_;
    const std::function<void(const std::string&)> note_;
    std::atomic<bool> stopped_ = false;
    EmulatedPrinter printer_;
};
