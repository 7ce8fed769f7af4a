#include "model/measurement.h"

#include <algorithm>

#include "core/numbers.h"

namespace {

constexpr int32_t kInch = 254000;
constexpr int32_t kPointsPerInch = 72;
constexpr char kBlanks[] = " \t\r\n";

enum class Unit { Unknown, Inches, Millimetres, Centimetres, Mils, Points };

int32_t Saturate(int64_t value) {
    return static_cast<int32_t>(std::clamp<int64_t>(value, INT32_MIN, INT32_MAX));
}

bool IsOneOf(char c, const char* set) {
    for (; *set; ++set)
        if (c == *set) return true;
    return false;
}

Unit UnitOf(const char* text) {
    const OString unit(text);
    const auto is = [&unit](const char* name) { return unit.CompareNoCase(OString(name)) == 0; };
    if (unit.Left(2).CompareNoCase(OString("in")) == 0) return Unit::Inches;
    if (is("mm")) return Unit::Millimetres;
    if (is("cm")) return Unit::Centimetres;
    if (is("mils")) return Unit::Mils;
    if (is("pt") || is("pts") || is("point") || is("points")) return Unit::Points;
    return Unit::Unknown;
}

// A number in units of its last decimal. Further decimals are dropped.
int32_t FixedPoint(const OString& number, int decimals) {
    const int point = number.Find('.');
    int64_t value = xtol(number.Left(point).nstring());
    value = std::max(value, -value);
    const char* digit = number.nstring() + point + 1;
    for (int i = 0; i < decimals; ++i) {
        const bool valid = *digit >= '0' && *digit <= '9';
        value = value * 10 + (valid ? *digit++ - '0' : 0);
        if (!valid) digit = "";
    }
    return Saturate(number.nstring()[0] == '-' ? -value : value);
}

} // namespace

void Measurement::SetMicrons(int32_t microns) {
    value_ = Saturate(int64_t{microns} * 10);
}

void Measurement::SetMM(int32_t millimetres) {
    value_ = Saturate(int64_t{millimetres} * 10000);
}

void Measurement::SetInches(int32_t inches) {
    value_ = Saturate(int64_t{inches} * kInch);
}

void Measurement::SetMils(int32_t mils) {
    value_ = Saturate(int64_t{mils} * (kInch / 1000));
}

void Measurement::SetPoints(int32_t points) {
    value_ = muldiv64s(points, kInch, kPointsPerInch);
}

void Measurement::SetText(const OString& text) {
    value_ = 0;
    OString number(text);
    number.TrimLeft(kBlanks);
    number.TrimRight(kBlanks);
    const char* unit_text = number.nstring();
    while (*unit_text && IsOneOf(*unit_text, "+-.0123456789")) ++unit_text;
    const int length = static_cast<int>(unit_text - number.nstring());
    while (*unit_text && IsOneOf(*unit_text, kBlanks)) ++unit_text;
    if (length == 0) return;
    const Unit unit = UnitOf(unit_text);
    number.Truncate(length);

    if (number.Find('.') < 0) {
        const int32_t value = xtol(number.nstring());
        switch (unit) {
        case Unit::Inches:
            return SetInches(value);
        case Unit::Millimetres:
            return SetMM(value);
        case Unit::Centimetres:
            return SetMM(Saturate(int64_t{value} * 10));
        case Unit::Mils:
            return SetMils(value);
        case Unit::Points:
            return SetPoints(value);
        case Unit::Unknown:
            return;
        }
    }
    switch (unit) {
    case Unit::Inches:
        return SetMils(FixedPoint(number, 3));
    case Unit::Millimetres:
        return SetMicrons(FixedPoint(number, 3));
    case Unit::Centimetres:
        return SetMicrons(FixedPoint(number, 4));
    case Unit::Mils:
        return SetMils(FixedPoint(number, 0));
    case Unit::Points:
        value_ = muldiv64s(FixedPoint(number, 3), kInch / 1000, kPointsPerInch);
        return;
    case Unit::Unknown:
        return;
    }
}

int32_t Measurement::Microns() const {
    return muldiv64s(value_, 1, 10);
}

int32_t Measurement::MM10() const {
    return muldiv64s(value_, 1, 1000);
}

int32_t Measurement::Dots(int dpi) const {
    return muldiv64s(value_, dpi, kInch);
}

Measurement Measurement::operator+(Measurement other) const {
    Measurement sum;
    sum.value_ = Saturate(int64_t{value_} + other.value_);
    return sum;
}
