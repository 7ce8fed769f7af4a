#include "locale/prtlocale.h"

#include <win32host/control.h>

#include "support/host_test.h"

namespace {

// A locale without libraries: its labels are empty.
class UnitTexts : public HostTest {
protected:
    prtlocale& Locale(int units, bool leading_zero = true, const char16_t* separator = u".") {
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
    const struct {
        int units;
        int32_t microns;
        const char* text;
    } cases[] = {
        {prtlocale::MILLIMETRES, 12700, "12.7 "},
        {prtlocale::CENTIMETRES, 12700, "1.27 "},
        {prtlocale::INCHES, 12700, "0.50 "},
        {prtlocale::MILLIMETRES, 0, "0.0 "},
        {prtlocale::MILLIMETRES, 49, "0.0 "},
        {prtlocale::MILLIMETRES, 50, "0.1 "},
        {prtlocale::MILLIMETRES, -1270, "-1.3 "},
        {prtlocale::MILLIMETRES, -1250, "-1.3 "},
        {prtlocale::CENTIMETRES, 50, "0.01 "},
        {prtlocale::INCHES, 126, "0.00 "},
        {prtlocale::INCHES, 127, "0.01 "},
        {prtlocale::INCHES, 25400000, "1000.00 "},
        {prtlocale::MILLIMETRES, INT32_MIN, "-2147483.6 "},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Locale(c.units).microns_to_string(c.microns), c.text) << c.units << c.text;
}

TEST_F(UnitTexts, TheZeroAheadOfAFractionIsTheSystemsChoice) {
    EXPECT_EQ(Locale(prtlocale::INCHES, false).microns_to_string(12700), ".50 ");
    EXPECT_EQ(Locale(prtlocale::INCHES, false).microns_to_string(-12700), "-.50 ");
    EXPECT_EQ(Locale(prtlocale::INCHES, false).microns_to_string(25400), "1.00 ");
    EXPECT_EQ(Locale(prtlocale::MILLIMETRES, false, u",").xdimension_to_string(2, 203), ",25 ");
}

TEST_F(UnitTexts, LengthsAreReadInAnyUnit) {
    const struct {
        int units;
        const char* text;
        int32_t microns;
    } cases[] = {
        {prtlocale::INCHES, " -2.5 mm", -2500},
        {prtlocale::CENTIMETRES, " -2.5 mm", -2500},
        {prtlocale::MILLIMETRES, "1 in", 25400},
        {prtlocale::MILLIMETRES, "1 CM", 10000},
        {prtlocale::INCHES, "4", 101600},
        {prtlocale::CENTIMETRES, "3.25", 32500},
        {prtlocale::MILLIMETRES, ".5", 500},
        {prtlocale::MILLIMETRES, "1.23456mm", 1234}, // thousandths at most
        {prtlocale::INCHES, "0.005", 127},
        {prtlocale::INCHES, "0.001", 25},    // 25.4
        {prtlocale::INCHES, "-0.0025", -51}, // 2 thousandths: 50.8
        {prtlocale::MILLIMETRES, "+ -- 3", 3000},
        {prtlocale::MILLIMETRES, "-+-+-3", -3000},
        {prtlocale::MILLIMETRES, "", 0},
        {prtlocale::MILLIMETRES, "abc", 0},
        {prtlocale::MILLIMETRES, "5 x", 5000},
        {prtlocale::MILLIMETRES, "\t5", 0},
        {prtlocale::MILLIMETRES, "25400.9", 25400900}, // at the limit, not beyond
    };
    for (const auto& c : cases)
        EXPECT_EQ(Locale(c.units).string_to_microns(c.text), c.microns) << c.units << c.text;
}

TEST_F(UnitTexts, ANumberBeyond25MetresInTheCurrentUnitEndsTheReading) {
    for (int units : {prtlocale::INCHES, prtlocale::MILLIMETRES, prtlocale::CENTIMETRES})
        for (const char* text : {"99999 mm", "26000", "99999999999999999999.9 in"})
            EXPECT_EQ(Locale(units).string_to_microns(text), 25400000) << units << text;
    EXPECT_EQ(Locale(prtlocale::INCHES).string_to_microns("-1001 mm"), -25400000);
    EXPECT_EQ(Locale(prtlocale::MILLIMETRES).string_to_microns("25400.999 in"), 645185375);
}

TEST_F(UnitTexts, TheSystemsSeparatorIsTakenAndSoIsThePoint) {
    EXPECT_EQ(Locale(prtlocale::CENTIMETRES, true, u",").string_to_microns("3,25"), 32500);
    EXPECT_EQ(Locale(prtlocale::CENTIMETRES, true, u",").string_to_microns("3.25"), 32500);
    EXPECT_EQ(Locale(prtlocale::CENTIMETRES, true, u".").string_to_microns("3,25"), 30000);
    EXPECT_EQ(Locale(prtlocale::CENTIMETRES, true, u"::").string_to_microns("3::25"), 32500);
    EXPECT_EQ(Locale(prtlocale::CENTIMETRES, true, u"::").string_to_microns("3:"), 30000);
    EXPECT_EQ(Locale(prtlocale::CENTIMETRES, true, u",").microns_to_string(32500), "3,25 ");
}

TEST_F(UnitTexts, BarWidthsAreInMilsOrMillimetres) {
    EXPECT_EQ(Locale(prtlocale::INCHES).xdimension_to_string(2, 203), "9.9 ");
    EXPECT_EQ(Locale(prtlocale::MILLIMETRES).xdimension_to_string(2, 203), "0.25 ");
    EXPECT_EQ(Locale(prtlocale::CENTIMETRES).xdimension_to_string(10, 300), "0.84 ");
    EXPECT_EQ(Locale(prtlocale::MILLIMETRES).xdimension_to_string(300, 300), "25.40 ");
    EXPECT_EQ(Locale(prtlocale::INCHES).xdimension_to_string(1, 0), "0.0 ");
}

TEST_F(UnitTexts, ResolutionsAreInDotsPerInchOrMillimetre) {
    EXPECT_EQ(Locale(prtlocale::INCHES).dpi_to_string(203), "203 ");
    EXPECT_EQ(Locale(prtlocale::MILLIMETRES).dpi_to_string(203), "8.0 ");
    EXPECT_EQ(Locale(prtlocale::CENTIMETRES).dpi_to_string(300), "11.8 ");
    EXPECT_EQ(Locale(prtlocale::MILLIMETRES).dpi_to_string(600), "23.6 ");
    EXPECT_EQ(Locale(prtlocale::INCHES).dpi_to_string(203, 300), "203  x 300 ");
}

TEST_F(UnitTexts, UnitsFollowTheSystemUntilTheUserChooses) {
    win32host::LocaleFacts facts;
    facts.inches = true;
    win32host::SetLocaleFacts(facts);
    prtlocale locale;
    locale.LoadSystem();
    EXPECT_FALSE(locale.is_metric());
    locale.SetNewUnits(prtlocale::CENTIMETRES);
    EXPECT_TRUE(locale.is_cm());
    EXPECT_TRUE(locale.is_metric());
    locale.SetNewUnits(prtlocale::SYSTEM_UNITS);
    EXPECT_FALSE(locale.is_metric());
    win32host::SetLocaleFacts({});
    locale.LoadSystem();
    EXPECT_TRUE(locale.is_mm());
}

class SystemLanguage : public HostTest {};

TEST_F(SystemLanguage, IsTheNearestThatTheDriverHas) {
    const struct {
        const char16_t* abbreviation;
        const char* language;
    } cases[] = {
        {u"ENU", "enu"}, {u"FRC", "fra"}, {u"DES", "deu"}, {u"PTG", "ptg"}, {u"PTB", "ptb"},
        {u"CHS", "chs"}, {u"CHT", "cht"}, {u"CSY", "csy"}, {u"ESM", "esp"}, {u"JPN", "jpn"},
        {u"nlb", "nld"}, {u"SVF", "sve"}, {u"ZHH", "enu"}, {u"XYZ", "enu"}, {u"", "enu"},
    };
    for (const auto& c : cases) {
        win32host::LocaleFacts facts;
        facts.abbreviation = c.abbreviation;
        win32host::SetLocaleFacts(facts);
        prtlocale locale;
        locale.LoadSystem();
        EXPECT_STREQ(locale.GetSystemLanguage(), c.language);
        EXPECT_STREQ(locale.GetCurrentLanguage(), c.language);
    }
}

} // namespace
