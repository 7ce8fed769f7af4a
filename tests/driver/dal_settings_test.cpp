// The settings interface for programs.
#include "support/job_test.h"
#include "ui/prtui.h"
#include "zplui.h"

namespace {

using SettingsInterface = JobTest;

constexpr char kStock[] = "<driver version='6.6'>\r\n<stock>\r\nName=Tag\r\n"
                          "Data=UMMAAKhhAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA==\r\n</stock>\r\n";

bool Has(HANDLE settings, const char* stock) {
    return static_cast<prtui*>(settings)->stocks.Find(OString(stock)) != nullptr;
}

} // namespace

TEST_F(SettingsInterface, StoresWhatIsImportedWhenItIsSaved) {
    Install({.model = "Resolution=203\nStock.Maximum.X=110 mm\n"
                      "Stock.Maximum.Y=990 mm\n"});
    WriteFile("in.kds", kStock);
    const HANDLE first = DAL_Printer_Open(printer());
    const HANDLE second = DAL_Printer_Open(printer());
    ASSERT_TRUE(first && second);
    DAL_Settings_Import(first, TEXT("C:\\in.kds"), DAL_SETTINGS_PRESETS);
    EXPECT_FALSE(Has(first, "Tag"));
    DAL_Settings_Import(first, TEXT("C:\\in.kds"), DAL_SETTINGS_STOCKS);
    EXPECT_TRUE(Has(first, "Tag"));
    DAL_Settings_Load(second);
    EXPECT_FALSE(Has(second, "Tag"));
    DAL_Settings_Save(first);
    DAL_Settings_Load(second);
    EXPECT_TRUE(Has(second, "Tag"));
    DAL_Settings_Export(second, TEXT("C:\\out.kds"), DAL_SETTINGS_STOCKS);
    EXPECT_NE(BytesOf(OnDriveC("out.kds")).find("Name=Tag\r\n"), std::string::npos);
    DAL_Printer_Close(first);
    DAL_Printer_Close(second);
}

TEST_F(SettingsInterface, SavesWhenItIsClosed) {
    Install({.model = "Resolution=203\nStock.Maximum.X=110 mm\n"
                      "Stock.Maximum.Y=990 mm\n"});
    WriteFile("in.kds", kStock);
    HANDLE settings = DAL_Printer_Open(printer());
    DAL_Settings_Import(settings, TEXT("C:\\in.kds"), DAL_SETTINGS_STOCKS);
    DAL_Printer_Close(settings);
    settings = DAL_Printer_Open(printer());
    EXPECT_TRUE(Has(settings, "Tag"));
    DAL_Printer_Close(settings);
}

TEST_F(SettingsInterface, DoesNothingWithoutSettingsOrWithoutAFile) {
    WriteFile("in.kds", kStock);
    DAL_Printer_Close(nullptr);
    // An unknown printer has the model of its defaults.
    for (const HANDLE settings : {HANDLE{nullptr}, DAL_Printer_Open(nullptr)}) {
        DAL_Settings_Load(settings);
        DAL_Settings_Import(settings, TEXT("C:\\in.kds"), 0x10F);
        DAL_Settings_Export(settings, TEXT("C:\\out.kds"), 0x10F);
        DAL_Settings_Import(settings, nullptr, 0x10F);
        DAL_Settings_Export(settings, nullptr, 0x10F);
        DAL_Settings_Save(settings);
        DAL_Printer_Close(settings);
    }
}
