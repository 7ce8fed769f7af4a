// Data fonts on their own: the contents of their records, and a printer's support for them.
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "fonts/data_font_bar_code.h"
#include "fonts/data_font_rfid.h"
#include "support/model_test.h"

TEST(DataFontName, IsCutAndCleaned) {
    const std::pair<const char*, std::string> cases[] = {
        {"Code 128", "Code 128"},
        {"\" \"\tquoted\" \r\n", "quoted"},
        {"a\"b", "ab"},
        {"0123456789012345678901234567890123456789", "0123456789012345678901234567890"},
        {"012345678901234567890123456789  x", "012345678901234567890123456789"},
        {"", ""},
    };
    DataFont font;
    for (const auto& [given, kept] : cases) {
        font.SetFontName(given);
        EXPECT_EQ(Text(font.GetFontName()), kept);
    }
}

TEST(DataFontBlob, OfANewBarCodeFontHasTheseBytes) {
    DataFont_BarCode font;
    font.SetFontName("F");
    font.SetMultiline(true);
    DataFontStorage_BarCode blob;
    font.Save(blob);
    std::string expected(168, '\0');
    const std::pair<size_t, int> bytes[] = {{0, 0x90},  {1, 1},   {11, 0x30}, {12, 'F'}, {44, 1},
                                            {48, 0x2C}, {49, 1},  {52, 2},    {72, 96},  {100, 20},
                                            {106, 5},   {122, 1}, {124, 1},   {144, 1},  {146, 1}};
    for (const auto& [offset, byte] : bytes) expected[offset] = static_cast<char>(byte);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(&blob), 168), expected);
    EXPECT_EQ(font.get_mils(), 17) << "15 are 4.5 dots, rounded up";
}

TEST(DataFontBlob, HasAsManyBytesOfTheRecordAsItsSizeSays) {
    DataFont_BarCode matrix;
    matrix.change_symbology(16);
    DataFontStorage_BarCode blob;
    matrix.Save(blob);
    EXPECT_EQ(blob.record.Get(0), 72);
    std::memset(reinterpret_cast<char*>(&blob.record) + 72, 0x55, 24);
    std::memset(blob.font.face_name, 'x', 32);
    DataFont_BarCode again;
    ASSERT_TRUE(again.Load(&blob, 72 + 72));
    EXPECT_EQ(Text(again.GetFontName()), std::string(31, 'x'));
    EXPECT_EQ(again.get_symbology(), 16);
    again.Save(blob);
    EXPECT_EQ(blob.record.Get(72), 0) << "what is behind the record stays behind";

    const struct {
        int type, record_size;
        size_t blob_size;
        bool taken;
    } cases[] = {{1, 96, 168, true},  {1, 96, 167, false}, {1, 97, 168, false},
                 {1, 0, 74, true},    {1, 0, 73, false},   {2, 65535, 168, false},
                 {1, 96, 0, false},   {0, 96, 168, false}, {3, 96, 168, false},
                 {-1, 96, 168, false}};
    for (const auto& c : cases) {
        blob.font.type = c.type;
        blob.record.Set(0, c.record_size);
        const std::vector<char> bytes(reinterpret_cast<char*>(&blob),
                                      reinterpret_cast<char*>(&blob) + c.blob_size);
        DataFont_BarCode font;
        EXPECT_EQ(font.Load(bytes.data(), bytes.size()), c.taken) << &c - cases;
        EXPECT_EQ(font.GetFontName().IsEmpty(), !c.taken) << &c - cases;
    }
}

