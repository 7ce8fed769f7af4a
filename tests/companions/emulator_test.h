// The fixture of tests with an emulated printer on the network that the host program prints to.
#pragma once

#include "emulator/server.h"

#include "net/socket.h"
#include "support/host_test.h"
#include "support/program.h"

#include <nlohmann/json.hpp>

#include <string>
#include <thread>
#include <vector>

using Json = nlohmann::json;

class EmulatorTest : public HostTest {
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

    ProgramResult Run(std::vector<std::string> words) const {
        words.insert(words.begin(), {"--root", root()});
        return RunProgram("labelhost", words);
    }
    void Install(const std::string& printer, const std::string& port) const {
        const ProgramResult result =
            Run({"install", printer, "--model", "Valdrick X4 300 dpi", "--port", port});
        ASSERT_EQ(result.status, 0) << result.errors;
    }
    Json Query(const std::string& printer, const std::string& mask = "527") const {
        const ProgramResult result = Run({"query", printer, "--mask", mask, "--json"});
        EXPECT_EQ(result.status, 0) << result.errors;
        return Json::parse(result.output, nullptr, false);
    }

private:
    std::string notes_;
    EmulatorServer server_;
    std::thread thread_;
};
