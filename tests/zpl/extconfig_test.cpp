// The configuration of a ZPL printer: its defaults and limits.
#include "zpl/extconfig.h"

#include <cstring>
#include <string>
#include <vector>

#include "support/model_test.h"

namespace {

class ZplConfiguration : public ModelTest {
protected:
    void Use(const CustomData& data, const std::string& model = "Resolution=203") {
        const ModelTables tables = {.model = model, .custom_data = CustomDataLines(data)};
        if (installed_)
            Replace(tables);
        else
            Install(tables);
        installed_ = true;
    }

    // The default configuration after a change of one field and validation.
    template <class T>
    static extconfig Validated(T extconfig::*field, T value) {
        const auto model = Model();
        alignas(4) extconfig config;
        config.Reset(model.get());
        T changed = value;
        std::memcpy(&(config.*field), &changed, sizeof changed);
        config.Validate(model.get());
        return config;
    }

private:
    bool installed_ = false;
};

CustomData WithSpeeds(std::vector<CustomData::Speed> speeds, uint32_t flags = 0) {
    CustomData data = {};
    data.flags = flags;
    std::copy(speeds.begin(), speeds.end(), data.speeds);
    return data;
}

} // namespace

TEST_F(ZplConfiguration, StartsWithTheDefaultsInTheirPlaces) {
    Use(WithSpeeds({{2, "A", 0}, {4, "C", 1}, {6, "E", 1}}));
    extconfig config;
    std::memset(&config, 0x5A, sizeof config);
    prtconfig::Reset(&config, Model().get());

    const struct {
        size_t offset;
        uint16_t value;
    } words[] = {{1024, 1116}, {1026, 1028}, {1032, 6350}, {1036, 2},     {1048, 2},
                 {1050, 2},    {1054, 18},   {1056, 16},   {1060, 65535}, {1062, 65535},
                 {1072, 4},    {1076, 4},    {1080, 4},    {1096, 12},    {1100, 65535}};
    std::vector<char> expected(1116);
    for (const auto& word : words) std::memcpy(&expected[word.offset], &word.value, 2);
    const auto* bytes = reinterpret_cast<const char*>(&config);
    for (size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(bytes[i], expected[i]) << "byte " << i;
    EXPECT_EQ(prtconfig::GetTotalSize(), 1124);
}

TEST_F(ZplConfiguration, KeepsItsFieldsInTheirPlaces) {
    const extconfig config = {};
    const struct {
        const void* field;
        ptrdiff_t offset;
    } cases[] = {{&config.media_type, 1060},
                 {&config.media_tracking, 1062},
                 {&config.backfeed, 1064},
                 {&config.backfeed_percentage, 1068},
                 {&config.print_speed, 1072},
                 {&config.slew_speed, 1076},
                 {&config.backfeed_speed, 1080},
                 {&config.label_top, 1084},
                 {&config.tear_off, 1088},
                 {&config.relative_darkness, 1092},
                 {&config.absolute_darkness, 1096},
                 {&config.print_mode, 1100},
                 {&config.option, 1102},
                 {&config.cut_variant, 1104},
                 {&config.stock_option, 1106},
                 {&config.stock_count, 1108},
                 {&config.setting_flags, 1112}};
    for (const auto& c : cases)
        EXPECT_EQ(static_cast<const char*>(c.field) - reinterpret_cast<const char*>(&config),
                  c.offset);
}

TEST_F(ZplConfiguration, KeepsDarknessInItsTwoRanges) {
    Use({});
    const struct {
        int32_t value, relative, absolute;
    } cases[] = {{45, 30, 30}, {-45, -30, 0}, {30, 30, 30}, {-30, -30, 0}, {31, 30, 30}, {7, 7, 7}};
    for (const auto& c : cases) {
        EXPECT_EQ(Validated(&extconfig::relative_darkness, c.value).relative_darkness, c.relative);
        EXPECT_EQ(Validated(&extconfig::absolute_darkness, c.value).absolute_darkness, c.absolute);
    }
}

TEST_F(ZplConfiguration, TakesBackWhatTheModelLacks) {
    const struct {
        const char* what;
        uint32_t has;
        bool kept;
        int16_t print_mode;
        int16_t cut_variant;
        uint16_t flags;
    } cases[] = {
        {"no cutter", 0, false, 0, 0, 0xFFDE},
        {"a cutter", CustomData::CUTTER, true, 3, 2, 0xFFDF},
        {"absolute darkness", CustomData::ABSOLUTE_DARKNESS, false, 0, 0, 0xFFFE},
    };
    for (const auto& c : cases) {
        CustomData data = {};
        data.flags = c.has;
        Use(data);
        const auto model = Model();
        extconfig config;
        config.Reset(model.get());
        config.print_mode = extconfig::PRINT_CUTTER;
        config.cut_variant = 2;
        config.setting_flags = 0xFFFF;
        config.Validate(model.get());
        EXPECT_EQ(config.print_mode, c.print_mode) << c.what;
        EXPECT_EQ(config.cut_variant, c.cut_variant) << c.what;
        EXPECT_EQ(config.setting_flags, c.flags) << c.what;
        EXPECT_EQ(config.get_pauseaftercut(), c.kept) << c.what;
    }
}

TEST_F(ZplConfiguration, RewindsUnlessThePrinterOnlyEmulates) {
    Use({});
    EXPECT_EQ(Validated<int16_t>(&extconfig::print_mode, 2).print_mode, 2);
    Use({}, "~ArgoxPPLZ=yes");
    EXPECT_EQ(Validated<int16_t>(&extconfig::print_mode, 2).print_mode, -1);
    EXPECT_EQ(Validated<int16_t>(&extconfig::print_mode, 1).print_mode, 1);
}

TEST_F(ZplConfiguration, LimitsOffsetsByTheDotsOfTheModel) {
    CustomData data = {};
    data.label_top_min = -120;
    data.label_top_max = 120;
    data.tear_off_min = -64;
    data.tear_off_max = 99;
    const struct {
        const char* what;
        const char* model;
        uint32_t flags;
        int32_t value, label_top, tear_off;
    } cases[] = {
        {"too far", "Resolution=203", CustomData::TEAR_OFF, 20000, 15015, 12387},
        {"too far back", "Resolution=203", CustomData::TEAR_OFF, -20000, -15015, -8008},
        {"within", "Resolution=203x300", CustomData::TEAR_OFF, 5000, 5000, 5000},
        {"fine dots", "Resolution=600", CustomData::TEAR_OFF, 20000, 5080, 4191},
        {"no tear-off", "Resolution=203", 0, 20000, 15015, 20000},
        {"no resolution", "", CustomData::TEAR_OFF, 20000, 20000, 20000},
    };
    for (const auto& c : cases) {
        data.flags = c.flags;
        Use(data, c.model);
        EXPECT_EQ(Validated(&extconfig::label_top, c.value).label_top, c.label_top) << c.what;
        EXPECT_EQ(Validated(&extconfig::tear_off, c.value).tear_off, c.tear_off) << c.what;
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
        EXPECT_EQ(Validated(&extconfig::print_speed, c.value).print_speed, c.expected) << c.what;
        EXPECT_EQ(Validated(&extconfig::slew_speed, c.value).slew_speed, c.expected) << c.what;
        EXPECT_EQ(Validated(&extconfig::backfeed_speed, c.value).backfeed_speed, c.expected)
            << c.what;
    }
}

TEST_F(ZplConfiguration, BackfeedsByPercentageOnlyWhereThePrinterCan) {
    const struct {
        uint32_t flags;
        int32_t backfeed, percentage, backfeed_after, percentage_after;
    } cases[] = {{0, 4, 50, 0, 0},
                 {0, 3, 150, 3, 150},
                 {CustomData::BACKFEED_PERCENTAGE, 4, 150, 4, 100},
                 {CustomData::BACKFEED_PERCENTAGE, 4, -1, 4, 0},
                 {CustomData::BACKFEED_PERCENTAGE, 1, 70, 1, 70}};
    for (const auto& c : cases) {
        Use(WithSpeeds({}, c.flags));
        const auto model = Model();
        extconfig config;
        config.Reset(model.get());
        config.backfeed = c.backfeed;
        config.backfeed_percentage = c.percentage;
        config.Validate(model.get());
        EXPECT_EQ(config.backfeed, c.backfeed_after) << c.backfeed << " " << c.percentage;
        EXPECT_EQ(config.backfeed_percentage, c.percentage_after)
            << c.backfeed << " " << c.percentage;
    }
}

TEST_F(ZplConfiguration, UsesTheMediaThatThePrinterIsMadeFor) {
    const struct {
        uint32_t flags;
        int16_t value, expected;
    } cases[] = {{0, 0, 0},
                 {0, 1, 1},
                 {CustomData::TRANSFER_ONLY, 0, 1},
                 {CustomData::TRANSFER_ONLY, -1, -1},
                 {CustomData::DIRECT_ONLY, 1, 0},
                 {CustomData::TRANSFER_ONLY | CustomData::DIRECT_ONLY, 0, 0}};
    for (const auto& c : cases) {
        Use(WithSpeeds({}, c.flags));
        EXPECT_EQ(Validated(&extconfig::media_type, c.value).media_type, c.expected) << c.flags;
    }
}

TEST_F(ZplConfiguration, BoundsTheOptionsOfThePages) {
    const struct {
        uint32_t flags;
        int16_t value, expected;
    } options[] = {{0, 2, 2},
                   {0, 3, 0},
                   {0, -1, 0},
                   {0, 5, 0},
                   {CustomData::EXTENDED_OPTIONS, 4, 4},
                   {CustomData::EXTENDED_OPTIONS, 5, 0}};
    for (const auto& c : options) {
        Use(WithSpeeds({}, c.flags));
        EXPECT_EQ(Validated(&extconfig::option, c.value).option, c.expected) << c.value;
    }
    EXPECT_EQ(Validated<int32_t>(&extconfig::stock_count, 0).stock_count, 1);
    EXPECT_EQ(Validated<int32_t>(&extconfig::stock_count, 10000).stock_count, 9999);
}

TEST(ZplSpeeds, HaveTheLetterOfTheirFirstEntry) {
    CustomData data = WithSpeeds({{2, "A", 0}, {4, "C", 1}, {4, "D", 1}, {6, "", 0}});
    std::memcpy(data.speeds[4].letter, "xyz", 3);
    data.speeds[4].value = 12;
    const struct {
        int32_t speed;
        const char* letter;
    } cases[] = {{2, "A"}, {4, "C"}, {6, ""}, {5, ""}, {0, ""}, {12, "xyz"}};
    for (const auto& c : cases)
        EXPECT_EQ(Text(extconfig::FindSpdLetter(c.speed, data)), c.letter) << c.speed;
    EXPECT_EQ(extconfig::GetDefaultSpeed(data), 4);
    EXPECT_EQ(extconfig::GetDefaultSpeed({}), 0);
}

TEST(ZplDarkness, IsTheOneInForce) {
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
}

TEST(ZplMediaFeed, HasALetterForEachAction) {
    const struct {
        int action;
        const char* letter;
    } cases[] = {{0, "F"}, {1, "N"}, {2, "L"}, {3, "C"}, {4, "N"}, {-1, "N"}};
    for (const auto& c : cases) EXPECT_STREQ(extconfig::mediafeed(c.action), c.letter);
}
