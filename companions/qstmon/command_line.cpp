#include "qstmon/command_line.h"

std::optional<MonitorCommand> ParseMonitorCommand(std::string_view line) {
    constexpr std::string_view kName = " -jn ", kNumber = " -ji ";
    const size_t open = line.find('"');
    const size_t close = open == line.npos ? line.npos : line.find('"', open + 1);
    const size_t verb_end = line.find(' ');
    if (close == line.npos || verb_end == line.npos || verb_end == 0 || verb_end > open)
        return std::nullopt;
    MonitorCommand command;
    command.verb = line.substr(0, verb_end);
    command.printer = line.substr(open + 1, close - open - 1);
    std::string_view rest = line.substr(close + 1);
    // The name may contain anything; the number is the last word.
    if (const size_t at = rest.rfind(kNumber); at != rest.npos) {
        for (const char c : rest.substr(at + kNumber.size())) {
            if (c < '0' || c > '9' || command.job > 99999999) return std::nullopt;
            command.job = command.job * 10 + static_cast<uint32_t>(c - '0');
        }
        rest = rest.substr(0, at);
    }
    if (rest.substr(0, kName.size()) == kName) command.job_name = rest.substr(kName.size());
    return command;
}
