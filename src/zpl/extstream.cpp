#include "zpl/extstream.h"

#include <algorithm>
#include <cstdlib>

#include "zpl/extmodel.h"

bool extstream::format_start() {
    command_format("XA");
    *this << endl;
    return true;
}

bool extstream::format_end() {
    command_format("XZ");
    *this << endl;
    return true;
}

void extstream::command_format(const char* command) {
    write_byte(format_prefix_);
    *this << command;
}

void extstream::command_control(const char* command) {
    write_byte(control_prefix_);
    *this << command;
}

void extstream::write_fixedint(int32_t value, int32_t digits, bool sign) {
    if (value < 0)
        write_byte('-');
    else if (sign)
        write_byte('+');
    digits = std::max(digits, 1);
    // No int32_t has more digits than this; those before them are zeros.
    constexpr int32_t kMostDigits = 10;
    for (; digits > kMostDigits; --digits) write_byte('0');
    char text[kMostDigits];
    int64_t rest = std::abs(int64_t{value});
    for (int32_t i = digits; i > 0; --i, rest /= 10)
        text[i - 1] = static_cast<char>('0' + rest % 10);
    write(text, digits);
}

void extstream::cut() {
    format_start();
    const prtmodel* model = GetModel();
    if (model && AsZpl(*model).IsPPLZ()) command_control("JSA");
    command_format("MMC");
    command_format("PH");
    format_end();
}

void extstream::reset_mode() {
    control_prefix_ = kControlPrefix;
    format_prefix_ = kFormatPrefix;
}
