// A user below a printer's access level goes through every export.
#include <win32host/control.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <regex>
#include <set>

#include "keys/network_policy.h"
#include "keys/user_info.h"
#include "support/build_folders.h"
#include "support/job_test.h"
#include "ui/prtui.h"
#include "zplui.h"

namespace {

namespace fs = std::filesystem;

constexpr char kFile[] =
    "<driver version='6.6'>\r\n<stock>\r\nName=Tag\r\n"
    "Data=UMMAAKhhAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA==\r\n</stock>\r\n"
    "<options model='Model 1'>\r\n[DATA:\\Settings]\r\n\"New\"=dword:00000001\r\n</options>\r\n";

class RestrictedUser : public JobTest {
protected:
    struct Export {
        const char* name;
        std::function<void()> use; // nothing for what has no printer
    };

    void SetUp() override {
        SkipUnderWine("the user is the one that Wine runs as");
        Install({.model = "Resolution=203\nStock.Maximum.X=110 mm\n"
                          "Stock.Maximum.Y=990 mm\nStock.Default.X=4 in\n"});
        // What a new printer of the model would get.
        fs::create_directories(OnDriveC(""));
        WriteFile("in.kds", kFile);
    }

    static void UseMemberOf(const WCHAR* group, DWORD rid) {
        win32host::SetUser({TEXT("kim"),
                            TEXT("DESK7"),
                            TEXT("DESK7"),
                            {{win32host::Group::Builtin, group, TEXT(""), rid}},
                            1007});
    }

    // Everything that the machine keeps about the printer, but for its jobs.
    static std::string Kept() {
        OStringArray lines;
        ORegistry registry;
        registry.Export("PRINT:Printers/Dock 3", lines);
        registry.Export("LOCAL:Paper Sizes", lines);
        std::string text;
        bool jobs = false;
        for (int i = 0; i < lines.GetSize(); ++i) {
            const std::string line = Text(lines[i]);
            if (line.starts_with("[")) jobs = line.find("\\Jobs") != std::string::npos;
            if (!jobs) text.append(line) += '\n';
        }
        return text;
    }

    void WithSettings(const std::function<void(HANDLE)>& use) {
        WCHAR name[] = TEXT("Dock 3");
        HANDLE opened = nullptr;
        ASSERT_TRUE(OpenPrinterW(name, &opened, nullptr));
        const HANDLE settings = DAL_Printer_Open(opened);
        use(settings);
        DAL_Printer_Close(settings);
        ClosePrinter(opened);
    }
    // The same with an edited list.
    void WithEdited(const std::function<void(HANDLE)>& use) {
        WithSettings([&](HANDLE settings) {
            auto& ui = *static_cast<prtui*>(settings);
            auto* stock = new Stock;
            stock->SetName("Mine");
            ui.stocks.AddTail(stock);
            ui.stocks.Validate();
            ui.fonts.AddTail(new DownloadedFont);
            auto* preset = new Preset;
            preset->SetToDefaultDevMode(ui.model.get());
            preset->SetName("Mine");
            ui.presets.AddTail_ReplaceName(preset);
            use(settings);
        });
    }

    // A sheet that is opened, ended with OK and closed.
    void UseSheets(LONG (*sheets)(PPROPSHEETUI_INFO, LPARAM), void* header) {
        PROPSHEETUI_INFO info = {};
        info.cbSize = sizeof info;
        info.lParamInit = reinterpret_cast<LPARAM>(header);
        info.Reason = PROPSHEETUI_REASON_INIT;
        if (sheets(&info, 0) < 0) return;
        auto& ui = *reinterpret_cast<prtui*>(info.UserData);
        if (DEVMODEW* settings = ui.devmode.GetDevMode()) settings->dmCopies = 17;
        SETRESULT_INFO result = {};
        result.cbSize = sizeof result;
        result.Result = CPSUI_OK;
        for (const WORD reason :
             {WORD{PROPSHEETUI_REASON_SET_RESULT}, WORD{PROPSHEETUI_REASON_DESTROY}}) {
            info.Reason = reason;
            sheets(&info, reinterpret_cast<LPARAM>(&result));
        }
    }

