#include "qstmon/conversation.h"

#include <chrono>

namespace {

constexpr std::string_view kEnd = "\x03\r\n";
constexpr size_t kLongestAnswer = 1 << 20;
// An answer that comes in slowly may take this many times the limit for its first byte.
constexpr int kLongestTime = 10;

} // namespace

bool IsCompleteAnswer(std::string_view command, std::string_view answer) {
    if (answer.empty() || answer[0] != '\x02' || answer.size() < kEnd.size() ||
        answer.substr(answer.size() - kEnd.size()) != kEnd)
        return false;
    const size_t wanted = command == "~HS" ? 3 : 1;
    size_t ends = 0;
    for (size_t at = answer.find(kEnd); at != answer.npos; at = answer.find(kEnd, at + 1)) ++ends;
    return ends >= wanted;
}

bool Conversation::Connect() {
    if (socket_.IsOpen() || given_up_) return socket_.IsOpen();
    net::Socket::GivesUp asks;
    if (gives_up_) asks = [this] { return given_up_ = given_up_ || gives_up_(); };
    socket_ = net::Socket::Connect(host_, port_, limits_.connect, asks);
    return socket_.IsOpen();
}

std::string Conversation::Ask(std::string_view command) {
    using Clock = std::chrono::steady_clock;
    std::string answer;
    if (!Connect()) return answer;
    bool complete = false;
    if (socket_.Send(command.data(), command.size(), limits_.answer)) {
        bytes_written_ += static_cast<uint32_t>(command.size());
        const auto end = Clock::now() + std::chrono::milliseconds(limits_.answer) * kLongestTime;
        char piece[4096];
        while (!complete && answer.size() < kLongestAnswer && Clock::now() < end) {
            const int size = socket_.Receive(piece, sizeof piece,
                                             answer.empty() ? limits_.answer : limits_.quiet);
            if (size <= 0) break;
            answer.append(piece, static_cast<size_t>(size));
            complete = IsCompleteAnswer(command, answer);
        }
    }
    bytes_read_ += static_cast<uint32_t>(answer.size());
    // More of the answer may still be on its way.
    if (!complete) socket_ = {};
    return answer;
}