TEST(BarCodeFont, BeginsASymbologyWithItsOwnFields) {
    // One-dimensional ones keep the other fields, two-dimensional ones reset them.
    const struct {
        int symbology;
        std::vector<std::pair<int, int>> fields;
    } cases[] = {
        {4, {{56, 97}, {58, 97}, {60, 0x7777}}},
        {28, {{44, 12}, {46, 65535}, {48, 0}, {50, 0}, {54, 3}, {60, 0}}},
        {16, {{44, 20}, {46, 200}, {48, 0}, {56, 0}, {60, 0}}},
        {18, {{44, 16}, {46, 2}, {48, 9}, {50, 76}, {52, 0}}},
        {32, {{44, 26}, {46, 0}, {48, 3}, {50, 0}}},
    };
    for (const auto& c : cases) {
        DataFont_BarCode font;
        for (int offset = 56; offset < 96; offset += 2) font.SetField(offset, 0x7777);
        font.change_symbology(c.symbology);
        for (const auto& [offset, value] : c.fields)
            EXPECT_EQ(font.GetField(offset), value) << c.symbology << " at " << offset;
    }
    DataFont_BarCode font;
    font.change_symbology(16);
    font.set_mils(20);
    font.change_symbology(0);
    EXPECT_EQ(font.get_mils(), 20);
    EXPECT_EQ(font.GetField(74), 1);
}

TEST(BarCodeFont, RoundsWidthsToDotsAndKeepsRatios) {
    DataFont_BarCode font;
    const int cases[][4] = {{10, 300, 3, 10},
                            {10, 203, 2, 10},
                            {15, 300, 5, 17},
                            {25, 600, 15, 25},
                            {10, 0, 0, 0},
                            {-10, 300, 0, 0},
                            {2000000000, 300, 65535, 218450}};
    for (const auto& [mils, resolution, dots, back] : cases) {
        font.resolution = resolution;
        font.set_mils(mils);
        EXPECT_EQ(font.get_x(), dots) << mils;
        EXPECT_EQ(font.get_mils(), back) << mils;
    }
    font.set_ratio(250);
    EXPECT_EQ(font.get_ratio(), 250);
    EXPECT_EQ(font.GetField(42), 2);
    EXPECT_EQ(font.GetField(44), 50);
}

