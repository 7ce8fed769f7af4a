// Actions that open a dialog, for programs: the choice made there, in words.
#pragma once

#include "core/ostring.h"
#include "printer/printer_action.h"

class prtui;

// Runs the action with its choice, for a printer with a model:
//
//   ACTION_SEND_FILE         the full path of a file that there is
//   ACTION_MEMORY            "format", "print", "erase" or "reset", and the letter of one of the
//                            model's memories
//   ACTION_POWER_MANAGEMENT  "discharge", or the settings to change: "sleep=300" or "sleep=off",
//                            "forced=yes", "low-voltage-pause=no"
//
// False, with nothing done, for other actions and for a choice that makes no sense.
bool RunChoice(prtui& ui, printer_action action, const OString& choice);
