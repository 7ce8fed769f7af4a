// The bar code symbologies: their numbers, and the records that the table BarCode makes.

#include "model/symbology_info.h"

#include <cstring>
#include <tuple>
#include <vector>

#include "support/model_test.h"

namespace {

class Symbologies : public ModelTest {
protected:
    const KVSymbologyData& Record(int number) {
        return model_->GetCapabilitiesData()->symbologies[number];
    }

    // A supported symbology with these lines, which are separated by semicolons.
    static std::string Lines(int number, const std::string& lines) {
        const std::string name = SymbologyInfo(number).GetName().nstring();
        std::string text = name + "=yes\n" + (lines.empty() ? "" : name + ".");
        for (const char c : lines) text += c == ';' ? "\n" + name + "." : std::string(1, c);
        return text + "\n";
    }

    void Load(const std::string& barcode) {
        const ModelTables tables = {.barcode = barcode, .manufacturer = "Fonts.Prefix=AB\n"};
        if (model_)
            Replace(tables);
        else
            Install(tables);
        model_ = Model();
    }

    std::unique_ptr<extmodel> model_;
};

} // namespace

TEST_F(Symbologies, ThatAreNotSupportedHaveEmptyRecords) {
    Load("Code39=yes\nCode128=no\nCode128.Color=yes\nCode128.HR=On\nCode93.HR=On\n");
    const KVSymbologyData empty = {};
    for (int i = 2; i <= 36; ++i) EXPECT_EQ(std::memcmp(&Record(i), &empty, sizeof empty), 0) << i;
    EXPECT_EQ(Record(0).flags, 1);
    EXPECT_EQ(Record(1).flags, 1);
    EXPECT_TRUE(model_->HasBarCodes());
    Load("Code39=yes\nCode39.HR=On\nCode39.HR.Font.Name=OCR\n");
    EXPECT_EQ(std::memcmp(&Record(0), &Record(1), sizeof(KVSymbologyData)), 0);
    EXPECT_STREQ(Record(1).font_name, "AB OCR");
    Load("");
    EXPECT_FALSE(model_->HasBarCodes());
}

TEST_F(Symbologies, HaveTheirOwnOptions) {
    using Cases = std::vector<std::tuple<int, const char*, uint32_t>>;
    const Cases single = {
        {3, "Encoding=manual", 0x2},    {2, "Ratio=2:1", 0x2001},  {0, "", 0x1},
        {8, "NumberSystem=0,1", 0x2},   {3, "Encoding=Auto", 0x3}, {0, "FullASCII=yes", 0},
        {16, "Rectangle=Auto", 0x8000}, {3, "Encoding=Manual", 0}, {3, "Ratio=2:1", 0x2},
        {17, "Mode=2,3,4,5,6", 0x1F},   {8, "NumberSystem=10", 0}, {15, "", 0x1},
        {21, "HighPriority=yes", 0x1},  {28, "Size=1,auto", 0x1},  {16, "Rectangle=No", 0},
        {30, "WhiteOnBlack=yes", 0},    {31, "Type=EAN8,UPCA", 0}, {27, "Type=A,E,F", 0x7}};
    const Cases combined = {
        {1, "FullASCII=yes;StartStop.Required=yes", 0x2},
        {0, "FullASCII=yes;CheckDigit.Required=yes;StartStop.Variable=yes", 0xC},
        {0, "FullASCII=yes;Ratio=Variable,2:1,11:5,9:4,7:3,12:5,5:2", 0x7F000},
        {0, "FullASCII=yes;Ratio=13:5,8:3,11:4,14:5,3:1,4:1", 0xF80000},
        {3, "Encoding=Auto,Manual", 0x1},
        {3, "Encoding=Manual;RestrictedMethods=Serialization,Static", 0xA0000000},
        {4, "StartStop.Required=yes;StartStop.Uppercase=yes", 0x3},
        {5, "CheckDigit.Required=yes", 0x1},
        {6, "CheckDigit.Required=yes;RestrictedMethods=VariableData,TemplateFile", 0x50000001},
        {7, "GuardBar.Variable=yes;GuardBar.WithoutHR=yes", 0xC},
        {7, "NumberSystem=1;CheckDigit.Required=yes", 0x1},
        {9, "CheckDigit.Required=yes", 0x1},
        {10, "CheckDigit.Required=yes", 0x1},
        {13, "CheckDigit.Required=yes", 0},
        {15, "Truncated=yes;CorrectionLevel=1,Auto;Columns=Auto", 0x6},
        {16, "ECC=000,010,040,050,060,070,080", 0x7F},
        {16, "ECC=090,100,110,120,130,140,200", 0x3F80},
        {16, "WhiteOnBlack=yes;StructuredAppend=yes", 0x84000},
        {16, "Rectangle=Manual", 0x48000},
        {16, "FormatID=Auto;FunctionCodes=None", 0x30000},
        {17, "ZipperBlock=yes;ContrastBlock=yes;StructuredAppend=yes", 0xE0},
        {18, "Model=1,2;Mode=Manual,Auto;Mask=Manual,Auto;StructuredAppend=yes", 0x7F},
        {24, "Ratio=2:1;CheckDigit.Required=yes", 0x2000},
        {29,
         "FinderPattern=Auto,Compact,Full;WhiteOnBlack=yes;ErrorCorrection=Auto;"
         "Layers=Auto;StructuredAppend=yes",
         0x7F},
        {31,
         "Type=RSS14,Truncated,Stacked,Omnidirectional,Limited,Expanded,"
         "ExpandedStacked;SegmentsPerRow=Manual",
         0x1007F},
        {32, "Type=RSS14,EAN8,EAN13,UPCA,UPCE,128_CC_AB,128_CC_C", 0x3F01},
        {32, "SegmentsPerRow=Manual", 0x10000},
        {36, "CheckDigit.Required=yes;Mode=Numeric", 0x3}};
    for (const Cases& cases : {single, combined}) {
        for (const auto& [number, lines, expected] : cases) {
            Load(Lines(number, lines));
            EXPECT_EQ(Record(number).options, expected) << number << " " << lines;
        }
    }
}

