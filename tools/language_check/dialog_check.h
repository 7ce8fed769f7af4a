// Checks one dialog: places, texts, access keys and the order of its controls.
#pragma once

#include <string>

#include "faults.h"
#include "hints.h"
#include "library.h"

// Adds to `faults`:
// - controls that reach out of the dialog, and controls that overlap: none may, but group boxes
//   and tab controls contain others, an up-down control lies on its field, and hints name those
//   that take turns;
// - texts that are cut, measured in the dialog's font at 96 dpi, those included that pages show by
//   the hints; drop-down lists have room for each of theirs;
// - access keys that are used twice, also by a dialog around this one, or lead to no control, and
// on pages the key of the sheet's Apply
//   button, A ("&Apply") or in German B ("Ü&bernehmen");
// - controls that TAB does not reach from top left to bottom right, column by column;
// - groups of radio buttons without a start or an end, and controls with the same identifier.
void CheckDialog(const Library& library, const std::u16string& name, const DialogHints& hints,
                 Faults& faults);
