#include "model/driver_settings.h"

#include <string>

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
    static void Export(const OString& printer, const char* path) {
        DriverSettings source;
        source.Load(prtreg(printer));
        OFile file(path, OFILE_WRITE);
        file.SetCodePage(1208);
        EXPECT_TRUE(source.Export(file, "Model 1"));
    }

    static bool Import(const OString& printer, const char* path, const char* model = "Model 1") {
        DriverSettings target;
        target.Load(prtreg(printer));
        OFile file(path, OFILE_READ);
        file.SetCodePage(1208);
        return target.Import(file, model);
    }

    DriverSettings settings;
};

template <class T>
struct Setting {
    const char* path;
    void (DriverSettings::*set)(T);
    T (DriverSettings::*get)();
};

} // namespace

TEST_F(DriverSettingsTest, KeepEveryValueUnderItsName) {
    const Setting<int32_t> numbers[] = {
#define NUMBER(path, name) {path, &DriverSettings::Set##name, &DriverSettings::Get##name}
        NUMBER("Specifications/X Resolution", XResolution),
        NUMBER("Specifications/Y Resolution", YResolution),
        NUMBER("Specifications/Printable Width", PrintableWidth),
        NUMBER("Specifications/Tracking", Tracking),
        NUMBER("Specifications/Minimum Page Width", PaperWidthMin),
        NUMBER("Specifications/Maximum Page Width", PaperWidthMax),
        NUMBER("Specifications/Minimum Page Length", PaperLengthMin),
        NUMBER("Specifications/Maximum Page Length", PaperLengthMax),
        NUMBER("Status/Write Timeout", WriteTimeout),
        NUMBER("Status/Job Complete Timeout", JobCompleteTimeout),
        NUMBER("Status/Query Interval", QueryInterval),
        NUMBER("RFID/Transponder Offset", TransponderOffset),
        NUMBER("RFID/Retries Per Label", RetriesPerLabel),
        NUMBER("RFID/Maximum Invalid Labels", MaximumInvalidLabels),
        NUMBER("RFID/Failure Action", ActionOnError)
#undef NUMBER
    };
    const Setting<bool> flags[] = {
#define FLAG(path, set, get) {path, &DriverSettings::set, &DriverSettings::get}
        FLAG("Disable Copies Limit", SetDisableCopiesLimit, GetDisableCopiesLimit),
        FLAG("Data Fonts/Office Compatibility", SetFixBarFontsInOffice, GetFixBarFontsInOffice),
        FLAG("Specifications/Override", OverrideSpecifications, OverrideSpecifications),
        FLAG("Logging/Logging", SetLogging, GetLogging),
        FLAG("Logging/Overwrite Files", SetOverwriteFile, GetOverwriteFile),
        FLAG("Logging/Print Code Recording", SetGenerateFile, GetGenerateFile),
        FLAG("Status/Query Before Job", SetQueryBeforeJob, QueryBeforeJob),
        FLAG("Status/Verify Job Complete", SetVerifyJobComplete, VerifyJobComplete),
        FLAG("Status/Show On Error", SetShowOnError, ShowOnError),
        FLAG("Status/System Tray Icon", SetShowIcon, ShowIcon)
#undef FLAG
    };
    const auto value_of = [&](const auto& number) {
        return static_cast<int32_t>(&number - numbers) - 100;
    };
    settings.SetMonitorStatus(true);
    for (const auto& number : numbers) (settings.*number.set)(value_of(number));
    for (const bool on : {true, false}) {
        for (const auto& flag : flags) (settings.*flag.set)(on);
        settings.Save(prtreg("Dock3"));
        prtreg registry("Dock3");
        DriverSettings fresh;
        fresh.Load(registry);
        for (const auto& number : numbers) {
            EXPECT_EQ((fresh.*number.get)(), value_of(number)) << number.path;
            EXPECT_EQ(registry.GetInt(OString("Settings:") << number.path, 0), value_of(number));
        }
        for (const auto& flag : flags) {
            EXPECT_EQ((fresh.*flag.get)(), on) << flag.path;
            EXPECT_EQ(registry.GetByte(OString("Settings:") << flag.path, 9), on) << flag.path;
        }
    }
}

