// Words and numbers of the tool's inputs.
#pragma once

#include <cstdint>
#include <string>

// The text without blanks at its ends.
std::string Trim(const std::string& text);

// Reads a whole number; false when the text is anything else.
bool ReadNumber(const std::string& text, int32_t& number);
