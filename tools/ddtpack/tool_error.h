// A fault that the user can correct: one line that says what was wrong with which input.
#pragma once

#include <stdexcept>

struct ToolError : std::runtime_error {
    using std::runtime_error::runtime_error;
};
