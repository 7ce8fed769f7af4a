// The printer model's answers to the spooler, straight from the model.

#include <cstring>
#include <tuple>
#include <utility>
#include <vector>

#include "support/model_test.h"

namespace {

constexpr uint32_t NOT_SUPPORTED = 0xFFFFFFFF;

class PrinterModelCapabilities : public ModelTest {
protected:
    static const size_t ROOM = 4096;

    // Asks with room that was filled with a pattern first.
    uint32_t Ask(uint16_t capability) {
        output_.assign(ROOM, 0xEE);
        return Model()->DeviceCapabilitiesW(capability, output_.data(), nullptr);
    }

    uint32_t AskForNumber(uint16_t capability) {
        return Model()->DeviceCapabilitiesW(capability, nullptr, nullptr);
    }

    // The number of bytes written, if they are one run from the start.
    size_t Written() const {
        size_t end = output_.size();
        while (end > 0 && output_[end - 1] == 0xEE) --end;
        return end;
    }

    std::string Name(size_t slot, size_t room) const {
        std::string text;
        const auto* units = reinterpret_cast<const WCHAR*>(output_.data()) + slot * room;
        size_t i = 0;
        for (; i < room && units[i]; ++i) text += static_cast<char>(units[i]);
        EXPECT_LT(i, room) << "not terminated";
        for (; i < room; ++i) EXPECT_EQ(units[i], 0) << "not padded";
        return text;
    }

    template <class T>
    T Value(size_t offset = 0) const {
        T value;
        std::memcpy(&value, output_.data() + offset, sizeof value);
        return value;
    }

    std::vector<unsigned char> output_;
};

} // namespace

TEST_F(PrinterModelCapabilities, ThatAreNumbersOrNotSupported) {
    Install({.model = "Color=yes\nColor.Spot=3\n", .method = "Copies.Limit=99\n"});
    const std::pair<uint16_t, uint32_t> cases[] = {
        {DC_DUPLEX, 0},  {DC_TRUETYPE, 1},  {DC_ORIENTATION, 90},
        {DC_COPIES, 99}, {DC_BINADJUST, 2}, {DC_EMF_COMPLIANT, 1},
        {DC_COLLATE, 0}, {DC_STAPLE, 0},    {DC_COLORDEVICE, 1}};
    for (const auto& [capability, expected] : cases) {
        EXPECT_EQ(Ask(capability), expected) << capability;
        EXPECT_EQ(Written(), 0u) << capability;
        EXPECT_EQ(AskForNumber(capability), expected) << capability;
    }
    for (int capability : {0, 21, 23, 24, 26, 27, 28, 29, 31, 34, 0x101, 0xFFFF}) {
        EXPECT_EQ(Ask(static_cast<uint16_t>(capability)), NOT_SUPPORTED) << capability;
        EXPECT_EQ(Written(), 0u) << capability;
    }
}

TEST_F(PrinterModelCapabilities, OfPaperStayWithinSixteenBits) {
    const std::tuple<const char*, const char*, uint32_t, uint32_t> cases[] = {
        {"Stock.Minimum.X=20 mm\nStock.Minimum.Y=6.4 mm\n",
         "Stock.Maximum.X=4 in\nStock.Maximum.Y=991 mm\n", 64u << 16 | 200, 9910u << 16 | 1016},
        {"", "Stock.Maximum.X=4000 mm\nStock.Maximum.Y=-5 mm\n", 1u << 16 | 1, 1u << 16 | 32767}};
    Install({});
    for (const auto& [minimum, maximum, smallest, largest] : cases) {
        Replace({.model = std::string(minimum) + maximum});
        EXPECT_EQ(Ask(DC_MINEXTENT), smallest);
        EXPECT_EQ(Written(), 4u);
        EXPECT_EQ(Value<uint32_t>(), smallest);
        EXPECT_EQ(Ask(DC_MAXEXTENT), largest);
        EXPECT_EQ(Value<uint32_t>(), largest);
        EXPECT_EQ(AskForNumber(DC_MAXEXTENT), largest);
    }
}

TEST_F(PrinterModelCapabilities, OfBinsSheetsAndNamesFillOneSlotEach) {
    Install({});
    EXPECT_EQ(Ask(DC_BINS), 1u);
    EXPECT_EQ(Written(), 2u);
    EXPECT_EQ(Value<uint16_t>(), DMBIN_USER);
    EXPECT_EQ(Ask(DC_NUP), 1u);
    EXPECT_EQ(Written(), 4u);
    EXPECT_EQ(Value<uint32_t>(), 1u);
    EXPECT_EQ(Ask(DC_BINNAMES), 1u);
    EXPECT_EQ(Written(), 24 * sizeof(WCHAR));
    EXPECT_EQ(Name(0, 24), "Internal Spool");
    EXPECT_EQ(Ask(DC_PERSONALITY), 1u);
    EXPECT_EQ(Written(), 32 * sizeof(WCHAR));
    EXPECT_EQ(Name(0, 32), "ZPL");
    EXPECT_EQ(Ask(DC_FILEDEPENDENCIES), 2u);
    EXPECT_EQ(Written(), 2 * 64 * sizeof(WCHAR));
    EXPECT_EQ(Name(0, 64), "zplrender.dll");
    EXPECT_EQ(Name(1, 64), "zplvenu.dll");
    for (WORD capability : {WORD{DC_BINS}, WORD{DC_NUP}, WORD{DC_BINNAMES}, WORD{DC_PERSONALITY}})
        EXPECT_EQ(AskForNumber(capability), 1u);
    EXPECT_EQ(AskForNumber(DC_FILEDEPENDENCIES), 2u);
}

TEST_F(PrinterModelCapabilities, OfResolutionsArePairs) {
    Install({.model = "Resolution=203,300x600\n"});
    EXPECT_EQ(AskForNumber(DC_ENUMRESOLUTIONS), 2u);
    EXPECT_EQ(Ask(DC_ENUMRESOLUTIONS), 2u);
    EXPECT_EQ(Written(), 16u);
    const int32_t expected[] = {203, 203, 300, 600};
    for (size_t i = 0; i < 4; ++i) EXPECT_EQ(Value<int32_t>(4 * i), expected[i]);
}

TEST_F(PrinterModelCapabilities, OfADevModeAreReadFromIt) {
    Install({});
    DEVMODEW dev_mode = {};
    dev_mode.dmFields = 0x12345678;
    dev_mode.dmSize = 220;
    dev_mode.dmDriverExtra = 1000;
    dev_mode.dmSpecVersion = 0x401;
    dev_mode.dmDriverVersion = 0x607;
    const std::pair<uint16_t, uint32_t> cases[] = {{DC_FIELDS, 0x12345678},
                                                   {DC_SIZE, 220},
                                                   {DC_EXTRA, 1000},
                                                   {DC_VERSION, 0x401},
                                                   {DC_DRIVER, 0x607}};
    for (const auto& [capability, expected] : cases) {
        EXPECT_EQ(Model()->DeviceCapabilitiesW(capability, nullptr, &dev_mode), expected);
        EXPECT_EQ(AskForNumber(capability), NOT_SUPPORTED);
    }
}
