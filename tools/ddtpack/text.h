// Words and numbers of the tool's inputs.
#pragma once

#include <cstdint>
#include <string>

#include "common/trim.h"

// Reads a whole number. False if the text is anything else.
bool ReadNumber(const std::string& text, int32_t& number);
