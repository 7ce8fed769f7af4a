// How an emulated printer's answers are replaced and spoilt, for tests of those who ask.
//
// A folder holds, each optional: a file per query, named as EmulatedAnswer names it, whose bytes
// are sent instead of the printer's own answer ("HI", "HS", "HZL", ...); and a file "faults", a
// line each:
//
//     HS late 500     the answer comes 500 milliseconds after the question
//     HI short 10     only the first 10 bytes come
//     HM split 3      it comes in packets of 3 bytes
//     HH garbled      as many other bytes come
//     HB silent       nothing comes
//     * silent        "*" is every query
//
// Both are read anew for every answer, so that they can be changed while the emulator runs.
#pragma once

#include <cstddef>
#include <string>

#include "emulator/emulated_printer.h"

struct SpoiltAnswer {
    std::string bytes; // empty: nothing is sent
    int delay = 0;     // milliseconds before the first byte
    size_t packet = 0; // bytes a packet; 0 is all at once
};

class AnswerRules {
public:
    // No folder, no rules.
    explicit AnswerRules(std::string folder)
        : folder_(std::move(folder)) {}

    SpoiltAnswer Apply(const EmulatedAnswer& answer) const;

private:
    std::string folder_;
};

// Applies one line of "faults" to an answer to `query`; lines that make no sense and those for
// other queries do nothing.
void ApplyFault(const std::string& line, const std::string& query, SpoiltAnswer& answer);
