// A printer's settings as its driver writes them into a settings file.
#pragma once

#include "machine/open_settings.h"

#include <string>

// Has the driver export settings to a file or import them from one (`function` is the name of its
// export); `contents` is a sum of DAL_SETTINGS_.
void CallWithFile(const OpenSettings& settings, const char* function, const std::string& file,
                  int contents);

// Has the driver import a settings file and store the result. Throws Fault if the user may not, or
// if it cannot be stored.
void ImportSettings(const OpenSettings& settings, const std::string& file, int contents);

// The printer's current settings as the text of a settings file.
std::string ExportedSettings(const OpenSettings& settings, int contents);
