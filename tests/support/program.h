// Runs a program of the build and gives back what it said.
#pragma once

#include <string>
#include <vector>

struct ProgramResult {
    int status = -1; // exit status; -1 when the program did not end by itself
    std::string output, errors;
};

// The words by which labelhost works on the machine of a test, whose root folder this is; none
// where it knows one machine only.
std::vector<std::string> OnMachine(const std::string& root);

// Runs build/.../bin/NAME with these arguments and waits for its end.
ProgramResult RunProgram(const std::string& name, const std::vector<std::string>& arguments);