    std::vector<Export> Exports() {
        static WCHAR name[] = TEXT("Dock 3");
        const auto open = [] {
            HANDLE opened = nullptr;
            OpenPrinterW(name, &opened, nullptr);
            return opened;
        };
        return {
            {"DllInitialize", {}},
            {"DevQueryPrintEx", {}},
            {"DrvDeviceCapabilities",
             [=] {
                 const HANDLE opened = open();
                 DrvDeviceCapabilities(opened, name, DC_PAPERS, nullptr, nullptr);
                 ClosePrinter(opened);
             }},
            {"DrvConvertDevMode",
             [] {
                 DWORD needed = 4096;
                 std::vector<BYTE> out(needed);
                 DrvConvertDevMode(name, nullptr, reinterpret_cast<DEVMODEW*>(out.data()), &needed,
                                   CDM_DRIVER_DEFAULT);
             }},
            {"DrvDocumentPropertySheets",
             [=, this] {
                 DOCUMENTPROPERTYHEADER header = {};
                 std::vector<BYTE> out(4096);
                 header.cbSize = sizeof header;
                 header.hPrinter = open();
                 header.pszPrinterName = name;
                 header.pdmOut = reinterpret_cast<DEVMODEW*>(out.data());
                 header.fMode = DM_UPDATE | DM_OUT_BUFFER;
                 DrvDocumentPropertySheets(nullptr, reinterpret_cast<LPARAM>(&header));
                 header.fMode = DM_UPDATE | DM_COPY;
                 UseSheets(DrvDocumentPropertySheets, &header);
                 ClosePrinter(header.hPrinter);
             }},
            {"DrvDevicePropertySheets",
             [=, this] {
                 DEVICEPROPERTYHEADER header = {};
                 header.cbSize = sizeof header;
                 header.hPrinter = open();
                 header.pszPrinterName = name;
                 UseSheets(DrvDevicePropertySheets, &header);
                 ClosePrinter(header.hPrinter);
             }},
            {"DrvPrinterEvent",
             [] {
                 for (int event = 0; event < 10; ++event) DrvPrinterEvent(name, event, 0, 0);
             }},
            {"DrvDocumentEvent",
             [=] {
                 const HANDLE opened = open();
                 for (int event = 0; event < 20; ++event)
                     DrvDocumentEvent(opened, nullptr, event, 0, nullptr, 0, nullptr);
                 ClosePrinter(opened);
             }},
            {"DrvUpgradePrinter",
             [] {
                 DRIVER_UPGRADE_INFO_1W info = {name, nullptr};
                 DrvUpgradePrinter(1, reinterpret_cast<BYTE*>(&info));
             }},
            {"DAL_Printer_Open", [this] { WithSettings([](HANDLE) {}); }},
            {"DAL_Printer_Close", [this] { WithEdited([](HANDLE) {}); }},
            {"DAL_Settings_Load", [this] { WithEdited(DAL_Settings_Load); }},
            {"DAL_Settings_Save",
             [this] {
                 WithEdited([](HANDLE settings) {
                     DAL_Settings_Save(settings);
                     EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
                 });
             }},
            {"DAL_Settings_Export",
             [this] {
                 WithSettings([](HANDLE settings) {
                     DAL_Settings_Export(settings, TEXT("C:\\out.kds"), 0x10F);
                 });
             }},
            {"DAL_Settings_Import",
             [this] {
                 WithSettings([](HANDLE settings) {
                     DAL_Settings_Import(settings, TEXT("C:\\in.kds"), 0x10F);
                     EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
                 });
             }},
            {"DAL_Action_Supported", {}},
            {"DAL_Action_Name", {}},
            {"DAL_Action_Run",
             [this] {
                 WithSettings([](HANDLE settings) {
                     for (int action = 0; action <= DAL_ACTION_LAST; ++action)
                         DAL_Action_Run(settings, action, TEXT("C:\\in.kds"));
                 });
             }},
            {"DAL_Query_Run",
             [this] {
                 WithSettings([](HANDLE settings) {
                     DAL_Query_Run(
                         settings, DAL_QUERY_STATUS, [](void*, int, const WCHAR*, const WCHAR*) {},
                         nullptr);
                 });
             }},
            {"DAL_Fonts_List", {}},
            {"DAL_Fonts_Verify",
             [this] {
                 WithEdited([](HANDLE settings) { EXPECT_FALSE(DAL_Fonts_Verify(settings)); });
             }},
            {"DAL_Fonts_Resend",
             [this] {
                 WithEdited([](HANDLE settings) { EXPECT_FALSE(DAL_Fonts_Resend(settings)); });
             }},
            {"DAL_Font_Download",
             [this] {
                 WithEdited([](HANDLE settings) {
                     DAL_FONT font = {};
                     EXPECT_FALSE(DAL_Font_Download(settings, &font));
                 });
             }},
            {"DAL_Font_Delete",
             [this] {
                 WithEdited([](HANDLE settings) { EXPECT_FALSE(DAL_Font_Delete(settings, 0)); });
             }},
            {"X16_Base64_Encode", {}},
            {"X16_Base64_Decode", {}},
            {"X16_LZ77_Encode", {}},
            {"X16_LZ77_Decode", {}},
            {"X16_CRC16", {}},
            {"X16_CRC32", {}},
            {"X16_ImageDither_Dither", {}},
            {"X16_ImageDither_DitherSmooth", {}},
        };
    }

    void ChangesNothing() {
        const std::string before = Kept();
        for (const Export& each : Exports()) {
            SCOPED_TRACE(each.name);
            if (each.use) each.use();
            ASSERT_EQ(Kept(), before);
        }
    }
};

} // namespace

TEST_F(RestrictedUser, ChangesNothingThroughAnyExport) {
    std::set<std::string> declared, used;
    std::ifstream header(Sources("/include/zplui.h"));
    const std::string text{std::istreambuf_iterator<char>(header), {}};
    const std::regex name("ZPLUI_API [^;]*WINAPI (\\w+)\\(");
    for (std::sregex_iterator at(text.begin(), text.end(), name), end; at != end; ++at)
        declared.insert((*at)[1]);
    for (const Export& each : Exports()) used.insert(each.name);
    EXPECT_EQ(used, declared) << "every export is looked at";

    UseMemberOf(TEXT("Users"), 545);
    ChangesNothing();
    UseMemberOf(TEXT("Administrators"), 544);
    NetworkPolicy("Dock 3").SetLocalAccessLevel(USER_LEVEL_ADMIN);
    // The spooler lets this one change printers.
    UseMemberOf(TEXT("Power Users"), 547);
    ChangesNothing();

    UseMemberOf(TEXT("Administrators"), 544);
    const std::string before = Kept();
    WithEdited([](HANDLE settings) {
        DAL_Settings_Import(settings, TEXT("C:\\in.kds"), DAL_SETTINGS_OPTIONS);
        EXPECT_EQ(GetLastError(), DWORD{NO_ERROR});
        DAL_Settings_Save(settings);
        EXPECT_EQ(GetLastError(), DWORD{NO_ERROR});
    });
    const std::string now = Kept();
    EXPECT_NE(now, before);
    EXPECT_NE(now.find("\"New\"=dword:00000001"), std::string::npos);
    EXPECT_NE(now.find("\"Mine\""), std::string::npos);
}
