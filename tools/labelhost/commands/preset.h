// The presets of a printer.
#pragma once

#include "machine/dev_mode_bytes.h"

#include <string>

// The document settings that a preset of the printer stands for; its name matches without regard to
// case. Throws Fault when there is none of that name.
DevModeBytes PresetOf(const std::string& printer, const std::string& name);

// Gives the printer a preset of that name, in place of one that it has. Throws Fault when the name
// is none: empty, with blanks around it or with control characters in it.
void SavePreset(const std::string& printer, const std::string& name, const DevModeBytes& settings);
