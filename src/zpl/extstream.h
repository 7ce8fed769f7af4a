// The byte stream to a printer that speaks ZPL II.
#pragma once

#include <cstdint>

#include "printer/prtstream.h"

// Commands stand in formats, between "^XA" and "^XZ", and begin with the format prefix; control
// commands begin with the control prefix and may stand anywhere.
class extstream : public prtstream {
public:
    extstream() = default;
    ~extstream() override = default;

    // The frame of a format, each on a line of its own. Always true.
    bool format_start();
    bool format_end();

    // One command with its prefix in front, without a line end. Null is the prefix alone.
    void command_format(const char* command);
    void command_control(const char* command);

    // A number in just so many digits, at least one: zeros in front, higher digits dropped. A
    // negative one has its sign in front; others a "+" when `sign` asks for it.
    void write_fixedint(int32_t value, int32_t digits, bool sign);

    // A format that makes the printer cut the label that it holds.
    void cut();

    // Returns to the prefixes that a printer has at first. Comes in front of everything that is
    // sent on its own.
    void reset_mode();

private:
    static constexpr char kControlPrefix = '~';
    static constexpr char kFormatPrefix = '^';

    char control_prefix_ = kControlPrefix;
    char format_prefix_ = kFormatPrefix;
};
