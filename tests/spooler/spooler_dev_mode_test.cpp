#include "spooler/spooler_dev_mode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <vector>

namespace {

using Bytes = std::vector<unsigned char>;

// An ANSI DEVMODE of exactly these sizes. Every public byte after the sizes has the value of its
// position, except in the names, which fill their room.
Bytes AnsiDevMode(WORD public_part, WORD private_part) {
    Bytes bytes(size_t{public_part} + private_part, 0xEE);
    for (size_t i = 0; i < public_part; ++i) {
        const bool device = i < CCHDEVICENAME;
        const bool form =
            i >= offsetof(DEVMODEA, dmFormName) && i < offsetof(DEVMODEA, dmLogPixels);
        bytes[i] = device ? 'd' : form ? 'f' : static_cast<unsigned char>(i);
    }
    std::memcpy(&bytes[offsetof(DEVMODEA, dmSize)], &public_part, sizeof public_part);
    std::memcpy(&bytes[offsetof(DEVMODEA, dmDriverExtra)], &private_part, sizeof private_part);
    return bytes;
}

OBuffer<unsigned char> Widen(const Bytes& ansi) {
    return CopyDevMode(reinterpret_cast<const DEVMODEA*>(ansi.data()), ansi.size());
}

} // namespace

TEST(AnsiDevModes, GrowByTheirNamesWhereverTheyEnd) {
    const struct {
        WORD ansi, wide;
        size_t form_characters;
    } cases[] = {{40, 72, 0},    {44, 76, 0},    {70, 102, 0},   {71, 104, 0},
                 {80, 122, 9},   {101, 164, 30}, {102, 166, 31}, {104, 168, 31},
                 {124, 188, 31}, {156, 220, 31}, {200, 264, 31}};
    for (const auto& c : cases) {
        const Bytes ansi = AnsiDevMode(c.ansi, 5);
        const OBuffer<unsigned char> wide = Widen(ansi);
        ASSERT_EQ(wide.GetSize(), c.wide + 5u) << c.ansi;
        DEVMODEW read = {};
        std::memcpy(&read, wide.GetData(), std::min<size_t>(c.wide, sizeof read));
        EXPECT_EQ(read.dmSize, c.wide);
        EXPECT_EQ(read.dmDriverExtra, 5);
        EXPECT_EQ(read.dmSpecVersion, 0x2120);
        EXPECT_EQ(read.dmDeviceName[30], 'd');
        EXPECT_EQ(read.dmDeviceName[31], 0) << "the name has a terminator";
        if (c.ansi >= 44) {
            EXPECT_EQ(read.dmFields, 0x2B2A2928u);
        }
        if (c.ansi >= 70) {
            EXPECT_EQ(read.dmCollate, 0x4544);
        }
        for (size_t i = 0; i < CCHFORMNAME; ++i)
            EXPECT_EQ(read.dmFormName[i], i < c.form_characters ? 'f' : 0) << c.ansi << " " << i;
        if (c.ansi >= 104) {
            EXPECT_EQ(read.dmLogPixels, 0x6766);
        }
        if (c.ansi >= 156) {
            EXPECT_EQ(read.dmPanningHeight, 0x9B9A9998u);
        }
        for (uint32_t i = c.wide; i < wide.GetSize(); ++i) EXPECT_EQ(wide[i], 0xEE);
    }
}

TEST(AnsiDevModes, ThatAreCutOrGrowTooLargeAreNone) {
    const Bytes whole = AnsiDevMode(156, 20);
    EXPECT_EQ(Widen(whole).GetSize(), 240u);
    for (size_t size = 0; size < whole.size(); ++size) {
        const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_EQ(Widen(cut).GetSize(), 0u) << size;
    }
    EXPECT_EQ(Widen(AnsiDevMode(0xFFFF - 64, 0)).GetSize(), 0xFFFFu);
    EXPECT_EQ(Widen(AnsiDevMode(0xFFFF - 63, 0)).GetSize(), 0u);
}
