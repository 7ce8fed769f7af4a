#include "emulator/server.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace {

constexpr int kSendLimit = 10000;

void Wait(int milliseconds) {
    if (milliseconds > 0) std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

} // namespace

void EmulatorServer::Run() {
    while (!stopped_) {
        net::Socket client = listener_.Accept();
        if (client.IsOpen() && !stopped_) Serve(std::move(client));
    }
}

void EmulatorServer::Stop() {
    stopped_ = true;
    // Accept waits for a host, so pretend to be one.
    net::Socket::Connect("127.0.0.1", Port(), kSendLimit);
}

void EmulatorServer::Serve(net::Socket client) {
    char bytes[4096];
    int size = 0;
    while ((size = client.Receive(bytes, sizeof bytes, -1)) > 0) {
        for (const EmulatedAnswer& answer : printer_.Receive(bytes, static_cast<size_t>(size)))
            Send(client, rules_.Apply(answer));
        TellNotes();
    }
    printer_.Disconnect();
    TellNotes();
}

void EmulatorServer::Send(net::Socket& client, const SpoiltAnswer& answer) {
    if (answer.bytes.empty()) return;
    Wait(answer.delay);
    const size_t packet = answer.packet ? answer.packet : answer.bytes.size();
    for (size_t at = 0; at < answer.bytes.size(); at += packet) {
        // A pause keeps the network from joining the packets again.
        if (at > 0) Wait(1);
        const size_t size = std::min(packet, answer.bytes.size() - at);
        if (!client.Send(answer.bytes.data() + at, size, kSendLimit)) return;
    }
}

void EmulatorServer::TellNotes() {
    for (const std::string& note : printer_.TakeNotes()) note_(note);
}
