// The fixture of tests with an emulated printer on the network that the host program prints to.
#pragma once

#include "emulator/server.h"

#include "net/socket.h"
#include "support/labelhost_test.h"

#include <string>
#include <thread>

class EmulatorTest : public Labelhost {
protected:
    EmulatorTest()
        : server_(0, AnswerRules(root()), [this](const std::string& note) { notes_ += note + ";"; })
        , thread_([this] { server_.Run(); }) {}
    ~EmulatorTest() override { StopServer(); }

    // Stops the printer and returns its notes.
    std::string StopServer() {
        if (thread_.joinable()) {
            server_.Stop();
            thread_.join();
        }
        return notes_;
    }

    std::string Port() const { return "IP_127.0.0.1:" + std::to_string(server_.Port()); }

    // Sends bytes from another host.
    void Send(const std::string& bytes) const {
        EXPECT_TRUE(net::Socket::Connect("127.0.0.1", server_.Port(), 5000)
                        .Send(bytes.data(), bytes.size(), 5000));
    }

    void Install(const std::string& printer, const std::string& port) const {
        Labelhost::Install(printer, "Valdrick X4 300 dpi", {"--port", port});
    }
    Json Query(const std::string& printer, const std::string& mask = "527") const {
        return RunJson({"query", printer, "--mask", mask});
    }

private:
    std::string notes_;
    EmulatorServer server_;
    std::thread thread_;
};
