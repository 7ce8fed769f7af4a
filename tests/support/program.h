// Runs a program of the build and returns its output.
#pragma once

#include <string>
#include <vector>

struct ProgramResult {
    int status = -1; // exit status; -1 if the program did not end by itself
    std::string output, errors;
};

// The words that make labelhost work on the machine of a test with this root folder. Empty where it
// knows only one machine.
std::vector<std::string> OnMachine(const std::string& root);

// Runs build/.../bin/NAME with these arguments and waits for its end.
ProgramResult RunProgram(const std::string& name, const std::vector<std::string>& arguments);
