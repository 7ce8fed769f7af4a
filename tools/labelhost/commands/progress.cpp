#include "commands/progress.h"

#include "fault.h"

#include <algorithm>
#include <cstdio>
#include <utility>

Progress::Progress(std::string doing, size_t total, bool asked)
    : doing_(std::move(doing))
    , total_(total)
    , shown_(asked || (IsTerminal(stderr) && !IsTerminal(stdout)))
    , terminal_(IsTerminal(stderr)) {}

Progress::~Progress() {
    if (shown_ && terminal_) std::fputc('\n', stderr);
}

void Progress::Next() {
    std::fflush(stdout); // report what is done before the next one starts
    Show();
    if (Interruption::Came())
        throw Fault("interrupted: " + doing_ + ' ' + std::to_string(begun_) + " of " +
                    std::to_string(total_) + "; the same command does the rest");
    ++begun_;
}

void Progress::Failed(const std::string& what) {
    ++failed_;
    std::fprintf(stderr, "%slabelhost: %s\n", shown_ && terminal_ ? "\n" : "", what.c_str());
}

void Progress::Finish() {
    Show();
    if (failed_)
        throw Fault(std::to_string(failed_) + " of " + std::to_string(total_) +
                    " printers could not be done");
}

// A hundred lines are enough if lines cannot be overwritten.
void Progress::Show() {
    if (!shown_) return;
    const size_t step = terminal_ ? 1 : std::max<size_t>(1, total_ / 100);
    if (begun_ % step != 0 && begun_ != total_) return;
    std::fprintf(stderr, terminal_ ? "\r%s %zu of %zu" : "%s %zu of %zu\n", doing_.c_str(), begun_,
                 total_);
}
