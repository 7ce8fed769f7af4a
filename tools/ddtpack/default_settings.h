// A driver's default settings, from their text form to the settings file that the driver imports.
#pragma once

#include <string>
#include <vector>

// A file of default settings: its name, for messages, and its text.
struct SettingsSource {
    std::string file;
    std::string text;
};

// Writes the stocks, presets and data fonts of the sources, in their order, to the settings file
// `out`.
//
// A source has sections ("[Name]"), comments ("!") and "key=value" lines.
//
//   [Stocks]            NAME=WIDTH,LENGTH,GAP[,LINER]    lengths with their units; the liner stands
//                       out on both sides, by 1.27 mm when it is left out. The stocks belong to the
//                       printer family and can be changed by the user.
//   [Preset NAME]       Description=TEXT
//                       Orientation=portrait|landscape   portrait when left out
//                       Stock=NAME                       of a source in front; else the default
//                       label Media=direct|transfer            as the printer is set when left out
//                       Speed=NUMBER                     of the model's speed table
//                       Darkness=NUMBER                  -30 to 30, added to the printer's own
//                       Dithering=none|dispersed|clustered|algebraic|diffusion
//   [Bar code fonts], [RFID fonts]                    see default_fonts.h
//
// Throws ToolError naming file and line for anything it does not understand.
void WriteDefaultSettings(const std::string& out, const std::vector<SettingsSource>& sources);
