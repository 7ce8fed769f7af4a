// Cuts the bytes that a ZPL II printer receives into commands.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

struct ZplCommand {
    bool control = false;   // begins with the control prefix (~) and not with the format prefix (^)
    std::string name;       // two characters, letters in upper case
    std::string parameters; // what follows, without control characters, cut at kMaxParameters
    uint64_t data = 0;      // bytes that followed the parameters: raw ones, or pairs of hex digits
    bool whole = true;      // all the raw bytes that the parameters announced have come
};

// Any bytes may come, in any pieces; memory use does not depend on them. STX stands for ^XA and ETX
// for ^XZ. The prefixes and the delimiter follow ^CC, ^CT and ^CD; parameters come with commas
// between them whatever the delimiter was. Between ~JD and ~JE nothing is a command.
class ZplScanner {
public:
    static constexpr size_t kMaxParameters = 256;

    // The commands that these bytes complete. A command without parameters is complete with its
    // name, a control command at a line end, any other at the next prefix.
    std::vector<ZplCommand> Feed(const void* bytes, size_t size);

    // Nothing more will come: the command that was still open, if any.
    std::vector<ZplCommand> Finish();

private:
    enum class State { Text, Name, Parameters, Data, Dump };

    void Take(char c, std::vector<ZplCommand>& found);
    void TakeText(char c, std::vector<ZplCommand>& found);
    void TakeName(char c, std::vector<ZplCommand>& found);
    void TakeParameter(char c, std::vector<ZplCommand>& found);
    void TakeDump(char c, std::vector<ZplCommand>& found);
    void Start(bool control);
    void Emit(std::vector<ZplCommand>& found);
    void ChangePrefix(char c);

    State state_ = State::Text;
    char format_prefix_ = '^';
    char control_prefix_ = '~';
    char delimiter_ = ',';
    ZplCommand command_;
    int delimiters_ = 0;      // passed in the parameters of the open command
    int header_fields_ = 0;   // parameters in front of its data; 0 for a command without data
    uint64_t hex_digits_ = 0; // in its data
    uint64_t bytes_left_ = 0; // raw data still to come
    std::string dump_tail_;   // the last bytes of a dump
};

// The parameters of a command, split at the commas. There are at least `least` of them.
std::vector<std::string> SplitParameters(const std::string& parameters, size_t least);

// The number at the start of a parameter, `otherwise` when there is none; at most nine digits are
// read.
uint32_t NumberIn(const std::string& parameter, uint32_t otherwise);
