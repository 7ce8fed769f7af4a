// The device capabilities of a printer, as its driver answers them.
#pragma once

#include "json.h"

#include <string>

// All of them in the form that "capabilities --json" prints. Throws Fault if there is no such
// printer.
Json AllCapabilities(const std::string& printer);
