// Work on many printers, one after the other: how far it is, and its end between two of them.
#pragma once

#include "machine/interruption.h"

#include <cstddef>
#include <string>

// While one exists an interruption waits for the next printer; a second one ends the program at
// once.
class Progress {
public:
    // How far the work is shows on standard error, "DOING 12 of 5000", when `asked`, and also when
    // standard error is a terminal and standard output, which tells of each printer, is not.
    Progress(std::string doing, size_t total, bool asked);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // Comes before each printer. Throws Fault when the work was interrupted.
    void Next();

    // Says what went wrong with a printer; the work goes on.
    void Failed(const std::string& what);

    // Comes after the last one. Throws Fault when something went wrong with any of them.
    void Finish();

private:
    void Show();

    const std::string doing_;
    const size_t total_;
    const bool shown_;
    const bool terminal_; // the line is written over
    size_t begun_ = 0;
    size_t failed_ = 0;
    const Interruption interruption_;
};
