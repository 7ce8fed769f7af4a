// What is wrong, as a person who has to correct it wants to read it.
#pragma once

#include <string>
#include <vector>

class Faults {
public:
    void Add(const std::string& where, const std::string& what) {
        lines_.push_back(where + ": " + what);
    }
    const std::vector<std::string>& Lines() const { return lines_; }

private:
    std::vector<std::string> lines_;
};