TEST_F(DriverSettingsTest, AreWrittenOnlyWhenTheyWereSet) {
    EXPECT_EQ(settings.GetQueryInterval(), 1000);
    settings.ShowIcon();
    settings.GetLogDir();
    settings.Save(prtreg("Dock3"));
    EXPECT_FALSE(HasSettings("Dock3"));

    const uint32_t unchanged = settings.GetCRC32(0);
    settings.SetQueryInterval(settings.GetQueryInterval());
    EXPECT_FALSE(HasSettings("Dock3")) << "before Save";
    DriverSettings copy(settings);
    EXPECT_NE(copy.GetCRC32(0), unchanged);
    EXPECT_EQ(copy.GetCRC32(0), settings.GetCRC32(0));
    copy.Save(prtreg("Dock3"));
    EXPECT_EQ(prtreg("Dock3").GetDWORD("Settings:Status/Query Interval", 0), 1000u);
    EXPECT_EQ(prtreg("Dock3").GetSize("Settings:Status/System Tray Icon"), -1);

    // Settings that were changed stay marked, but not beyond the next Load.
    prtreg("Dock3").SetDWORD("Settings:Status/Query Interval", 7);
    settings.Save(prtreg("Dock3"));
    EXPECT_EQ(prtreg("Dock3").GetDWORD("Settings:Status/Query Interval", 0), 1000u);
    settings.Load(prtreg("Dock3"));
    prtreg("Dock3").SetDWORD("Settings:Status/Query Interval", 7);
    EXPECT_EQ(settings.GetQueryInterval(), 7);
    prtreg("Dock3").SetDWORD("Settings:Status/Query Interval", 8);
    EXPECT_EQ(settings.GetQueryInterval(), 7) << "read once until the next Load";
    settings.Save(prtreg("Dock3"));
    EXPECT_EQ(prtreg("Dock3").GetDWORD("Settings:Status/Query Interval", 0), 8u);
}

TEST_F(DriverSettingsTest, AreSavedToThePrinterTheyWereLoadedFor) {
    prtreg("Dock3").SetDWORD("Settings:a/b/c", 1);
    OFile file("C:\\options.txt", OFILE_WRITE);
    settings.SetRetriesPerLabel(9);
    EXPECT_TRUE(settings.Export(file, "Model 1"));
    settings.Save(prtreg("Dock4"));
    EXPECT_EQ(prtreg("Dock3").GetDWORD("Settings:RFID/Retries Per Label", 0), 9u);
    EXPECT_FALSE(HasSettings("Dock4"));
}

TEST_F(DriverSettingsTest, TravelToAnotherPrinterOfTheModel) {
    const std::string blob(200, '\x5A');
    prtreg source("Dock3");
    source.SetBinary("Settings:Blob", blob.data(), static_cast<uint32_t>(blob.size()));
    source.SetString("Settings:Logging/Directory", TEXT("C:\\\x4E00 \"x\""));
    source.SetDWORD("Settings:a/b/c", 0x12345678);
    prtreg("Dock4").SetDWORD("Settings:Status/Query Interval", 5);

    Export("Dock3", "C:\\options.txt");
    const std::string text = BytesOf(OnDriveC("options.txt"));
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
    Export(name, "C:\\options.txt");
    const std::string text = BytesOf(OnDriveC("options.txt"));
    EXPECT_EQ(text.rfind("<options model='Model 1'>\r\n[DATA:\\Settings]", 0), 0u) << text;
    prtreg(name).SetDWORD("Settings:Status/Query Interval", 1);
    for (const OString& target : {OString("Dock4"), name}) {
        EXPECT_TRUE(Import(target, "C:\\options.txt"));
        EXPECT_EQ(prtreg(target).GetDWORD("Settings:Status/Query Interval", 0), 77u);
    }
}
