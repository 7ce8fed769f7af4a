// The program behind its way in, which differs from system to system.
#pragma once

#include "commands/commands.h"

// Runs the command that the words of the command line (UTF-8, without the program's name) ask for;
// answers the exit status.
int RunLabelhost(const Words& words);
