// A text helper that the tools share.
#pragma once

#include <string>

// The text without blanks at its ends.
inline std::string Trim(const std::string& text) {
    const char* blanks = " \t\r\n";
    const size_t first = text.find_first_not_of(blanks);
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}
