// Rules that replace and spoil an emulated printer's answers, for tests of the programs that ask.
//
// A folder may hold a file for each query, named as EmulatedAnswer names it ("HI", "HS", "HZL",
// ...), whose bytes are sent instead of the printer's own answer, and a file "faults" with lines
// like these:
//
//     HS late 500     the answer comes 500 milliseconds after the question
//     HI short 10     only the first 10 bytes come
//     HM split 3      it comes in packets of 3 bytes
//     HH garbled      the same number of other bytes comes
//     HB silent       nothing comes
//     * silent        "*" is every query
//
// Both are read again for every answer, so they can be changed while the emulator runs.
#pragma once

#include <cstddef>
#include <string>

#include "emulator/emulated_printer.h"

struct SpoiltAnswer {
    std::string bytes; // empty: nothing is sent
    int delay = 0;     // milliseconds before the first byte
    size_t packet = 0; // bytes per packet; 0 is all at once
};

class AnswerRules {
public:
    // An empty name means no rules.
    explicit AnswerRules(std::string folder)
        : folder_(std::move(folder)) {}

    SpoiltAnswer Apply(const EmulatedAnswer& answer) const;

private:
    std::string folder_;
};

// Applies one line of "faults" to an answer to `query`. Lines that make no sense, or are for other
// queries, do nothing.
void ApplyFault(const std::string& line, const std::string& query, SpoiltAnswer& answer);
