// The command lines that the monitor gets.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

struct MonitorCommand {
    std::string verb;     // "open", "close"
    std::string printer;  // without its quotes
    std::string job_name; // may contain blanks
    uint32_t job = 0;     // 0 if not given
};

// VERB "PRINTER" [-jn JOB NAME] [-ji NUMBER]. Nothing if the verb or the quoted printer is missing.
std::optional<MonitorCommand> ParseMonitorCommand(std::string_view line);
