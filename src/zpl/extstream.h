// The byte stream to a printer that speaks ZPL II.
#pragma once

#include <cstdint>

#include "printer/prtstream.h"

// Commands stand in formats, between "^XA" and "^XZ", and begin with the format prefix. Control
// commands begin with the control prefix and may stand anywhere.
class extstream : public prtstream {
public:
    extstream() = default;
    ~extstream() override = default;

    // The start and end of a format, each on a line of its own. Always true.
    bool format_start();
    bool format_end();

    // One command after its prefix, without a line end. Null writes only the prefix.
    void command_format(const char* command);
    void command_control(const char* command);

    // A number in exactly that many digits, at least one: padded with zeros, without its higher
    // digits. A negative one begins with its sign, others with "+" if `sign` is set.
    void write_fixedint(int32_t value, int32_t digits, bool sign);

    // A format that makes the printer cut the label in it.
    void cut();

    // Returns to the prefixes that a printer starts with. To be called before anything that is sent
    // on its own.
    void reset_mode();

private:
    static constexpr char kControlPrefix = '~';
    static constexpr char kFormatPrefix = '^';

    char control_prefix_ = kControlPrefix;
    char format_prefix_ = kFormatPrefix;
};
