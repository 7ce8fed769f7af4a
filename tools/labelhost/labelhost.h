// The program without its entry point, which differs from system to system.
#pragma once

#include "commands/commands.h"

// Runs the command in the words of the command line (UTF-8, without the program's name) and answers
// the exit status.
int RunLabelhost(const Words& words);
