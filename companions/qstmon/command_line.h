// The command lines that the monitor is given.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

struct MonitorCommand {
    std::string verb;     // "open", "close"
    std::string printer;  // without its quotes
    std::string job_name; // blanks in it are its own
    uint32_t job = 0;     // 0 when there is none
};

// VERB "PRINTER" [-jn JOB NAME] [-ji NUMBER]. Nothing when there is no verb or no quoted printer.
std::optional<MonitorCommand> ParseMonitorCommand(std::string_view line);
