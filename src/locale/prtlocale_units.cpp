// prtlocale: lengths and resolutions to texts, and texts to lengths.
#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "core/numbers.h"
#include "locale/prtlocale.h"
#include "locale/text_numbers.h"

namespace {

constexpr int64_t RoundedDivide(int64_t a, int64_t b) {
    return (a + b / 2) / b;
}

bool IsDigit(WCHAR c) {
    return c >= '0' && c <= '9';
}

// The length of `beginning` if `text` begins with it, else 0.
size_t LengthAtStart(const WCHAR* text, const WCHAR* beginning) {
    size_t length = 0;
    for (; beginning[length]; ++length)
        if (text[length] != beginning[length]) return 0;
    return length;
}

} // namespace

prtlocale::Units prtlocale::EffectiveUnits() const {
    const int32_t units = units_ ? units_ : system_units_;
    return units == MILLIMETRES ? MILLIMETRES : units == CENTIMETRES ? CENTIMETRES : INCHES;
}

void prtlocale::SetNewUnits(int32_t units) {
    units_ = units;
    LoadUnitsLabel();
}

// `value` (not negative) with its last `digits` digits after the separator. The system's settings
// decide whether a 0 stands before the separator.
OString prtlocale::Decimal(int64_t value, int digits, bool negative) const {
    char fraction[8] = {};
    for (int i = digits - 1; i >= 0; --i, value /= 10)
        fraction[i] = static_cast<char>('0' + value % 10);
    OString text;
    if (negative) text << "-";
    if (value != 0 || leading_zero_) text << value;
    text << decimal_separator_ << fraction;
    return text;
}

OString prtlocale::microns_to_string(int32_t microns) const {
    const int64_t magnitude = microns < 0 ? -int64_t{microns} : microns;
    OString text;
    if (is_mm()) {
        text = Decimal(RoundedDivide(magnitude, 100), 1, microns < 0);
    } else if (is_cm()) {
        text = Decimal(RoundedDivide(magnitude, 100), 2, microns < 0);
    } else {
        text = Decimal(RoundedDivide(magnitude, 254), 2, microns < 0);
    }
    return text << " " << units_label_;
}

OString prtlocale::FormatK(uint32_t bytes) const {
    const int64_t kilobytes = RoundedDivide(bytes, 1024);
    OString text;
    if (bytes == 0 || kilobytes >= 100)
        text << kilobytes;
    else
        text = Decimal(RoundedDivide(int64_t{bytes} * 10, 1024), 1, false);
    return text << " K";
}

int32_t prtlocale::string_to_microns(const OString& text) const {
    const WCHAR* at = text.wstring();
    bool negative = false;
    for (; *at == ' ' || *at == '+' || *at == '-'; ++at)
        if (*at == '-') negative = !negative;

    Units unit = EffectiveUnits();
    const int32_t limit = unit == INCHES ? 1000 : unit == CENTIMETRES ? 2540 : 25400;
    int32_t whole = 0;
    for (; IsDigit(*at) && whole <= limit; ++at) whole = whole * 10 + (*at - '0');

    int32_t thousandths = std::min(whole, limit) * 1000;
    if (whole <= limit) {
        const size_t separator = LengthAtStart(at, decimal_separator_.wstring());
        if (separator > 0 || *at == '.') {
            at += separator > 0 ? separator : 1;
            for (int32_t weight = 100; IsDigit(*at); ++at, weight /= 10)
                thousandths += weight * (*at - '0');
        }
        while (*at == ' ') ++at;
        if (*at == 'c' || *at == 'C') unit = CENTIMETRES;
        if (*at == 'i' || *at == 'I') unit = INCHES;
        if (*at == 'm' || *at == 'M') unit = MILLIMETRES;
    }

    int32_t microns = thousandths;
    if (unit == INCHES) microns = muldiv64s(thousandths, 254, 10);
    if (unit == CENTIMETRES) microns = thousandths * 10;
    return negative ? -microns : microns;
}

OString prtlocale::xdimension_to_string(int dots, int dpi) const {
    OString text;
    if (is_metric()) {
        const int32_t microns = std::max(muldiv64s(dots, 25400, dpi), 0);
        text = Decimal(microns / 10, 2, false);
        text << " " << GetString(TEXT_MILLIMETRES);
    } else {
        text = Decimal(std::max(muldiv64s(dots, 10000, dpi), 0), 1, false);
        text << " " << GetString(TEXT_MILS);
    }
    return text;
}

OString prtlocale::dpi_to_string(int dpi) const {
    OString text;
    if (is_metric()) {
        const int64_t tenths = (100 * int64_t{dpi} + 50) / 254; // dots per millimetre
        text << tenths / 10 << decimal_separator_ << tenths % 10;
        text << " " << GetString(TEXT_DOTS_PER_MILLIMETRE);
    } else {
        text << dpi << " " << GetString(TEXT_DOTS_PER_INCH);
    }
    return text;
}

OString prtlocale::dpi_to_string(int x, int y) const {
    return dpi_to_string(x) + " x " + dpi_to_string(y);
}
