// The custom data of a model, from its text form to the binary blob that the driver reads.
#pragma once

#include <string>

// Turns a keys file into the text of the table ~CustomData: for each section, the blob's length as
// "Data.Length" and its Base64 text as "Data".
//
// A keys file has sections ("[Name]"), comments ("!") and "key=value" lines:
//   switches, yes or no, no by default:
//     Cutter, Backfeed.Percentage, Backfeed.Off, Tracking.Marks, Speed.Backfeed, Speed.Slew,
//     Darkness.Absolute, TearOff, Media.TransferOnly, Media.DirectOnly, Options.Extended
//   whole numbers of dots, 0 by default:
//     LabelTop.Min, LabelTop.Max, TearOff.Min, TearOff.Max
//   up to 20 entries of the speed table, in the order of the lines:
//     Speed=VALUE,"LETTER"[,default]      (a letter text of at most two characters)
//
// Throws ToolError naming file and line for anything it does not understand. `file` is the name
// used in that message.
std::string CustomDataTable(const std::string& text, const std::string& file);
