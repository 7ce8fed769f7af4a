// The configuration of a ZPL printer: its defaults and limits.
#include "zpl/extconfig.h"

#include <cstring>
#include <string>
#include <variant>
#include <vector>

#include "support/model_test.h"

namespace {

using Field = std::variant<int16_t extconfig::*, uint16_t extconfig::*, int32_t extconfig::*>;

class ZplConfiguration : public ModelTest {
protected:
    void SetUp() override { Install({}); }

    void Use(const CustomData& data, const std::string& model = "Resolution=203") {
        Replace({.model = model, .custom_data = CustomDataLines(data)});
    }

    // A field of the default configuration after it was set and validated.
    static int32_t Validated(const Field& field, int32_t value) {
        const auto model = Model();
        alignas(4) extconfig config;
        config.Reset(model.get());
        return std::visit(
            [&](auto member) {
                config.*member = static_cast<std::decay_t<decltype(config.*member)>>(value);
                config.Validate(model.get());
                return int32_t{config.*member};
            },
            field);
    }
};

CustomData WithSpeeds(std::vector<CustomData::Speed> speeds, uint32_t flags = 0) {
    CustomData data = {};
    data.flags = flags;
    std::copy(speeds.begin(), speeds.end(), data.speeds);
    return data;
}

} // namespace

TEST_F(ZplConfiguration, BringsEachSettingIntoTheLimitsOfTheModel) {
    constexpr uint32_t kOnlyTransfer = CustomData::TRANSFER_ONLY;
    constexpr uint32_t kOnlyDirect = CustomData::DIRECT_ONLY;
    constexpr char kPplz[] = "~ArgoxPPLZ=yes";
    const struct {
        Field field;
        int32_t value, expected;
        uint32_t flags = 0;
        const char* model = "Resolution=203";
    } cases[] = {
        {&extconfig::relative_darkness, 45, 30},
        {&extconfig::relative_darkness, -45, -30},
        {&extconfig::relative_darkness, -30, -30},
        {&extconfig::absolute_darkness, 31, 30},
        {&extconfig::absolute_darkness, -1, 0},
        {&extconfig::absolute_darkness, 30, 30},
        {&extconfig::print_mode, 3, 0},
        {&extconfig::print_mode, 3, 3, CustomData::CUTTER},
        {&extconfig::cut_variant, 2, 0},
        {&extconfig::cut_variant, 2, 2, CustomData::CUTTER},
        {&extconfig::setting_flags, 0xFFFF, 0xFFDE},
        {&extconfig::setting_flags, 0xFFFF, 0xFFDF, CustomData::CUTTER},
        {&extconfig::setting_flags, 0xFFFF, 0xFFFE, CustomData::ABSOLUTE_DARKNESS},
        {&extconfig::print_mode, 2, 2},
        {&extconfig::print_mode, 2, -1, 0, kPplz},
        {&extconfig::print_mode, 1, 1, 0, kPplz},
        {&extconfig::stock_count, 0, 1},
        {&extconfig::stock_count, 10000, 9999},
        {&extconfig::backfeed, 4, 0},
        {&extconfig::backfeed, 3, 3},
        {&extconfig::backfeed, 4, 4, CustomData::BACKFEED_PERCENTAGE},
        {&extconfig::backfeed_percentage, 150, 150},
        {&extconfig::backfeed_percentage, 150, 100, CustomData::BACKFEED_PERCENTAGE},
        {&extconfig::backfeed_percentage, -1, 0, CustomData::BACKFEED_PERCENTAGE},
        {&extconfig::option, 2, 2},
        {&extconfig::option, 3, 0},
        {&extconfig::option, -1, 0},
        {&extconfig::option, 4, 4, CustomData::EXTENDED_OPTIONS},
        {&extconfig::option, 5, 0, CustomData::EXTENDED_OPTIONS},
        {&extconfig::media_type, 1, 1},
        {&extconfig::media_type, 0, 1, kOnlyTransfer},
        {&extconfig::media_type, -1, -1, kOnlyTransfer},
        {&extconfig::media_type, 1, 0, kOnlyDirect},
        {&extconfig::media_type, 0, 0, kOnlyTransfer | kOnlyDirect},
        {&extconfig::label_top, 20000, 15015},
        {&extconfig::label_top, -20000, -15015},
        {&extconfig::label_top, 5000, 5000, 0, "Resolution=203x300"},
        {&extconfig::label_top, 20000, 5080, 0, "Resolution=600"},
        {&extconfig::label_top, 20000, 20000, 0, ""},
        {&extconfig::tear_off, 20000, 12387, CustomData::TEAR_OFF},
        {&extconfig::tear_off, -20000, -8008, CustomData::TEAR_OFF},
        {&extconfig::tear_off, 20000, 4191, CustomData::TEAR_OFF, "Resolution=600"},
        {&extconfig::tear_off, 20000, 20000},
        {&extconfig::tear_off, 20000, 20000, CustomData::TEAR_OFF, ""},
    };
    CustomData data = {};
    data.label_top_min = -120;
    data.label_top_max = 120;
    data.tear_off_min = -64;
    data.tear_off_max = 99;
    for (const auto& c : cases) {
        data.flags = c.flags;
        Use(data, c.model);
        EXPECT_EQ(Validated(c.field, c.value), c.expected)
            << "case " << &c - cases << ", value " << c.value;
    }
}

TEST_F(ZplConfiguration, BringsSpeedsIntoTheTable) {
    const struct {
        const char* what;
        std::vector<CustomData::Speed> speeds;
        int32_t value, expected;
    } cases[] = {
        {"too fast", {{2, "A", 0}, {3, "B", 0}, {4, "C", 0}}, 6, 4},
        {"none without a default", {{2, "A", 0}, {3, "B", 0}, {4, "C", 0}}, 0, 0},
        {"none", {{2, "A", 1}, {3, "B", 0}, {4, "C", 0}}, 0, 2},
        {"negative", {{2, "A", 0}, {3, "B", 1}, {4, "C", 0}}, -7, 3},
        {"none with two defaults", {{2, "A", 1}, {3, "B", 0}, {4, "C", 1}}, 0, 4},
        {"a gap in the table", {{2, "A", 1}, {0, "", 0}, {8, "C", 0}}, 9, 8},
        {"no table", {}, 5, 0},
    };
    for (const auto& c : cases) {
        Use(WithSpeeds(c.speeds));
        for (const Field speed :
             {&extconfig::print_speed, &extconfig::slew_speed, &extconfig::backfeed_speed})
            EXPECT_EQ(Validated(speed, c.value), c.expected) << c.what;
    }
}

TEST(ZplSettings, AreThoseInForce) {
    extconfig config = {};
    config.setting_flags = extconfig::SETTING_SPEEDS;
    config.SetDarkness(-3);
    config.SetAbsoluteDarkness(true);
    EXPECT_EQ(config.GetDarkness(), 0);
    config.SetDarkness(21);
    EXPECT_EQ(config.setting_flags, 8 | 32);
    EXPECT_EQ(config.GetDarkness(), 21);
    config.SetAbsoluteDarkness(false);
    EXPECT_EQ(config.GetDarkness(), -3);
    EXPECT_EQ(config.absolute_darkness, 21);
    EXPECT_EQ(config.setting_flags, 8);

    config.setting_flags = extconfig::SETTING_PAUSE_AFTER_CUT;
    EXPECT_FALSE(config.get_pauseaftercut());
    config.print_mode = extconfig::PRINT_CUTTER;
    EXPECT_TRUE(config.get_pauseaftercut());
}
