// Cuts the bytes that a ZPL II printer receives into commands.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

struct ZplCommand {
    bool control = false;   // starts with the control prefix (~) and not with the format prefix (^)
    std::string name;       // two characters, letters in upper case
    std::string parameters; // without control characters, cut at kMaxParameters
    uint64_t data = 0;      // bytes after the parameters: raw ones, or pairs of hex digits
    bool whole = true;      // all raw bytes that the parameters announced have come
};

// Takes any bytes, in any pieces; memory use does not depend on them. STX means ^XA and ETX means
// ^XZ. The prefixes and the delimiter follow ^CC, ^CT and ^CD; in the results, parameters are
// separated by commas whatever the delimiter was. Between ~JD and ~JE nothing is a command.
class ZplScanner {
public:
    static constexpr size_t kMaxParameters = 256;

    // The commands that these bytes complete. A command without parameters is complete with its
    // name, a control command at a line end, any other at the next prefix.
    std::vector<ZplCommand> Feed(const void* bytes, size_t size);

    // To be called at the end. Returns the command that was still open, if any.
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
    int delimiters_ = 0;      // seen in the parameters of the open command
    int header_fields_ = 0;   // parameters before its data; 0 for a command without data
    uint64_t hex_digits_ = 0; // in its data
    uint64_t bytes_left_ = 0; // raw data still to come
    std::string dump_tail_;   // the last bytes of a dump
};

// The parameters of a command, split at the commas. The result has at least `least` entries.
std::vector<std::string> SplitParameters(const std::string& parameters, size_t least);

// The number at the start of a parameter, or `otherwise`. At most nine digits are read.
uint32_t NumberIn(const std::string& parameter, uint32_t otherwise);
