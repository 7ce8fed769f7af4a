// The settings that a new printer is given.
#pragma once

#include "core/ofile.h"

class prtmodel;

// Opens the default settings file of a model's brand, which lies beside the driver, to be read as
// UTF-8. False without one.
bool OpenDefaultSettings(OFile& file, const prtmodel& model);
