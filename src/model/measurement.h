// Lengths.
#pragma once

#include <cstdint>

#include "core/ostring.h"

// A length as a signed number of tenths of a micrometre: fine enough for dots at any resolution,
// wide enough for 200 m. Divisions round to nearest, halves away from zero. A length that does not
// fit becomes the longest (or most negative) one.
//
// It is part of binary records: four bytes, little-endian.
class Measurement {
public:
    // The length 0.
    Measurement() = default;
    // A length in micrometres.
    explicit Measurement(int32_t microns) { SetMicrons(microns); }

    void SetMicrons(int32_t microns);
    void SetMM(int32_t millimetres);
    void SetInches(int32_t inches);
    void SetMils(int32_t mils);     // thousandths of an inch
    void SetPoints(int32_t points); // 72 to the inch

    // Reads "4 in", "101.6 mm", "10 cm", "250 mils" or "12 pt" (also "inches", "pts", "point" and
    // "points", in any case, with or without a blank before the unit). Inches, millimetres and
    // points have up to three decimals, centimetres four, mils none; further ones are dropped. The
    // decimal separator is a point. A text without a number, without a unit or with another one is
    // the length 0.
    void SetText(const OString& text);

    int32_t Microns() const;
    // Tenths of a millimetre, the unit of DEVMODE.
    int32_t MM10() const;
    // Dots of a printer with `dpi` dots to the inch.
    int32_t Dots(int dpi) const;

    Measurement operator+(Measurement other) const;
    bool operator==(const Measurement& other) const = default;

private:
    int32_t value_ = 0;
};
static_assert(sizeof(Measurement) == 4);
