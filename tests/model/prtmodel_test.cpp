// The printer model's answers and stored data.

#include "model/prtmodel.h"

#include <utility>
#include <vector>

#include "support/model_test.h"

namespace {

class PrinterModel : public ModelTest {};

} // namespace

TEST_F(PrinterModel, MeasuresPaper) {
    Install({.model = "Stock.UnprintableWidth=1 mm\nStock.Printable.X=2 mm\n"
                      "Stock.Default.X=0.051 in\nStock.Default.Y=5 mm\nStock.Minimum.Y=6 mm\n"
                      "Stock.Maximum.Y=7 mm\nStock.Minimum.X=8 mm\nStock.Maximum.X=9 mm\n"
                      "Stock.Tracking=Center\n"});
    auto model = Model();
    const std::pair<Measurement, int> lengths[] = {
        {model->GetUnprintableWidth(), 1000},   {model->GetUnprintableWidthDefault(), 1000},
        {model->GetPrintableWidth(), 2000},     {model->GetDefaultLabelLength(), 5000},
        {model->GetDefaultPaperLength(), 5000}, {model->GetPaperLengthMin(), 6000},
        {model->GetPaperLengthMax(), 7000},     {model->GetPaperWidthMin(), 8000},
        {model->GetPaperWidthMax(), 9000}};
    for (const auto& [length, microns] : lengths) EXPECT_EQ(length.Microns(), microns);
    EXPECT_EQ(model->GetDefaultLabelWidth().Dots(254000), 12954);
    EXPECT_EQ(model->GetDefaultPaperWidth().Dots(254000), 12954 + 2 * 12700) << "with the liner";
    EXPECT_TRUE(model->IsCenterTracked());
    EXPECT_FALSE(model->IsLeftTracked() || model->IsRightTracked());
}

TEST_F(PrinterModel, ListsResolutionsUpToTheFirstThatIsZero) {
    const std::pair<const char*, std::vector<int>> cases[] = {
        {"203,300", {203, 203, 300, 300}},
        {"203,300x0,600", {203, 203}},
        {"1,2,3,4,5,6,7,8", {1, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6, 7, 7, 8, 8}},
        {"", {}}};
    Install({});
    for (const auto& [text, expected] : cases) {
        Replace({.model = std::string("Resolution=") + text});
        OTypedArray<int> numbers;
        numbers.Add(99);
        EXPECT_EQ(Model()->GetResolutions(numbers), static_cast<int>(expected.size() / 2)) << text;
        ASSERT_EQ(numbers.GetSize(), static_cast<int>(expected.size())) << text;
        for (int i = 0; i < numbers.GetSize(); ++i)
            EXPECT_EQ(numbers[i], expected[static_cast<size_t>(i)]) << text;
    }
}

TEST_F(PrinterModel, AnswersWhetherItCan) {
    const std::pair<ModelTables, bool (prtmodel::*)() const> cases[] = {
        {{.drawing = "Transform.Flip180=yes"}, &prtmodel::CanFlip180},
        {{.drawing = "Transform.Mirror=yes"}, &prtmodel::CanMirror},
        {{.drawing = "Transform.Inverse=yes"}, &prtmodel::CanNegative},
        {{.font = "Download.TrueType=yes"}, &prtmodel::CanDownloadTTFont},
        {{.font = "Download.TrueType=yes"}, &prtmodel::CanDownloadFont},
        {{.font = "Download.Bitmap=yes"}, &prtmodel::CanDownloadBitmapFont},
        {{.font = "Download.Bitmap=yes"}, &prtmodel::CanDownloadFont},
        {{.method = "Cache.Format=yes"}, &prtmodel::CanCacheFormats},
        {{.method = "Cache.Graphic=yes"}, &prtmodel::CanCacheGraphics},
        {{.model = "Ports.Bidirectional=Parallel"}, &prtmodel::IsBidiParallel},
        {{.model = "Ports.Bidirectional=USB"}, &prtmodel::IsBidiUSB},
        {{.barcode = "Telepen=yes"}, &prtmodel::HasBarCodes},
        {{.font = "Fonts=FontGroup:A.pfg"}, &prtmodel::HasDeviceFonts},
        {{.model = "~RFID.TagTypes=EPC96"}, &prtmodel::HasRFID}};
    Install({});
    for (size_t i = 0; i < std::size(cases); ++i) {
        for (const bool able : {false, true}) {
            Replace(able ? cases[i].first : ModelTables{});
            EXPECT_EQ((*Model().*cases[i].second)(), able) << i;
            Registry().Delete("MODEL:", true);
        }
    }
}

TEST_F(PrinterModel, AddsAndRemovesFontGroupsAndKeepsTheList) {
    Install({.font = "Fonts=FontGroup:A.pfg,,FontGroup:B.pfg"});
    prtreg registry = Registry();
    OStringArray expansion, excluded, groups;
    expansion.Add("FontGroup:C.pfg");
    registry.SetMultiString("Settings:Expansion Fonts", expansion);
    excluded.Add("fontgroup:b.PFG");
    registry.SetMultiString("Settings:Excluded Fonts", excluded);

    const auto model = Model();
    model->GetFontGroups(groups);
    EXPECT_EQ(Text(groups), "A,C");
    registry.Delete("Settings:Excluded Fonts", false);
    Model()->GetFontGroups(groups);
    EXPECT_EQ(Text(groups), "A,C") << "as it is stored";
    model->FlushDataCache();
    model->GetFontGroups(groups);
    EXPECT_EQ(Text(groups), "A,B,C");

    // An empty list is stored as well.
    registry.Delete("Settings:Expansion Fonts", false);
    Replace({});
    Model()->FlushDataCache();
    EXPECT_FALSE(Model()->HasDeviceFonts());
    Replace({.font = "Fonts=FontGroup:A.pfg"});
    EXPECT_FALSE(Model()->HasDeviceFonts()) << "as it is stored";
}

TEST_F(PrinterModel, RecordsPlugAndPlayIdentifiersOnlyWhenThereAreSome) {
    Install({});
    Model()->RecordDataToReg();
    OStringArray ids;
    EXPECT_FALSE(Registry().GetMultiString("DATA:Plug And Play IDs", ids));
    Replace({.model = "Ports.PNP.ID=First,Second"});
    Model()->RecordDataToReg();
    EXPECT_TRUE(Registry().GetMultiString("DATA:Plug And Play IDs", ids));
    EXPECT_EQ(Text(ids), "First,Second");
}

TEST_F(PrinterModel, FindsTheLabelDesignProgramByItsDocuments) {
    Install({});
    EXPECT_FALSE(Model()->IsFablewickInstalled());
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CLASSES_ROOT, TEXT(".fwk"), 0, nullptr, 0, KEY_WRITE, nullptr,
                              &key, nullptr),
              ERROR_SUCCESS);
    EXPECT_FALSE(Model()->IsFablewickInstalled()) << "a type of no class";
    const WCHAR type[] = TEXT("Fablewick.Document");
    RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(type), sizeof type);
    RegCloseKey(key);
    EXPECT_TRUE(Model()->IsFablewickInstalled());
}
