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

    template <class T>
    T Value() const {
        T value;
        std::memcpy(&value, output_.data(), sizeof value);
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
