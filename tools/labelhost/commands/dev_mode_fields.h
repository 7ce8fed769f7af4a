// Shows and sets the fields of a DEVMODE by name.
#pragma once

#include "json.h"
#include "machine/dev_mode_bytes.h"

#include <string>

// The fields that the public part holds, under their SDK names; texts as texts.
Json PublicFields(const DevModeBytes& settings);
// The fields that the driver's configuration holds; null if there is no configuration. The user
// commands are a list, the dithering settings an object of their own.
Json ConfigurationFields(const DevModeBytes& settings);

// Sets a field to a number (decimal or 0x...) or text: one of the public part by its SDK name,
// whose bit in dmFields is then set too, or one of the configuration ("print_speed", "user.0",
// "dither.algorithm"). Throws Fault for an unknown field, one that the settings do not hold, and a
// value that does not fit.
void SetField(DevModeBytes& settings, const std::string& name, const std::string& value);

// A public field's number in words: a length in millimetres, or the meaning of a choice. Empty if
// there is nothing to say.
std::string MeaningOf(const std::string& field, int64_t value);
// A field's bit in dmFields; 0 if it has none.
DWORD BitOf(const std::string& field);
