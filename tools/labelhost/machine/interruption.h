// Interruptions, and the terminals that they come from.
#pragma once

#include <cstdio>

// While this object exists, an interruption (Ctrl-C, or another request to end) is only noted; a
// second one ends the program at once. Only one object may exist at a time.
class Interruption {
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    // True if there was one since this object was made.
    static bool Came();
};

// True if a stream is a terminal, where a line can be overwritten.
bool IsTerminal(std::FILE* stream);