TEST_F(Symbologies, HaveHumanReadableTextWhereItCanBe) {
    const std::tuple<int, const char*, uint16_t, uint32_t> cases[] = {
        {0, "HR=On,Off;HR.Placement=Above,Below", 0, 0xC},
        {0, "HR=On;HR.Offset=Vertical,Horizontal", 2, 0x3},
        {0, "HR=Off;HR.Placement=Above", 1, 0},
        {0, "HR=Off,On;HR.Placement=Above", 1, 0},
        {0, "HR.Placement=Above", 1, 0},
        {0, "HR=On;HR.Alignment=Left,Right,Center,Bar", 2, 0xF0},
        {0, "HR=On;HR.CheckDigit=Show,Hide", 2, 0x300},
        {0, "HR=On;HR.StartStop=Show,Hide", 2, 0xC00},
        {0, "HR=On;HR.Font.Select=yes", 2, 0x8000},
        {0, "HR=Off;HR.Translation=On,Off", 1, 0x30000},
        {3, "HR=On;HR.CheckDigit=Show", 2, 0},
        {7, "HR=On;SplitDigit=Full", 2, 0x90000},
        {8, "HR=On;SplitDigit=Small", 2, 0x50000},
        {9, "HR=On;SplitDigit=None", 2, 0x20000},
        {15, "HR=On;HR.Placement=Above", 0, 0},
        {13, "HR=On;HR.Placement=Above", 2, 0x4}};
    for (const auto& [number, options, mode, bits] : cases) {
        Load(Lines(number, options));
        EXPECT_EQ(Record(number).hr_mode, mode) << number << " " << options;
        EXPECT_EQ(Record(number).hr_bits, bits) << number << " " << options;
    }
}

TEST_F(Symbologies, ThatSupplementOthersAreReadEvenWhenTheyDoNotStandAlone) {
    Load("Supplemental2.Attached=1,5\nSupplemental2.HR=On,Off\nSupplemental2.HR.Placement=Above\n"
         "Supplemental5.HR=On\n");
    EXPECT_EQ(Record(11).flags, 0);
    EXPECT_EQ(Record(11).options, 0x11u);
    EXPECT_EQ(Record(11).hr_bits, 0x4u);
    EXPECT_EQ(Record(12).hr_mode, 0) << "attached to nothing";
    Load("Supplemental5=yes\nSupplemental5.Attached=2,3,4\n");
    EXPECT_EQ(Record(12).flags, 1);
    EXPECT_EQ(Record(12).options, 0xEu);
}
