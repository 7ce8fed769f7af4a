// The module as its callers have it: loaded from the driver folder, every function by its name.
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "spooler/driver_utility.h"
#include "support/build_folders.h"
#include "support/staged_driver_test.h"
#include "ui/prtui.h"
#include "zplui.h"

namespace {

// A function that the header declares, from the loaded module.
#define EXPORT(name) Function<decltype(&name)>(#name)

class LoadedModule : public StagedDriverTest {
protected:
    void SetUp() override {
        Install({.model = "Resolution=203\nStock.Maximum.X=110 mm\n"
                          "Stock.Maximum.Y=990 mm\n",
                 .method = "Copies.Limit=500\n"});
        const std::string folder = std::string(DriverFolder().nstring()).substr(3);
        std::filesystem::copy_file(Built("/bin/zplui.dll.mui"),
                                   OnDriveC(folder + "\\zplui.dll.mui"));
        module_ = LoadLibraryW((DriverFolder() + "\\zplui.dll").wstring());
        ASSERT_TRUE(module_);
        PRINTER_DEFAULTSW all = {nullptr, nullptr, PRINTER_ALL_ACCESS};
        ASSERT_TRUE(OpenPrinterW(name_, &printer_, &all));
    }
    void TearDown() override {
        ClosePrinter(printer_);
        FreeLibrary(module_);
        DriverUtility::SetModuleHandle(nullptr);
    }
    template <class F>
    F Function(const char* name) const {
        const auto function =
            reinterpret_cast<F>(reinterpret_cast<void (*)()>(GetProcAddress(module_, name)));
        EXPECT_TRUE(function) << name;
        return function;
    }

    WCHAR name_[8] = TEXT("Dock 3");
    HMODULE module_ = nullptr;
    HANDLE printer_ = nullptr;
};

} // namespace

TEST_F(LoadedModule, AnswersTheSpooler) {
    EXPECT_TRUE(EXPORT(DllInitialize)(module_, 2, nullptr));
    EXPECT_TRUE(EXPORT(DevQueryPrintEx)(nullptr));
    EXPECT_EQ(EXPORT(DrvDeviceCapabilities)(printer_, name_, DC_COPIES, nullptr, nullptr), 500u);
    DWORD size = 0;
    EXPECT_FALSE(EXPORT(DrvConvertDevMode)(name_, nullptr, nullptr, &size, CDM_CONVERT));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
    EXPECT_EQ(size, 1508u);
    std::vector<char> mode(size);
    EXPECT_TRUE(EXPORT(DrvConvertDevMode)(name_, nullptr, reinterpret_cast<DEVMODEW*>(mode.data()),
                                          &size, CDM_DRIVER_DEFAULT));
    EXPECT_EQ(reinterpret_cast<DEVMODEW*>(mode.data())->dmSize, 220);
    EXPECT_TRUE(EXPORT(DrvPrinterEvent)(name_, PRINTER_EVENT_INITIALIZE, 0, 0));
    EXPECT_FALSE(EXPORT(DrvUpgradePrinter)(1, nullptr));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    DRIVER_UPGRADE_INFO_1W upgrade = {};
    SetLastError(0);
    EXPECT_FALSE(EXPORT(DrvUpgradePrinter)(1, reinterpret_cast<BYTE*>(&upgrade)));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_FALSE(EXPORT(DrvPrinterEvent)(nullptr, PRINTER_EVENT_INITIALIZE, 0, 0));
    EXPECT_TRUE(EXPORT(DrvPrinterEvent)(nullptr, PRINTER_EVENT_ADD_CONNECTION, 0, 0));
    EXPECT_FALSE(EXPORT(DrvConvertDevMode)(
        nullptr, nullptr, reinterpret_cast<DEVMODEW*>(mode.data()), &size, CDM_DRIVER_DEFAULT));
    upgrade.pPrinterName = name_;
    EXPECT_TRUE(EXPORT(DrvUpgradePrinter)(1, reinterpret_cast<BYTE*>(&upgrade)));
    EXPECT_EQ(EXPORT(DrvDocumentEvent)(printer_, nullptr, 5, 0, nullptr, 0, nullptr), 1);
    DOCUMENTPROPERTYHEADER header = {};
    EXPECT_EQ(EXPORT(DrvDocumentPropertySheets)(nullptr, reinterpret_cast<LPARAM>(&header)), 1508);
    EXPECT_EQ(EXPORT(DrvDevicePropertySheets)(nullptr, 0), -1);
}

