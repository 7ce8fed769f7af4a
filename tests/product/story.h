// Stories: what people and programs do with a printer, and the answers that they expect. They are
// text files, the same for every host.
//
// A line is empty, a comment (#), a step, or an expectation (=). "..." keeps blanks, as in scripts
// for property sheets.
//
//   install PRINTER --model "NAME" ...      steps are labelhost commands, given --json
//   sheet PRINTER --defaults                and this one plays the indented lines after it:
//     click 391
//     state named
//     = {"apply": false, "focus": 389}      expects members of the state told last,
//     = 389 {"text": "New Label"}           of one of its controls,
//     = #0 {"text": "&Name:"}               or of the control at a place in tab order
//   = {"/result": "ok", "/states/0/page": 1}
//                                           expects values at JSON pointers in a command's answer
//   = same "before"                       expects the answer or the state that was first called so
//   ! 1 "there is no printer"               expects that the command before it failed with this
//                                           exit status and a message that has this in it
//   file NAME                               writes the indented lines after it to a file
//   lose NAME                               deletes a file of the driver
//   saved NAME GOLDEN                       expects that a file in $DIR is like one in golden/
//   environment NAME VALUE                  for the steps that follow; without VALUE it is unset
//   emulator ["QUERY.txt" ...]              starts an emulated printer, with files of spoilt
//   answers native                                  the story is not for Windows
//
// An expected text that begins with ~ must be part of the answer; one that begins with !~ must not.
// null stands for what is not there. {"items": 4} expects four items, {"items": {"0": "a"}} that
// the first is "a"; an object is compared member by member everywhere.
//
// $DIR is the story's own folder as labelhost's arguments name it, $FILES the same folder as
// programs of the printer's machine do, with the backslashes doubled that scripts need, and
// $EMULATOR the port of the emulated printer.
#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

struct Expectation {
    int line = 0;
    // Index of the state in the command's answer; -1 for the answer itself.
    int state = -1;
    // A control's identifier, or #N for a place in tab order; empty for the state's own members.
    std::string control;
    nlohmann::json value;
    // Of a failure: the exit status. value is the text then.
    int status = 0;
};

struct StoryStep {
    int line = 0;
    std::vector<std::string> words;
    std::string text; // the indented lines, without the expectations in them
    std::vector<Expectation> expectations;
};

// Reads a story. Throws std::runtime_error with the line and what is wrong in it.
std::vector<StoryStep> ReadStory(const std::string& file);

// Whether an answer is what was expected, by the rules above.
bool Matches(const nlohmann::json& expected, const nlohmann::json& answer);
