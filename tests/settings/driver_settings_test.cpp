#include "settings/driver_settings.h"

#include <fstream>
#include <iterator>
#include <string>

#include "driver/printer_info.h"
#include "support/printer_test.h"

namespace {

class DriverSettingsTest : public PrinterTest {
protected:
    DriverSettingsTest() {
        EXPECT_TRUE(AddDriver("Model 1", "zplqv.ddt"));
        for (const char* name : {"Dock3", "Dock4"}) EXPECT_TRUE(AddPrinter(name, "Model 1"));
        settings.Load(prtreg("Dock3"));
    }

    // Whether the printer has any stored settings.
    static bool HasSettings(const char* printer) {
        return prtreg(printer).GetKeyInfo("Settings:", nullptr, nullptr);
    }

    // Exports the settings of a printer to a file of their own.
    void Export(const char* printer, const char* path) {
        DriverSettings source;
        source.Load(prtreg(printer));
        OFile file(path, OFILE_WRITE);
        file.SetCodePage(1208);
        EXPECT_TRUE(source.Export(file, "Model 1"));
    }

    static bool Import(const char* printer, const char* path, const char* model = "Model 1") {
        DriverSettings target;
        target.Load(prtreg(printer));
        OFile file(path, OFILE_READ);
        file.SetCodePage(1208);
        return target.Import(file, model);
    }