TEST_F(LoadedModule, KeepsWhatAProgramHasImported) {
    WriteFile("in.kds", "<driver version='6.6'>\r\n<stock>\r\nName=Tag\r\n"
                        "Data=UMMAAKhhAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA==\r\n</stock>\r\n");
    const auto open = EXPORT(DAL_Printer_Open);
    const auto close = EXPORT(DAL_Printer_Close);
    const auto exported = [&](HANDLE settings) {
        EXPORT(DAL_Settings_Export)(settings, TEXT("C:\\out.kds"), DAL_SETTINGS_STOCKS);
        return BytesOf(OnDriveC("out.kds")).find("Name=Tag\r\n") != std::string::npos;
    };
    HANDLE settings = open(printer_);
    ASSERT_TRUE(settings);
    EXPORT(DAL_Settings_Load)(settings);
    EXPECT_FALSE(exported(settings));
    EXPORT(DAL_Settings_Import)(settings, TEXT("C:\\in.kds"), DAL_SETTINGS_STOCKS);
    EXPORT(DAL_Settings_Save)(settings);
    close(settings);
    settings = open(printer_);
    EXPECT_TRUE(exported(settings));
    close(settings);
    close(nullptr);
}

TEST_F(LoadedModule, TellsProgramsItsActions) {
    const auto open = EXPORT(DAL_Printer_Open);
    const HANDLE settings = open(printer_);
    EXPECT_TRUE(EXPORT(DAL_Action_Supported)(settings, DAL_ACTION_SEND_FILE));
    WCHAR name[4];
    EXPORT(DAL_Action_Name)(settings, DAL_ACTION_SEND_FILE, name, 4);
    EXPECT_FALSE(EXPORT(DAL_Action_Run)(settings, 0, nullptr));
    EXPECT_FALSE(EXPORT(DAL_Query_Run)(settings, 0, nullptr, nullptr));
    EXPORT(DAL_Printer_Close)(settings);
}

TEST_F(LoadedModule, LendsItsCodecs) {
    const char text[] = "123456789";
    char coded[64];
    char plain[64] = {};
    uint32_t size = 0;
    EXPORT(X16_Base64_Encode)(text, 9, coded, &size);
    EXPECT_EQ(std::string(coded, size), "MTIzNDU2Nzg5");
    EXPORT(X16_Base64_Decode)(coded, size, plain, &size);
    EXPECT_EQ(std::string(plain, size), "123456789");
    uint32_t length = sizeof coded;
    ASSERT_TRUE(EXPORT(X16_LZ77_Encode)(text, 9, coded, &length));
    size = sizeof plain;
    ASSERT_TRUE(EXPORT(X16_LZ77_Decode)(coded, length, plain, &size));
    EXPECT_EQ(std::string(plain, size), "123456789");
    EXPECT_EQ(EXPORT(X16_CRC16)(text, 9, 0), 0x31C3);
    EXPECT_EQ(EXPORT(X16_CRC32)(text, 9, 0), 0xFC891918u);
    EXPORT(X16_ImageDither_Dither)(nullptr);
    EXPORT(X16_ImageDither_DitherSmooth)(nullptr);
}

TEST_F(LoadedModule, HasAVersionResourceThatTheUIObjectReads) {
    prtui& ui = *prtui::new_ext();
    OString version, tag;
    DriverUtility::SetModuleHandle(nullptr);
    EXPECT_FALSE(ui.LoadFileVersionInfo());
    EXPECT_TRUE(ui.GetBuildDate().IsEmpty());
    EXPECT_EQ(ui.GetCopyrightStart(), 0);
    DriverUtility::SetModuleHandle(module_);
    ui.GetVersionInfo(version);
    ui.GetVersionTag(tag);
    EXPECT_EQ(Text(version).find_first_not_of("0123456789."), std::string::npos);
    EXPECT_FALSE(version.IsEmpty() || tag.IsEmpty() || ui.GetBuildDate().IsEmpty() ||
                 ui.GetSCMBranch().IsEmpty() || ui.GetSCMRevision().IsEmpty());
    // English, in the western code page.
    const std::string notice = Text(ui.GetCopyright());
    EXPECT_EQ(notice.rfind("Copyright \xA9", 0), 0u) << notice;
    EXPECT_EQ(notice.find("(c)"), std::string::npos);
    EXPECT_GT(ui.GetCopyrightStart(), 2000);
    EXPECT_EQ(ui.GetCopyrightEnd(), ui.GetCopyrightStart());
    delete &ui;
}
