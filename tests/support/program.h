// Runs a program of the build and gives back what it said.
#pragma once

#include <string>
#include <vector>

struct ProgramResult {
    int status = -1; // exit status; -1 when the program did not end by itself
    std::string output, errors;
};

// Runs build/.../bin/NAME with these arguments and waits for its end.
ProgramResult RunProgram(const std::string& binary_folder, const std::string& name,
                         const std::vector<std::string>& arguments);
