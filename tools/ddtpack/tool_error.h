// A fault that the user can put right: one line that names what was wrong and with which input.
#pragma once

#include <stdexcept>

struct ToolError : std::runtime_error {
    using std::runtime_error::runtime_error;
};
