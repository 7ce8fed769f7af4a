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
    void Use(const CustomData& data, const std::string& model = "Resolution=203") {
        const ModelTables tables = {.model = model, .custom_data = CustomDataLines(data)};
        if (installed_)
            Replace(tables);
        else
            Install(tables);
        installed_ = true;
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

TEST(ZplMediaFeed, HasALetterForEachAction) {
    const struct {
        int action;
        const char* letter;
    } cases[] = {{0, "F"}, {1, "N"}, {2, "L"}, {3, "C"}, {4, "N"}, {-1, "N"}};
    for (const auto& c : cases) EXPECT_STREQ(extconfig::mediafeed(c.action), c.letter);
}
