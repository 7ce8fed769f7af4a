#include "model/measurement.h"

#include <gtest/gtest.h>

#include <cstring>
#include <tuple>
#include <utility>

namespace {

// The stored number, tenths of a micrometre.
int32_t Units(const Measurement& length) {
    int32_t units;
    std::memcpy(&units, &length, sizeof(units));
    return units;
}

Measurement OfUnits(int32_t units) {
    Measurement length;
    std::memcpy(static_cast<void*>(&length), &units, sizeof(units));
    return length;
}

} // namespace

TEST(MeasurementText, KnowsItsUnitsAndIgnoresWhatItDoesNotKnow) {
    const std::pair<const char*, int32_t> cases[] = {
        {"4 in", 1016000}, {"250 mils", 63500},  {"4.000 inches", 1016000},
        {"10CM", 1000000}, {"72 pt", 254000},    {"101.6 mm", 1016000},
        {"5. mm", 50000},  {"72 pts", 254000},   {"36.0points", 127000},
        {"1 pt", 3528},    {"72 Point", 254000}, {"1 inconsistent", 254000},
        {"4", 0},          {"-0.5 mm", -5000},   {" \t 4 \r\n in \n", 1016000},
        {"", 0},           {"-2 in", -508000},   {"1.23456 cm", 123450},
        {"mm", 0},         {"+2 in", 508000},    {"1.2349 mm", 12340},
        {"- mm", 0},       {".5 in", 127000},    {"99999 in", INT32_MAX},
        {"2,5 mm", 0},     {"0.0019 in", 254},   {"-99999.0 in", INT32_MIN},
        {"4 ft", 0},       {"2.9 mils", 508},    {"9999999999999 cm", INT32_MAX},
        {"4 mil", 0},      {"10.5 pt", 37042},   {"9999999999999.9999 cm", INT32_MAX},
        {"4 m m", 0},      {"1.2.9 mm", 12000},  {"-9999999999.9 pt", INT32_MIN},
        {"4 i", 0},        {"1-2 mm", 10000}};
    for (const auto& [text, units] : cases) {
        Measurement length(12345);
        length.SetText(text);
        EXPECT_EQ(Units(length), units) << text;
    }
}

TEST(MeasurementUnits, AreTenthsOfMicrometresAndSaturate) {
    const struct {
        const char* name;
        void (Measurement::*set)(int32_t);
        int32_t value;
        int32_t units;
    } cases[] = {{"microns", &Measurement::SetMicrons, -3, -30},
                 {"microns", &Measurement::SetMicrons, INT32_MAX, INT32_MAX},
                 {"microns", &Measurement::SetMicrons, INT32_MIN, INT32_MIN},
                 {"mm", &Measurement::SetMM, 3, 30000},
                 {"mm", &Measurement::SetMM, 214749, INT32_MAX},
                 {"inches", &Measurement::SetInches, -8, -2032000},
                 {"inches", &Measurement::SetInches, -8455, INT32_MIN},
                 {"mils", &Measurement::SetMils, 1, 254},
                 {"mils", &Measurement::SetMils, 8454661, INT32_MAX},
                 {"points", &Measurement::SetPoints, -9, -31750},
                 {"points", &Measurement::SetPoints, INT32_MAX, INT32_MAX}};
    for (const auto& c : cases) {
        Measurement length;
        (length.*c.set)(c.value);
        EXPECT_EQ(Units(length), c.units) << c.value << " " << c.name;
    }
    EXPECT_EQ(Units(Measurement(7)), 70);
    EXPECT_TRUE(Measurement(25400) == Measurement(25400));
    EXPECT_FALSE(Measurement(25400) == Measurement(25401));
}

TEST(MeasurementUnits, RoundToNearestAwayFromZero) {
    const std::tuple<int32_t, int32_t, int32_t, int32_t> cases[] = {
        {5, 1, 0, 0},   {1016000, 101600, 1016, 812}, {-1016500, -101650, -1017, -812},
        {-5, -1, 0, 0}, {1016499, 101650, 1016, 812}, {INT32_MIN, -214748365, -2147484, -1716296},
        {4, 0, 0, 0},   {1016500, 101650, 1017, 812}};
    for (const auto& [units, microns, mm10, dots203] : cases) {
        const Measurement length = OfUnits(units);
        EXPECT_EQ(length.Microns(), microns) << units;
        EXPECT_EQ(length.MM10(), mm10) << units;
        EXPECT_EQ(length.Dots(203), dots203) << units;
    }
    EXPECT_EQ(Measurement(25400).Dots(0), 0);
}
