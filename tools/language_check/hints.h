// What a check of dialogs cannot see in the dialogs: the texts that pages put into controls, and
// the controls that take turns in one place; and the texts that libraries need not have.
//
//   texts DIALOG CONTROL NUMBER ...    the control shows one of these texts
//   turns DIALOG CONTROL CONTROL       the two are never visible together
//   optional NUMBER                    the module does without this text
//
// DIALOG is a name as in the library; lines that begin with "#" and empty lines are none.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

struct DialogHints {
    std::map<uint32_t, std::vector<uint32_t>> texts; // by control
    std::set<std::pair<uint32_t, uint32_t>> turns;   // in both orders
};

// The numbers of the texts that the module asks for, from the header that names them: lines such as
// "TEXT_INCHES = 479,". Throws std::runtime_error if the file cannot be read.
std::set<uint32_t> ReadTextNumbers(const std::string& path);

struct Hints {
    std::map<std::u16string, DialogHints> dialogs; // by name
    std::set<uint32_t> optional_texts;
};

// Throws std::runtime_error if the file cannot be read or a line is not of its form.
Hints ReadHints(const std::string& path);
