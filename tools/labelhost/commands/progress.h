// Work on many printers, one after the other: shows the progress, and ends it between two of them.
#pragma once

#include "machine/interruption.h"

#include <cstddef>
#include <string>

// While one exists, an interruption waits for the next printer; a second one ends the program at
// once.
class Progress {
public:
    // Shows the progress, "DOING 12 of 5000", on standard error if `asked`, and also if standard
    // error is a terminal and standard output, which reports each printer, is not.
    Progress(std::string doing, size_t total, bool asked);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // To be called before each printer. Throws Fault if the work was interrupted.
    void Next();

    // Reports what went wrong with a printer; the work goes on.
    void Failed(const std::string& what);

    // To be called after the last one. Throws Fault if something went wrong with any of them.
    void Finish();

private:
    void Show();

    const std::string doing_;
    const size_t total_;
    const bool shown_;
    const bool terminal_; // so the line can be overwritten
    size_t begun_ = 0;
    size_t failed_ = 0;
    const Interruption interruption_;
};
