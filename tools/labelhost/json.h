// JSON as the commands print it: keys in the order in which they were added.
#pragma once

#include <nlohmann/json.hpp>

using Json = nlohmann::ordered_json;

// Prints `value` on standard output, indented, followed by a line end. Text that is not valid UTF-8
// (a lone surrogate in a name, say) is shown with replacement characters.
void PrintJson(const Json& value);
