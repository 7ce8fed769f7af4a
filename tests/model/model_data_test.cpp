// The model data record, by the offsets of its fields.

#include <win32host/clock_control.h>

#include <cstring>
#include <vector>

#include "model/driver_settings.h"
#include "model/model_data_cache.h"
#include "support/model_test.h"

namespace {

class ModelData : public ModelTest {
protected:
    // The value of `size` bytes at an offset of the record.
    int64_t At(size_t offset, size_t size) const {
        uint64_t value = 0;
        for (size_t i = size; i-- > 0;) value = value << 8 | bytes_[offset + i];
        const unsigned unused = 64 - 8 * static_cast<unsigned>(size);
        return static_cast<int64_t>(value << unused) >> unused;
    }

    std::string TextAt(size_t offset, size_t size) const {
        std::string text(reinterpret_cast<const char*>(bytes_) + offset, size);
        EXPECT_EQ(text.back(), 0) << "terminator of the text at " << offset;
        EXPECT_EQ(text.find_first_not_of('\0', strlen(text.c_str())), std::string::npos)
            << "padding of the text at " << offset;
        return text.c_str();
    }

    void Load() { std::memcpy(bytes_, Model()->GetModelData(), sizeof bytes_); }
    void Load(const ModelTables& tables) {
        Install(tables);
        Load();
    }

    // The effect of one line in a table on a field.
    struct Case {
        std::string ModelTables::*table;
        const char* lines;
        size_t offset;
        size_t size;
        int64_t expected;
    };
    void Check(const std::vector<Case>& cases) {
        Install({});
        for (const Case& c : cases) {
            ModelTables tables;
            tables.*c.table = c.lines;
            Replace(tables);
            Load();
            EXPECT_EQ(At(c.offset, c.size), c.expected) << c.lines << " at " << c.offset;
        }
    }

private:
    unsigned char bytes_[180];
};

constexpr auto model = &ModelTables::model;
constexpr auto drawing = &ModelTables::drawing;
constexpr auto method = &ModelTables::method;
constexpr auto font = &ModelTables::font;

} // namespace

TEST_F(ModelData, HasNamesCutToTheirFields) {
    Load({.manufacturer = "CompanyName=A company whose name goes on and on and on\n"
                          "ProductName=Label Printer Driver\nFonts.Prefix=A long prefix\n"});
    EXPECT_EQ(TextAt(0, 32), "A company whose name goes on an");
    EXPECT_EQ(TextAt(32, 32), "Label Printer Driver");
    EXPECT_EQ(TextAt(64, 12), "A long pref");
}

TEST_F(ModelData, OfAnEmptyModelOrAMissingFileIsZerosAndDefaults) {
    Load({});
    std::vector<int> expected(180, 0);
    expected[118] = 1;    // monochrome
    expected[119] = 1;    // left
    expected[138] = 1;    // nothing forbids turned text
    expected[142] = 0xFF; // 32767 copies
    expected[143] = 0x7F;
    const auto check = [&] {
        for (size_t i = 0; i < 180; ++i) EXPECT_EQ(At(i, 1) & 0xFF, expected[i]) << i;
    };
    check();
    ASSERT_TRUE(AddDriver("Model 1", "missing.ddt"));
    Model()->FlushDataCache();
    Load();
    check();
}

TEST_F(ModelData, KnowsColour) {
    Check({{model, "Color=yes\nColor.Spot=2", 116, 2, 0x01},
           {model, "Color=yes\nColor.Spectrum=16,24,32", 116, 2, 0xE0},
           {model, "Color=yes\nColor.Spot=3,4", 116, 2, 0x06},
           {model, "Color=yes\nColor.DefaultState=color", 118, 1, 2},
           {model, "Color=yes\nColor.Process=cmy", 116, 2, 0x08},
           {model, "Color=no\nColor.Spot=2\nColor.DefaultState=Color", 116, 2, 0},
           {model, "Color=yes\nColor.Process=CMYK", 116, 2, 0x10},
           {model, "Color=no\nColor.Spot=2\nColor.DefaultState=Color", 118, 1, 1},
           {model, "Color=yes\nColor.DefaultState=Mono", 118, 1, 1}});
}

TEST_F(ModelData, TranslatesWords) {
    Check({{model, "Stock.Tracking=right", 119, 1, 0},
           {drawing, "Transform.Orientation=180", 120, 1, 2},
           {model, "Stock.Tracking=LEFT", 119, 1, 1},
           {drawing, "Transform.Orientation=270", 120, 1, 3},
           {model, "Stock.Tracking=center", 119, 1, 2},
           {drawing, "Line.Thickness.Anchor=Center", 126, 1, 0},
           {model, "Stock.Tracking=sideways", 119, 1, 1},
           {drawing, "Line.Thickness.Anchor=edge", 126, 1, 1},
           {drawing, "Transform.Orientation=90", 120, 1, 1},
           {drawing, "Line.Thickness.Anchor=Outer", 126, 1, 1},
           {drawing, "Transform.Orientation=45", 120, 1, 0},
           {drawing, "Box.Thickness.Anchor=Inner", 130, 1, 2},
           {drawing, "Line.Anchor=Top/Right", 127, 1, 1},
           {drawing, "BarCode.Anchor=Bottom/Right", 133, 1, 3},
           {drawing, "Box.Anchor=bottom/left", 131, 1, 2},
           {drawing, "Text.Anchor=Baseline/Left", 136, 1, 4},
           {drawing, "Text.Anchor=Middle", 136, 1, 0},
           {drawing, "Text.Anchor=Baseline/Right", 136, 1, 5}});
}

