// Asking a printer over the network.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "net/socket.h"

// Waiting times in milliseconds.
struct TimeLimits {
    int connect = 5000;
    int answer = 3000; // for the first byte of an answer
    int quiet = 500;   // between its bytes, if it does not say where it ends
};

class Conversation {
public:
    // `gives_up` may be empty. Once it has answered true, nothing waits any longer.
    Conversation(std::string host, uint16_t port, const TimeLimits& limits,
                 net::Socket::GivesUp gives_up = {})
        : host_(std::move(host))
        , port_(port)
        , limits_(limits)
        , gives_up_(std::move(gives_up)) {}
    Conversation(const Conversation&) = delete;
    Conversation& operator=(const Conversation&) = delete;

    // True if the printer accepts the connection. Ask connects by itself.
    bool Connect();
    // True after the user has given up. Nothing more is then asked.
    bool IsGivenUp() const { return given_up_; }

    // Sends a command and collects its answer, at most 1 MB. Answers what came in time, which is
    // half an answer if the printer stops in the middle, and nothing if nothing came. The
    // connection is then given up, so that late bytes are not taken for the answer to the next
    // question.
    std::string Ask(std::string_view command);

    uint32_t bytes_written() const { return bytes_written_; }
    uint32_t bytes_read() const { return bytes_read_; }

private:
    const std::string host_;
    const uint16_t port_;
    const TimeLimits limits_;
    const net::Socket::GivesUp gives_up_;
    bool given_up_ = false;
    net::Socket socket_;
    uint32_t bytes_written_ = 0;
    uint32_t bytes_read_ = 0;
};

// True if `answer`, received so far, is complete: an answer that starts with STX ends with ETX,
// carriage return, line feed, and the host status has three such texts. Other answers do not say
// where they end.
bool IsCompleteAnswer(std::string_view command, std::string_view answer);
