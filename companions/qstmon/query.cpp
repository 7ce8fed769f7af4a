// Queries: a job's questions, asked one by one.
#include "qstmon/answer_store.h"
#include "qstmon/command_line.h"
#include "qstmon/conversation.h"
#include "qstmon/escape_key.h"
#include "qstmon/printer_port.h"
#include "qstmon/qstmon.h"
#include "qstmon/xpml.h"

#include <exception>

namespace {

// The values of "Query Status" in the printer's data.
enum QueryStatus : DWORD { kRunning = 1, kAnswered = 2, kUnanswered = 3 };

// Shows those who watch the printer's data how far a query has got.
void ShowProgress(const MonitoredPrinter& printer, const Conversation& conversation, DWORD status,
                  size_t current, size_t total) {
    printer.SetData(TEXT("Query Status"), status);
    printer.SetData(TEXT("Query Total"), static_cast<DWORD>(total));
    printer.SetData(TEXT("Query Current"), static_cast<DWORD>(current));
    printer.SetData(TEXT("Query Bytes Written"), conversation.bytes_written());
    printer.SetData(TEXT("Query Bytes Read"), conversation.bytes_read());
    printer.SetData(TEXT("Query Complete"), status == kRunning ? 0 : 1);
}

// True if at least one question was answered.
bool AskAll(const MonitoredPrinter& printer, Conversation& conversation,
            const std::vector<XpmlQuery>& queries) {
    bool answered = false;
    for (size_t i = 0; i < queries.size() && !conversation.IsGivenUp(); ++i) {
        ShowProgress(printer, conversation, kRunning, i + 1, queries.size());
        const std::string answer = conversation.Ask(queries[i].command);
        if (answer.empty()) continue;
        answered |= StoreAnswer(FromAnsi(queries[i].name.data(), queries[i].name.size()), answer);
    }
    ShowProgress(printer, conversation, answered ? kAnswered : kUnanswered, queries.size(),
                 queries.size());
    return answered;
}

bool RunQuery(HWND parent, std::string_view command_line) {
    const auto command = ParseMonitorCommand(command_line);
    if (!command || command->verb != "open" || command->job == 0) return false;
    const MonitoredPrinter printer(FromAnsi(command->printer.data(), command->printer.size()));
    if (!printer.IsOpen()) return false;
    const auto& port = printer.network();
    if (!port) return false;
    const std::string job = printer.JobBytes(command->job);
    const std::vector<XpmlQuery> queries = QueriesIn(job);
    if (!IsXpml(job) || queries.empty()) return false;

    Conversation conversation(port->host, port->port, ConfiguredTimeLimits(),
                              [parent] { return TakeEscapeKey(parent); });
    const bool answered = conversation.Connect() && AskAll(printer, conversation, queries);
    MarkQueryDone();
    return answered;
}

} // namespace

extern "C" int WINAPI Query(HWND parent, LPSTR command_line) {
    try {
        return command_line && RunQuery(parent, command_line) ? 1 : 0;
    } catch (const std::exception&) {
        return 0;
    }
}
