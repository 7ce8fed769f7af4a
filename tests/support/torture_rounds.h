// The number of rounds of a test in the torture suites.
#pragma once

#include <cstdlib>

// `bounded` rounds in scripts/test. scripts/torture sets the number through ZPLUI_TORTURE.
inline int TortureRounds(int bounded) {
    const char* rounds = std::getenv("ZPLUI_TORTURE");
    const int asked = rounds ? std::atoi(rounds) : 0;
    return asked > 0 ? asked : bounded;
}
