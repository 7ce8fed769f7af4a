#include "settings/scolor.h"

#include <array>
#include <cstring>
#include <memory>
#include <tuple>

#include "model/model_data_cache.h"
#include "model/prtmodel.h"
#include "spooler/printer_info.h"
#include "support/model_test.h"

namespace {

SCOLOR WithHeads(uint32_t heads, uint32_t mode) {
    SCOLOR record = {};
    record.heads = heads;
    record.SetMode(mode, true);
    return record;
}

// A printer whose model data is put into the record cache by the test.
class SpotColorOfPrinter : public PrinterTest {
protected:
    SpotColorOfPrinter() {
        ModelDataCache::Initialize();
        EXPECT_TRUE(AddDriver("Model 1", "zplqv.ddt"));
        EXPECT_TRUE(AddPrinter("Dock3", "Model 1"));
    }
    ~SpotColorOfPrinter() override { ModelDataCache::Free(); }

    std::unique_ptr<prtmodel> Model(uint16_t color) {
        KVModelData data = {};
        data.color = color;
        const ModelDataOwner owner{"Dock3", "Model 1(QV)"};
        ModelDataCache().Synchronize(owner);
        ModelDataCache().SetData(owner, "ModelData", &data, sizeof(data));
        return std::unique_ptr<prtmodel>(prtmodel::new_ext(PrinterInfo("Dock3")));
    }
};

} // namespace

TEST(SpotColor, ChoosesInksByModeAndHeads) {
    const struct {
        uint32_t mode;
        uint32_t heads;
        uint32_t last_plane;
        std::array<uint32_t, 4> inks; // as GetColor answers: unused planes are white
    } cases[] = {{1, 1, 0, {0x000000, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF}},
                 {1, 2, 1, {0x0000FF, 0x000000, 0xFFFFFF, 0xFFFFFF}},
                 {1, 3, 2, {0xFF0000, 0x0000FF, 0x000000, 0xFFFFFF}},
                 {1, 4, 3, {0x00FFFF, 0xFF0000, 0x0000FF, 0x000000}},
                 {2, 1, 3, {0x00FFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF}},
                 {2, 3, 3, {0x00FFFF, 0xFFFF00, 0xFF00FF, 0xFFFFFF}},
                 {2, 4, 3, {0x00FFFF, 0xFFFF00, 0xFF00FF, 0xFFFFFF}}, // black stays out
                 {3, 4, 3, {0x00FFFF, 0xFFFF00, 0xFF00FF, 0x000000}},
                 {4, 4, 3, {0x00FFFF, 0xFFFF00, 0xFF00FF, 0x000000}}};
    for (const auto& c : cases) {
        const SCOLOR record = WithHeads(c.heads, c.mode);
        EXPECT_EQ(record.last_plane, c.last_plane) << c.mode << ", " << c.heads << " heads";
        for (int i = 0; i < 4; ++i) {
            EXPECT_EQ(record.GetColor(i), c.inks[static_cast<size_t>(i)])
                << c.mode << ", " << c.heads << " heads, plane " << i;
            EXPECT_EQ(record.GetColorUsed(i), i < static_cast<int>(c.heads));
        }
    }
}

TEST(SpotColor, KeepsToItsFourPlanesWhateverWasStored) {
    SCOLOR record;
    std::memset(&record, 0xFF, sizeof(record));
    record.SetMode(SPOT_COLOR_HEADS, true);
    for (int plane : {-1, 4, 1000000}) {
        record.SetColorUsed(plane, true);
        record.SetColorPlane(plane, 0x123456);
        EXPECT_FALSE(record.GetColorUsed(plane));
        EXPECT_EQ(record.GetColor(plane), 0xFFFFFFu);
    }
    EXPECT_EQ(record.heads, 0xFFFFFFFFu);
}

TEST(SpotColor, MixesAPalette) {
    EXPECT_EQ(AddColors(0xC0C0C0, 0xFF80FF), 0xC041C0u);
    const std::tuple<uint32_t, uint32_t, int, uint32_t> cases[] = {
        {2, SPOT_COLOR_HEADS, 8, 0x0000FF},    {2, SPOT_COLOR_HEADS, 3, 0xFFFFFF},
        {4, SPOT_COLOR_PROCESS, 12, 0x00FF00}, {4, SPOT_COLOR_PROCESS, 10, 0x0000FF},
        {4, SPOT_COLOR_PROCESS, 6, 0xFF0000},  {4, SPOT_COLOR_PROCESS, 1, 0x000000}};
    for (const auto& [heads, mode, index, color] : cases) {
        Palette palette;
        WithHeads(heads, mode).GeneratePalette(palette);
        ASSERT_EQ(palette.GetSize(), 16);
        EXPECT_EQ(palette[index], color) << heads << " heads, " << index;
    }
}

TEST_F(SpotColorOfPrinter, BeginsWithWhatTheModelCanDo) {
    const struct {
        uint16_t color; // KVModelData::COLOR_ bits
        uint32_t heads, mode;
    } cases[] = {{0x00, 1, SPOT_COLOR_HEADS},    {0x01, 2, SPOT_COLOR_CMY},
                 {0x03, 3, SPOT_COLOR_CMY},      {0x07, 4, SPOT_COLOR_CMY},
                 {0x08, 3, SPOT_COLOR_HEADS},    {0x10, 4, SPOT_COLOR_HEADS},
                 {0x40, 4, SPOT_COLOR_SPECTRUM}, {0xFF, 4, SPOT_COLOR_SPECTRUM}};
    for (const auto& c : cases) {
        SCOLOR record;
        std::memset(&record, 0xFF, sizeof(record));
        record.Init(Model(c.color).get());
        const SCOLOR expected = WithHeads(c.heads, c.mode);
        EXPECT_EQ(NumberList({record.heads, record.mode, record.last_plane}),
                  NumberList({c.heads, c.mode, expected.last_plane}));
        for (int i = 0; i < 4; ++i) EXPECT_EQ(record.GetColor(i), expected.GetColor(i)) << c.color;
    }
}

TEST_F(SpotColorOfPrinter, ReadsWhatIsStored) {
    SCOLOR record = WithHeads(3, SPOT_COLOR_HEADS), stored = WithHeads(4, SPOT_COLOR_PROCESS);
    prtreg registry("Dock3");
    EXPECT_TRUE(record.Load(registry));
    EXPECT_EQ(record.GetHeads(), 3);
    for (const uint32_t size : {76u, 4u}) { // of a shorter one the rest stays
        stored.mode = size;
        registry.SetBinary("Settings:Spot Color", &stored, size);
        EXPECT_TRUE(record.Load(registry));
        EXPECT_EQ(std::memcmp(&record, &stored, sizeof(record)), 0);
    }
}