TEST(BarCodeFont, KnowsTheRatiosThatDotsCanMake) {
    const struct {
        int narrow, wide;
        uint32_t bits;
        bool supported;
    } cases[] = {
        {10, 25, 0x40000, true},
        {10, 25, 0x2000, false},
        {3, 7, 0xF0000FFF, true},
        {3, 7, 0x3000, true},
        {3, 9, 0x800000, true},
        {9, 24, 0x100000, true},
        {8, 22, 0x200000, true},
        {5, 14, 0x400000, true},
        {5, 14, 0xBFE000, false},
        {5, 12, 0x40000, false},
        {0x40000000, INT32_MIN, 0x2000, false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(DataFont_BarCode::SupportedRatio(c.narrow, c.wide, c.bits), c.supported)
            << c.narrow << ":" << c.wide << " of " << c.bits;
}

TEST(BarCodeFont, IsOfferedForTheseSymbologies) {
    OTypedArray<int> list;
    list.Add(99);
    ASSERT_EQ(DataFont_BarCode::EnumBarCodeSymbologies(list), 35);
    const std::set<int> each(list.GetData(), list.GetData() + list.GetSize());
    EXPECT_EQ(each.size(), 35u) << "each once";
    EXPECT_EQ(list[0] * 100 + list[34], 2035);
}

// ---- With a printer -----------------------------------------------------------------------------

namespace {

class DataFontSupport : public ModelTest {};

} // namespace

TEST_F(DataFontSupport, OfBarCodesFollowsTheModelsOptions) {
    const struct {
        std::string table;
        int symbology;
        int offset; // of the decisive field
        std::vector<int> printed;
        std::vector<int> not_printed;
    } cases[] = {
        {"", 0, 46, {}, {0}},
        {"Code128=yes\nCode128.Encoding=Auto", 3, 56, {0, 4}, {1, 2, 3}},
        {"Code128=yes\nCode128.Encoding=Manual", 3, 56, {0, 1, 3}, {}},
        {"UPC-A=yes", 7, 68, {0, 3}, {2, 5, 65535}},
        {"EAN-8=yes\nSupplemental2.Attached=3", 10, 68, {0, 2}, {5, 65535}},
        {"EAN-13=yes\nSupplemental2.Attached=1\nSupplemental5.Attached=1",
         9,
         68,
         {2, 5, 65535},
         {}},
        {"PDF417=yes\nPDF417.Truncated=no", 15, 48, {0}, {1}},
        {"DataMatrix=yes\nDataMatrix.ECC=200,050", 16, 46, {200, 50, 140, 7}, {0, 10, 130}},
        {"DataMatrix=yes\nDataMatrix.ECC=010,040,100,110,120",
         16,
         46,
         {10, 40, 100, 110, 120},
         {0, 50, 130, 200}},
        {"MaxiCode=yes\nMaxiCode.Mode=2,6", 17, 46, {2, 6, 0, 7}, {3, 4, 5}},
        {"QRCode=yes\nQRCode.Model=2", 18, 46, {2, 0, 3}, {1}},
        {"QRCode=yes\nQRCode.Model=2\nQRCode.Mask=Auto", 18, 48, {9, 10}, {0, 8}},
        {"Aztec=yes", 29, 46, {0, 99}, {}},
    };
    Install({});
    for (const auto& c : cases) {
        Replace({.barcode = c.table + "\n"});
        const auto model = Model();
        DataFont_BarCode font;
        font.change_symbology(c.symbology);
        for (const auto* values : {&c.printed, &c.not_printed})
            for (const int value : *values) {
                font.SetField(c.offset, value);
                EXPECT_EQ(font.IsSupported(model.get()), values == &c.printed)
                    << c.table << ": " << c.symbology << " with " << value;
            }
    }
}

TEST_F(DataFontSupport, OfRfidFontsIsTheModelsAndOthersAreBroughtInLine) {
    using F = DataFont_RFID;
    Install({});
    const struct {
        const char* what;
        const char* tags; // of the model
        uint32_t tag;
        uint32_t format;
        int32_t block;
        bool supported;
        NumberList then; // tag, format and block
        const char* mask_then;
    } cases[] = {
        {"fits", "EPC64,ISO15693", F::ISO_15693, 0, 100, true, {F::ISO_15693, 0, 100}, "m"},
        {"block too far", "ISO15693", F::ISO_15693, 0, 200, true, {F::ISO_15693, 0, 123}, "m"},
        {"negative block", "ICode1", F::I_CODE1, 0, -7, true, {F::I_CODE1, 0, 0}, "m"},
        {"no such tag", "Picotag,ICode1", F::EPC_96, 512, 0, false, {F::I_CODE1, 0, 5}, ""},
        {"no tags", "", F::MY_D, 0, 9, false, {F::EPC_64, 256, 0}, "64"},
        {"format of 64", "EPC64", F::EPC_64, 259, 0, true, {F::EPC_64, 259, 0}, "m"},
        {"format of 96 in 64", "EPC64", F::EPC_64, 512, 0, true, {F::EPC_64, 256, 0}, "64"},
        {"format of 64 in 96", "EPC96", F::EPC_96, 256, 0, true, {F::EPC_96, 512, 0}, "96"},
        {"custom", "EPC96", F::EPC_96, 0, 0, true, {F::EPC_96, 0, 0}, "m"},
    };
    for (const auto& c : cases) {
        Replace({.model = std::string("~RFID.TagTypes=") + c.tags + "\n"});
        const auto model = Model();
        F font;
        font.SetDefaults(c.tag);
        font.SetFormat(c.format);
        font.SetFormatMask("m");
        font.SetStartingBlock(c.block);
        EXPECT_EQ(font.IsSupported(model.get()), c.supported) << c.what;
        font.ValidateRFIDData(model.get());
        EXPECT_EQ(NumberList({font.GetTagType(), font.GetFormat(), font.GetStartingBlock()}),
                  c.then)
            << c.what;
        EXPECT_EQ(Text(font.GetFormatMask()), c.mask_then) << c.what;
    }
}