TEST_F(ModelData, KnowsWhatThePrinterDraws) {
    Check({{drawing, "Transform.Mirror=yes", 120, 4, 0x00010000},
           {drawing, "Transform.Flip180=yes", 120, 4, 0x00000100},
           {drawing, "Line.Thickness.Maximum=-2", 124, 2, -2},
           {drawing, "Transform.Inverse=yes", 120, 4, 0x01000000},
           {drawing, "Box.Fill=on", 132, 1, 1},
           {drawing, "Line.Thickness.Maximum=32000", 124, 2, 32000},
           {drawing, "BarCode.Anchor.Relative=1", 134, 1, 1},
           {drawing, "Line.Thickness.Maximum=40000", 124, 2, 32767},
           {drawing, "Text.Anchor.Relative=yes", 137, 1, 1},
           {drawing, "Box.Thickness.Maximum=2000000000", 128, 2, 32767},
           {drawing, "Text.Rotation=None", 138, 2, 0},
           {drawing, "Text.WhiteOnBlack.Background=yes", 135, 1, 1},
           {drawing, "Text.Rotation=90,Any", 138, 2, 3},
           {drawing, "Transform.MapResolution=600", 140, 2, 600},
           {drawing, "Text.Scaling=Anisotropic", 138, 2, 5}});
}

TEST_F(ModelData, TakesTheOemsValueBeforeTheCommonOne) {
    const char* const lines = "Copies.Limit=99\nCopies.Limit(AB)=5\nSerialization(AB)=yes\n";
    Install({.method = lines}, "ab");
    Load();
    EXPECT_EQ(At(142, 2), 5);
    EXPECT_EQ(Model()->GetCapabilitiesData()->method_bits, 1);
}

TEST_F(ModelData, FollowsTheDriverSettingsWhenTheyOverrideIt) {
    Install({.model = "Resolution=203,600\nStock.Minimum.X=20 mm\nStock.Printable.X=100 mm\n"
                      "Stock.Tracking=Right\n",
             .method = "Copies.Limit=99\n"});
    DriverSettings settings;
    settings.Load(Registry());
    settings.SetXResolution(300);
    settings.SetYResolution(300);
    settings.SetPaperWidthMin(1000);
    settings.SetPaperWidthMax(2000);
    settings.SetPaperLengthMin(3000);
    settings.SetPaperLengthMax(4000);
    settings.SetPrintableWidth(5000);
    settings.SetTracking(2);
    settings.Save(Registry());
    Load();
    EXPECT_EQ(At(108, 4), 200000) << "without the switch the values do not count";
    EXPECT_EQ(At(148, 4), 203 << 16 | 203);

    settings.OverrideSpecifications(true);
    settings.SetDisableCopiesLimit(true);
    settings.Save(Registry());
    Model()->FlushDataCache();
    Load();
    const int64_t lengths[] = {30000, 40000, 10000, 20000};
    for (size_t i = 0; i < 4; ++i) EXPECT_EQ(At(100 + 4 * i, 4), lengths[i]) << 100 + 4 * i;
    EXPECT_EQ(At(84, 4), 50000);
    EXPECT_EQ(At(119, 1), 2);
    EXPECT_EQ(At(148, 4), 300 << 16 | 300);
    EXPECT_EQ(At(152, 4), 0) << "the other resolutions are gone";
    EXPECT_EQ(At(142, 2), 32767);

    settings.SetXResolution(203);
    settings.SetYResolution(203);
    settings.Save(Registry());
    Model()->FlushDataCache();
    Load();
    EXPECT_EQ(At(152, 4), 600 << 16 | 600) << "the same resolution keeps the list";
}

TEST_F(ModelData, IsKeptUntilItIsFlushed) {
    Install({.model = "Resolution=203\n"});
    Load();
    DriverSettings settings;
    settings.Load(Registry());
    settings.OverrideSpecifications(true);
    settings.SetXResolution(600);
    settings.SetYResolution(600);
    settings.Save(Registry());
    Load();
    EXPECT_EQ(At(148, 2), 203);
    win32host::SetTickCount(7);
    auto current = Model();
    current->FlushDataCache();
    EXPECT_EQ(current->GetXResolution(), 600);
    EXPECT_EQ(Registry().GetDWORD("DATA:Model Synchronization", 0), 7u);

    settings.SetXResolution(300);
    settings.Save(Registry());
    current->FlushDataCache();
    EXPECT_EQ(current->GetXResolution(), 300) << "a second time within the same tick";
    win32host::UseRealTickCount();
}

TEST_F(ModelData, OfTheWrongSizeInTheCacheIsBuiltAnew) {
    Install({.model = "Resolution=203\n"});
    const char other[181] = "other";
    for (uint32_t size : {4u, 179u, 181u}) {
        ModelDataCache().Synchronize(Records());
        ModelDataCache().SetData(Records(), "ModelData", other, size);
        Load();
        EXPECT_EQ(At(148, 2), 203) << size;
    }
}
