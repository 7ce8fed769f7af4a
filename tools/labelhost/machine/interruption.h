// Interruptions, and the terminals that they come from.
#pragma once

#include <cstdio>

// While it exists an interruption (Ctrl-C, or another way of asking a program to end) is only
// noted; a second one ends the program at once. There is one at a time.
class Interruption {
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    // Whether there was one since this object was made.
    static bool Came();
};

// Whether a stream is a terminal, where a line can be written over.
bool IsTerminal(std::FILE* stream);
