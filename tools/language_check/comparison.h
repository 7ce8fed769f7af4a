// Compares a translation with the library that it was made from.
#pragma once

#include "faults.h"
#include "library.h"

// Adds to `faults` what only one of them has, controls that differ in identifier, class or style,
// and texts whose placeholders, access keys, dots ("...") or colons at the end differ.
void Compare(const Library& original, const Library& translation, Faults& faults);
