// What a session told, for people.
#pragma once

#include "json.h"

// A heading for each window with a line for each visible control, then what was asked for and how
// the sheet ended. `told`: the command's whole answer.
void PrintForPeople(const Json& told);
