#include "locale/prtlocale.h"

#include <tuple>
#include <utility>

#include <win32host/control.h>

#include "support/host_test.h"

namespace {

// A locale without libraries: its labels are empty.
class UnitTexts : public HostTest {
protected:
    prtlocale& Locale(int units, bool leading_zero = true, const WCHAR* separator = TEXT(".")) {
        win32host::LocaleFacts facts;
        facts.leading_zero = leading_zero;
        facts.decimal = separator;
        win32host::SetLocaleFacts(facts);
        locale_.LoadSystem();
        locale_.SetNewUnits(units);
        return locale_;
    }

private:
    prtlocale locale_;
};

TEST_F(UnitTexts, LengthsAreRoundedToWhatAUserReads) {
    const std::tuple<int, int32_t, const char*> cases[] = {
        {prtlocale::INCHES, 12700, "0.50 "},   {prtlocale::MILLIMETRES, 12700, "12.7 "},
        {prtlocale::MILLIMETRES, 0, "0.0 "},   {prtlocale::CENTIMETRES, 12700, "1.27 "},
        {prtlocale::MILLIMETRES, 49, "0.0 "},  {prtlocale::MILLIMETRES, -1270, "-1.3 "},
        {prtlocale::MILLIMETRES, 50, "0.1 "},  {prtlocale::MILLIMETRES, -1250, "-1.3 "},
        {prtlocale::CENTIMETRES, 50, "0.01 "}, {prtlocale::INCHES, 25400000, "1000.00 "},
        {prtlocale::INCHES, 126, "0.00 "},     {prtlocale::MILLIMETRES, INT32_MIN, "-2147483.6 "},
        {prtlocale::INCHES, 127, "0.01 "}};
    for (const auto& [units, microns, text] : cases)
        EXPECT_EQ(Locale(units).microns_to_string(microns), text) << units << text;
}

TEST_F(UnitTexts, LengthsAreReadInAnyUnit) {
    const std::tuple<int, const char*, int32_t> cases[] = {
        {prtlocale::INCHES, " -2.5 mm", -2500},    {prtlocale::CENTIMETRES, " -2.5 mm", -2500},
        {prtlocale::MILLIMETRES, "1 in", 25400},   {prtlocale::MILLIMETRES, "1 CM", 10000},
        {prtlocale::INCHES, "4", 101600},          {prtlocale::CENTIMETRES, "3.25", 32500},
        {prtlocale::MILLIMETRES, ".5", 500},       {prtlocale::MILLIMETRES, "1.23456mm", 1234},
        {prtlocale::INCHES, "0.005", 127},         {prtlocale::INCHES, "0.001", 25},
        {prtlocale::INCHES, "-0.0025", -51},       {prtlocale::MILLIMETRES, "+ -- 3", 3000},
        {prtlocale::MILLIMETRES, "-+-+-3", -3000}, {prtlocale::MILLIMETRES, "", 0},
        {prtlocale::MILLIMETRES, "abc", 0},        {prtlocale::MILLIMETRES, "5 x", 5000},
        {prtlocale::MILLIMETRES, "\t5", 0},        {prtlocale::MILLIMETRES, "25400.9", 25400900}};
    for (const auto& [units, text, microns] : cases)
        EXPECT_EQ(Locale(units).string_to_microns(text), microns) << units << text;
}

TEST_F(UnitTexts, ANumberBeyond25MetresInTheCurrentUnitEndsTheReading) {
    for (int units : {prtlocale::INCHES, prtlocale::MILLIMETRES, prtlocale::CENTIMETRES})
        for (const char* text : {"99999 mm", "26000", "99999999999999999999.9 in"})
            EXPECT_EQ(Locale(units).string_to_microns(text), 25400000) << units << text;
    EXPECT_EQ(Locale(prtlocale::INCHES).string_to_microns("-1001 mm"), -25400000);
    EXPECT_EQ(Locale(prtlocale::MILLIMETRES).string_to_microns("25400.999 in"), 645185375);
}

TEST_F(UnitTexts, TheSeparatorAndTheZeroAheadOfAFractionAreTheSystemsChoice) {
    const std::tuple<const WCHAR*, const char*, int32_t> cases[] = {{TEXT(","), "3,25", 32500},
                                                                    {TEXT(","), "3.25", 32500},
                                                                    {TEXT("."), "3,25", 30000},
                                                                    {TEXT("::"), "3::25", 32500},
                                                                    {TEXT("::"), "3:", 30000}};
    for (const auto& [separator, text, microns] : cases)
        EXPECT_EQ(Locale(prtlocale::CENTIMETRES, true, separator).string_to_microns(text), microns)
            << text;
    EXPECT_EQ(Locale(prtlocale::CENTIMETRES, true, TEXT(",")).microns_to_string(32500), "3,25 ");
    for (const auto& [microns, text] :
         {std::pair(12700, ".50 "), std::pair(-12700, "-.50 "), std::pair(25400, "1.00 ")})
        EXPECT_EQ(Locale(prtlocale::INCHES, false).microns_to_string(microns), text);
    EXPECT_EQ(Locale(prtlocale::MILLIMETRES, false, TEXT(",")).xdimension_to_string(2, 203),
              ",25 ");
}

class SystemLanguage : public HostTest {};

TEST_F(SystemLanguage, IsTheNearestThatTheDriverHas) {
    const std::pair<const WCHAR*, const char*> cases[] = {
        {TEXT("ENU"), "enu"}, {TEXT("FRC"), "fra"}, {TEXT("DES"), "deu"}, {TEXT("PTG"), "ptg"},
        {TEXT("PTB"), "ptb"}, {TEXT("CHS"), "chs"}, {TEXT("CHT"), "cht"}, {TEXT("CSY"), "csy"},
        {TEXT("ESM"), "esp"}, {TEXT("JPN"), "jpn"}, {TEXT("nlb"), "nld"}, {TEXT("SVF"), "sve"},
        {TEXT("ZHH"), "enu"}, {TEXT("XYZ"), "enu"}, {TEXT(""), "enu"}};
    for (const auto& [abbreviation, language] : cases) {
        win32host::LocaleFacts facts;
        facts.abbreviation = abbreviation;
        win32host::SetLocaleFacts(facts);
        prtlocale locale;
        locale.LoadSystem();
        EXPECT_STREQ(locale.GetSystemLanguage(), language);
        EXPECT_STREQ(locale.GetCurrentLanguage(), language);
    }
}

} // namespace