    std::string ReadFile(const char* path) {
        std::ifstream file(OnDriveC(path), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    DriverSettings settings;
};

} // namespace

TEST_F(DriverSettingsTest, OfAFreshPrinterAreTheDefaults) {
    EXPECT_EQ(settings.GetEscapeCharacter(), '^');
    EXPECT_FALSE(settings.GetDisableCopiesLimit());
    EXPECT_TRUE(settings.GetFixBarFontsInOffice());
    EXPECT_FALSE(settings.OverrideSpecifications());
    EXPECT_EQ(settings.GetXResolution(), 0);
    EXPECT_STREQ(settings.GetLogDir().nstring(), "");
    EXPECT_FALSE(settings.MonitorStatus());
    EXPECT_FALSE(settings.ShowOnError());
    EXPECT_TRUE(settings.ShowIcon());
    EXPECT_EQ(settings.GetWriteTimeout(), 30000);
    EXPECT_EQ(settings.GetJobCompleteTimeout(), 30000);
    EXPECT_EQ(settings.GetQueryInterval(), 1000);
    EXPECT_EQ(settings.GetTransponderOffset(), 0);
    EXPECT_EQ(settings.GetRetriesPerLabel(), 5);
    EXPECT_EQ(settings.GetMaximumInvalidLabels(), 0);
    EXPECT_EQ(settings.GetActionOnError(), 1);

    settings.SetMonitorStatus(true);
    EXPECT_TRUE(settings.QueryBeforeJob());
    EXPECT_FALSE(settings.VerifyJobComplete());
}

TEST_F(DriverSettingsTest, KeepEveryNumberUnderItsName) {
    const struct {
        const char* path;
        void (DriverSettings::*set)(int32_t);
        int32_t (DriverSettings::*get)();
    } numbers[] = {
        {"Specifications/X Resolution", &DriverSettings::SetXResolution,
         &DriverSettings::GetXResolution},
        {"Specifications/Y Resolution", &DriverSettings::SetYResolution,
         &DriverSettings::GetYResolution},
        {"Specifications/Printable Width", &DriverSettings::SetPrintableWidth,
         &DriverSettings::GetPrintableWidth},
        {"Specifications/Tracking", &DriverSettings::SetTracking, &DriverSettings::GetTracking},
        {"Specifications/Minimum Page Width", &DriverSettings::SetPaperWidthMin,
         &DriverSettings::GetPaperWidthMin},
        {"Specifications/Maximum Page Width", &DriverSettings::SetPaperWidthMax,
         &DriverSettings::GetPaperWidthMax},
        {"Specifications/Minimum Page Length", &DriverSettings::SetPaperLengthMin,
         &DriverSettings::GetPaperLengthMin},
        {"Specifications/Maximum Page Length", &DriverSettings::SetPaperLengthMax,
         &DriverSettings::GetPaperLengthMax},
        {"Status/Write Timeout", &DriverSettings::SetWriteTimeout,
         &DriverSettings::GetWriteTimeout},
        {"Status/Job Complete Timeout", &DriverSettings::SetJobCompleteTimeout,
         &DriverSettings::GetJobCompleteTimeout},
        {"Status/Query Interval", &DriverSettings::SetQueryInterval,
         &DriverSettings::GetQueryInterval},
        {"RFID/Transponder Offset", &DriverSettings::SetTransponderOffset,
         &DriverSettings::GetTransponderOffset},
        {"RFID/Retries Per Label", &DriverSettings::SetRetriesPerLabel,
         &DriverSettings::GetRetriesPerLabel},
        {"RFID/Maximum Invalid Labels", &DriverSettings::SetMaximumInvalidLabels,
         &DriverSettings::GetMaximumInvalidLabels},
        {"RFID/Failure Action", &DriverSettings::SetActionOnError,
         &DriverSettings::GetActionOnError},
    };
    for (int32_t i = 0; i < static_cast<int32_t>(std::size(numbers)); ++i)
        (settings.*numbers[i].set)(-100 - i);
    settings.Save(prtreg("Dock3"));

    prtreg registry("Dock3");
    DriverSettings fresh;
    fresh.Load(registry);
    for (int32_t i = 0; i < static_cast<int32_t>(std::size(numbers)); ++i) {
        EXPECT_EQ((settings.*numbers[i].get)(), -100 - i) << numbers[i].path;
        EXPECT_EQ((fresh.*numbers[i].get)(), -100 - i) << numbers[i].path;
        uint32_t type = 0;
        EXPECT_TRUE(registry.GetInfo(OString("Settings:") << numbers[i].path, nullptr, &type));
        EXPECT_EQ(type, static_cast<uint32_t>(REG_DWORD)) << numbers[i].path;
    }
}

TEST_F(DriverSettingsTest, KeepEveryFlagUnderItsName) {
    const struct {
        const char* path;
        void (DriverSettings::*set)(bool);
        bool (DriverSettings::*get)();
    } flags[] = {
        {"Disable Copies Limit", &DriverSettings::SetDisableCopiesLimit,
         &DriverSettings::GetDisableCopiesLimit},
        {"Data Fonts/Office Compatibility", &DriverSettings::SetFixBarFontsInOffice,
         &DriverSettings::GetFixBarFontsInOffice},
        {"Specifications/Override", &DriverSettings::OverrideSpecifications,
         &DriverSettings::OverrideSpecifications},
        {"Logging/Logging", &DriverSettings::SetLogging, &DriverSettings::GetLogging},
        {"Logging/Overwrite Files", &DriverSettings::SetOverwriteFile,
         &DriverSettings::GetOverwriteFile},
        {"Logging/Print Code Recording", &DriverSettings::SetGenerateFile,
         &DriverSettings::GetGenerateFile},
        {"Status/Query Before Job", &DriverSettings::SetQueryBeforeJob,
         &DriverSettings::QueryBeforeJob},
        {"Status/Verify Job Complete", &DriverSettings::SetVerifyJobComplete,
         &DriverSettings::VerifyJobComplete},
        {"Status/Show On Error", &DriverSettings::SetShowOnError, &DriverSettings::ShowOnError},
        {"Status/System Tray Icon", &DriverSettings::SetShowIcon, &DriverSettings::ShowIcon},
    };
    settings.SetMonitorStatus(true);
    for (const bool on : {true, false}) {
        for (const auto& flag : flags) (settings.*flag.set)(on);
        settings.Save(prtreg("Dock3"));
        prtreg registry("Dock3");
        DriverSettings fresh;
        fresh.Load(registry);
        for (const auto& flag : flags) {
            EXPECT_EQ((fresh.*flag.get)(), on) << flag.path;
            uint32_t size = 0;
            EXPECT_TRUE(registry.GetInfo(OString("Settings:") << flag.path, &size, nullptr));
            EXPECT_EQ(size, 1u) << flag.path;
        }
    }
}

TEST_F(DriverSettingsTest, KeepTexts) {
    settings.SetEscapeCharacter('+');
    settings.SetLogDir("C:\\Logs");
    settings.SetLogFile(TEXT("\x20AC.log"));
    settings.Save(prtreg("Dock3"));
    settings.Load(prtreg("Dock3"));
    EXPECT_EQ(settings.GetEscapeCharacter(), '+');
    EXPECT_STREQ(settings.GetLogDir().nstring(), "C:\\Logs");
    EXPECT_TRUE(settings.GetLogFile() == OString(TEXT("\x20AC.log")));

    // An empty text is no character: the default holds, however often it is asked for.
    prtreg("Dock3").SetString("Settings:Function Character", "");
    settings.Load(prtreg("Dock3"));
    EXPECT_EQ(settings.GetEscapeCharacter(), '^');
    EXPECT_EQ(settings.GetEscapeCharacter(), '^');
}

TEST_F(DriverSettingsTest, DoNotQueryWhatIsNotMonitored) {
    settings.SetQueryBeforeJob(true);
    settings.SetVerifyJobComplete(true);
    EXPECT_FALSE(settings.QueryBeforeJob());
    EXPECT_FALSE(settings.VerifyJobComplete());
    settings.SetMonitorStatus(true);
    EXPECT_TRUE(settings.QueryBeforeJob());
    EXPECT_TRUE(settings.VerifyJobComplete());
}

TEST_F(DriverSettingsTest, AreWrittenOnlyWhenTheyWereSet) {
    settings.GetQueryInterval();
    settings.ShowIcon();
    settings.GetLogDir();
    settings.Save(prtreg("Dock3"));
    EXPECT_FALSE(HasSettings("Dock3"));

    settings.SetQueryInterval(settings.GetQueryInterval());
    EXPECT_FALSE(HasSettings("Dock3")) << "before Save";
    settings.Save(prtreg("Dock3"));
    EXPECT_EQ(prtreg("Dock3").GetDWORD("Settings:Status/Query Interval", 0), 1000u);
    EXPECT_EQ(prtreg("Dock3").GetSize("Settings:Status/System Tray Icon"), -1);

    // What was set stays marked, but not beyond the next Load.
    prtreg("Dock3").SetDWORD("Settings:Status/Query Interval", 7);
    settings.Save(prtreg("Dock3"));
    EXPECT_EQ(prtreg("Dock3").GetDWORD("Settings:Status/Query Interval", 0), 1000u);
    settings.Load(prtreg("Dock3"));
    prtreg("Dock3").SetDWORD("Settings:Status/Query Interval", 7);
    settings.Save(prtreg("Dock3"));
    EXPECT_EQ(prtreg("Dock3").GetDWORD("Settings:Status/Query Interval", 0), 7u);
}

TEST_F(DriverSettingsTest, AreSavedToThePrinterTheyWereLoadedFor) {
    settings.SetRetriesPerLabel(9);
    settings.Save(prtreg("Dock4"));
    EXPECT_EQ(prtreg("Dock3").GetDWORD("Settings:RFID/Retries Per Label", 0), 9u);
    EXPECT_FALSE(HasSettings("Dock4"));
}

TEST_F(DriverSettingsTest, AreReadOnceUntilTheNextLoad) {
    EXPECT_EQ(settings.GetQueryInterval(), 1000);
    prtreg("Dock3").SetDWORD("Settings:Status/Query Interval", 5);
    EXPECT_EQ(settings.GetQueryInterval(), 1000);
    settings.Load(prtreg("Dock3"));
    EXPECT_EQ(settings.GetQueryInterval(), 5);
}

TEST_F(DriverSettingsTest, WithoutAPrinterAreTheDefaults) {
    DriverSettings none;
    EXPECT_EQ(none.GetQueryInterval(), 1000);
    none.SetQueryInterval(5);
    EXPECT_EQ(none.GetQueryInterval(), 5);
    none.Save(prtreg("Dock3"));
    EXPECT_FALSE(HasSettings("Dock3"));
    OFile file("C:\\none.txt", OFILE_WRITE);
    EXPECT_FALSE(none.Export(file, "Model 1"));
    EXPECT_FALSE(none.Import(file, "Model 1"));
}

TEST_F(DriverSettingsTest, TravelToAnotherPrinterOfTheModel) {
    const std::string blob(200, '\x5A');
    prtreg source("Dock3");
    source.SetBinary("Settings:Blob", blob.data(), static_cast<uint32_t>(blob.size()));
    source.SetString("Settings:Logging/Directory", TEXT("C:\\\x4E00 \"x\""));
    source.SetDWORD("Settings:a/b/c", 0x12345678);
    prtreg("Dock4").SetDWORD("Settings:Status/Query Interval", 5);

    Export("Dock3", "C:\\options.txt");
    const std::string text = ReadFile("options.txt");
    EXPECT_EQ(text.find("Dock3"), std::string::npos);
    EXPECT_EQ(text.rfind("<options model='Model 1'>\r\n[DATA:\\Settings]\r\n", 0), 0u) << text;
    EXPECT_NE(text.find("\r\n</options>\r\n\r\n"), std::string::npos);

    EXPECT_FALSE(Import("Dock4", "C:\\options.txt", "Model 2"));
    EXPECT_EQ(prtreg("Dock4").GetDWORD("Settings:Status/Query Interval", 0), 5u);

    EXPECT_TRUE(Import("Dock4", "C:\\options.txt"));
    prtreg target("Dock4");
    std::string copy(blob.size(), '\0');
    EXPECT_EQ(target.GetBinary("Settings:Blob", copy.data(), static_cast<uint32_t>(copy.size())),
              static_cast<int32_t>(copy.size()));
    EXPECT_EQ(copy, blob);
    EXPECT_TRUE(target.GetString("Settings:Logging/Directory", "") ==
                OString(TEXT("C:\\\x4E00 \"x\"")));
    EXPECT_EQ(target.GetDWORD("Settings:a/b/c", 0), 0x12345678u);
    EXPECT_EQ(target.GetSize("Settings:Status/Query Interval"), -1) << "replaced as a whole";
    EXPECT_EQ(prtreg("Dock3").GetDWORD("Settings:a/b/c", 0), 0x12345678u);
}

TEST_F(DriverSettingsTest, OfAPrinterWithAnUnusualNameTravelToo) {
    const OString name(TEXT("A: 100%/\x4E00 [x]"));
    ASSERT_TRUE(AddPrinter(name, "Model 1"));
    prtreg(name).SetDWORD("Settings:Status/Query Interval", 77);
    DriverSettings source;
    source.Load(prtreg(name));
    {
        OFile file("C:\\options.txt", OFILE_WRITE);
        file.SetCodePage(1208);
        source.Export(file, "Model 1");
    }
    EXPECT_EQ(ReadFile("options.txt").rfind("<options model='Model 1'>\r\n[DATA:\\Settings]", 0),
              0u)
        << ReadFile("options.txt");
    prtreg(name).SetDWORD("Settings:Status/Query Interval", 1);
    for (const OString& target : {OString("Dock4"), name}) {
        DriverSettings other;
        other.Load(prtreg(target));
        OFile file("C:\\options.txt", OFILE_READ);
        file.SetCodePage(1208);
        EXPECT_TRUE(other.Import(file, "Model 1"));
        EXPECT_EQ(prtreg(target).GetDWORD("Settings:Status/Query Interval", 0), 77u);
    }
}

TEST_F(DriverSettingsTest, AreStillThoseOfThePrinterAfterTheyWereExported) {
    prtreg("Dock3").SetDWORD("Settings:a/b/c", 1);
    OFile file("C:\\options.txt", OFILE_WRITE);
    settings.SetQueryInterval(8);
    EXPECT_TRUE(settings.Export(file, "Model 1"));
    settings.Save(prtreg("Dock3"));
    EXPECT_EQ(prtreg("Dock3").GetDWORD("Settings:Status/Query Interval", 0), 8u);
}
