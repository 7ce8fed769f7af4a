// The fields of a DEVMODE by name: shown and set.
#pragma once

#include "json.h"
#include "machine/dev_mode_bytes.h"

#include <string>

// The fields that the public part holds, under their SDK names; texts as texts.
Json PublicFields(const DevModeBytes& settings);
// The fields that the driver's configuration holds; null when there is none. The user commands are
// a list, the dithering settings an object of their own.
Json ConfigurationFields(const DevModeBytes& settings);

// Sets a field to a number (decimal or 0x...) or text: one of the public part by its SDK name,
// which dmFields then name too, or one of the configuration ("print_speed", "user.0",
// "dither.algorithm"). Throws Fault for an unknown field, one that the settings do not hold, and a
// value that does not fit.
void SetField(DevModeBytes& settings, const std::string& name, const std::string& value);

// What a person makes of a public field's number: a length in millimetres, the meaning of a choice;
// empty when there is nothing to say.
std::string MeaningOf(const std::string& field, int64_t value);
// The bit of dmFields that names a field; 0 when there is none.
DWORD BitOf(const std::string& field);
