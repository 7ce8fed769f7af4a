// The presets of a printer.
#pragma once

#include "machine/dev_mode_bytes.h"

#include <string>

// The document settings of a preset of the printer; its name matches without regard to case. Throws
// Fault if there is no such preset.
DevModeBytes PresetOf(const std::string& printer, const std::string& name);

// Gives the printer a preset of that name, replacing an existing one. Throws Fault if the name is
// invalid: empty, with blanks around it or with control characters in it.
void SavePreset(const std::string& printer, const std::string& name, const DevModeBytes& settings);
