// The page on the registry names all that the driver stores or looks for there, and nothing else.

#include <algorithm>
#include <fstream>
#include <memory>
#include <new>
#include <regex>
#include <set>
#include <sstream>

#include <nlohmann/json.hpp>

#include "driver/version_check.h"
#include "keys/network_policy.h"
#include "keys/shadow_keys.h"
#include "model/driver_settings.h"
#include "printer/cache_settings.h"
#include "printer/prtstream.h"
#include "settings/scolor.h"
#include "support/build_folders.h"
#include "support/job_test.h"
#include "support/program.h"
#include "win32host/control.h"
#include "zpl/extui.h"

namespace {

using Json = nlohmann::json;

struct Name {
    std::string text; // as on the page
    std::regex path;
    bool seen = false;
};

// The names in the first column of the page's tables of values, as patterns of full paths.
std::vector<Name> NamesOf(const std::string& text) {
    std::istringstream page(text);
    const std::regex quoted("`([^`]+)`");
    std::vector<Name> names;
    std::string front; // what "..." stands for
    bool values = false;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with("## ")) values = line == "## Values";
        if (!values || !line.starts_with("| `")) continue;
        const std::string column = line.substr(0, line.find(" | "));
        for (std::sregex_iterator at(column.begin(), column.end(), quoted), end; at != end; ++at) {
            const std::string quote = (*at)[1];
            std::string name = quote;
            if (name.starts_with("... ")) {
                name = front + name.substr(4);
            } else {
                name = std::regex_replace(name, std::regex("::"), ":");
                name = std::regex_replace(name, std::regex("//"), "/");
                name = std::regex_replace(name, std::regex(R"([.()\[\]])"), "\\$&");
                name = std::regex_replace(name, std::regex(R"(\\\[PRINTER\\\])"), "[^/]+");
                name = std::regex_replace(name, std::regex("\\b(NAME|KEY)\\b|OEM"), "[^/]+");
                name = std::regex_replace(name, std::regex("\\b01\\b"), "[0-9]+");
                front = name.substr(0, name.rfind(' ') + 1);
            }
            names.push_back({quote, std::regex(name)});
        }
    }
    return names;
}

// The path of a value as the page writes it, or empty for one of the system. The same names are in
// a user's tree of keys of another machine.
std::string Symbolic(const std::string& path) {
    const std::pair<const char*, const char*> roots[] = {
        {".*/PrinterDriverData/Settings/", "SETTINGS:"},
        {".*/PrinterDriverData/Model/", "MODEL:"},
        {".*/PrinterDriverData/Downloaded Fonts/", "FONTS:"},
        {".*/PrinterDriverData/Presets/", "PRESETS:"},
        {".*/PrinterDriverData/Development/", "DEBUG:"},
        {".*/PrinterDriverData/", "DATA:"},
        {".*/PRINT:/", nullptr},
        {"(HKLM/SOFTWARE/Valdrick/Drivers|.*/LOCAL:)/Paper Sizes/", "STOCK:"},
        {"HKLM/SOFTWARE/Valdrick/Drivers/Global Settings/", "GLOBAL:"},
        {"(HKLM/SOFTWARE/Valdrick/Drivers|.*/LOCAL:)/", "LOCAL:"},
        {"(HKCU/SOFTWARE/Valdrick/Drivers|.*/USER:)/Printers/[^/]+/Settings/", "USERSETTINGS:"},
        {"(HKCU/SOFTWARE/Valdrick/Drivers|.*/USER:)/", "USER:"},
    };
    for (const auto& [key, root] : roots) {
        std::smatch found;
        if (std::regex_search(path, found, std::regex(key, std::regex::icase),
                              std::regex_constants::match_continuous)) {
            return root ? root + found.suffix().str() : "";
        }
    }
    return "";
}

void Walk(const Json& key, const std::string& path, std::set<std::string>& values) {
    for (const auto& [name, value] : key["values"].items()) values.insert(Symbolic(path + name));
    for (const auto& [name, below] : key["keys"].items()) Walk(below, path + name + '/', values);
}

class RegistryPage : public JobTest {
protected:
    // Runs labelhost on a machine with that root.
    static std::string On(const std::string& root, std::vector<std::string> words) {
        words.insert(words.begin(), {"--root", root});
        const ProgramResult result = RunProgram("labelhost", words);
        EXPECT_EQ(result.status, 0) << result.errors;
        return result.output;
    }
    static void Gather(const std::string& root, std::set<std::string>& values) {
        for (const char* key : {"HKLM", "HKCU"})
            Walk(Json::parse(On(root, {"registry", "dump", key, "--json"})), std::string(key) + '/',
                 values);
    }

    // Uses features that no command of the host program reaches.
    void UseTheRest() {
        Install({.model = "Resolution=203\nPorts.PNP.ID=X\n", .font = "Fonts=FontGroup:A.pfg\n"});
        SetDriverSettings();
        NetworkPolicy policy("Dock 3");
        policy.SetNetworkSharing(true);
        policy.SetLocalAccessLevel(1);
        policy.SetNetworkAccessLevel(1);
        OStringArray groups;
        Model()->GetFontGroups(groups);
        WriteVersionError(printer());
        const auto ui = OpenUI();
        WriteCacheSettings(*ui->stream, {});
        ASSERT_TRUE(static_cast<extui&>(*ui).SetPowerSettings({}));
        prtreg registry = Registry();
        ui->locale.Save(registry);
        auto* stock = new (std::nothrow) Stock;
        stock->SetName("Own");
        ui->stocks.AddTail(stock);
        ui->Settings_Save();

        // Start the status monitor for a printer.
        const HMODULE monitor =
            LoadLibraryW(OString(("Z:" + Built("/bin/qstmon.dll")).c_str()).wstring());
        ASSERT_TRUE(monitor);
        using Start = void(CALLBACK*)(HWND, HINSTANCE, LPSTR, int);
        const auto start = reinterpret_cast<Start>(
            reinterpret_cast<void (*)()>(GetProcAddress(monitor, "StatusMonitor")));
        ASSERT_TRUE(start);
        char command[] = "open \"Dock 3\"";
        start(nullptr, nullptr, command, 0);
        FreeLibrary(monitor);
        SetWhatOnlyPeopleSet(registry);
        SetWhatOnlyPagesSet(registry);

        // Data sent for a printer that is its own server is not taken by anyone.
        registry.SetByte("LOCAL:Printers/[PRINTER]/Shadow", 2);
        prtreg copy(OString("Dock 3"));
        copy.SetDWORD("PRINT:Printers/[PRINTER]/Attributes", PRINTER_ATTRIBUTE_ENABLE_BIDI);
        CommitShadow("Dock 3");
    }

    static void SetDriverSettings() {
        DriverSettings settings;
        settings.Load(Registry());
        settings.SetEscapeCharacter('^');
        for (const auto set :
             {&DriverSettings::SetDisableCopiesLimit, &DriverSettings::SetFixBarFontsInOffice,
              &DriverSettings::SetLogging, &DriverSettings::SetOverwriteFile,
              &DriverSettings::SetGenerateFile, &DriverSettings::SetMonitorStatus,
              &DriverSettings::SetQueryBeforeJob, &DriverSettings::SetVerifyJobComplete,
              &DriverSettings::SetShowOnError, &DriverSettings::SetShowIcon})
            (settings.*set)(true);
        settings.OverrideSpecifications(true);
        for (const auto set :
             {&DriverSettings::SetXResolution, &DriverSettings::SetYResolution,
              &DriverSettings::SetPrintableWidth, &DriverSettings::SetTracking,
              &DriverSettings::SetPaperWidthMin, &DriverSettings::SetPaperWidthMax,
              &DriverSettings::SetPaperLengthMin, &DriverSettings::SetPaperLengthMax,
              &DriverSettings::SetWriteTimeout, &DriverSettings::SetJobCompleteTimeout,
              &DriverSettings::SetQueryInterval, &DriverSettings::SetTransponderOffset,
              &DriverSettings::SetRetriesPerLabel, &DriverSettings::SetMaximumInvalidLabels,
              &DriverSettings::SetActionOnError})
            (settings.*set)(1);
        settings.SetLogDir("C:\\");
        settings.SetLogFile("log");
        settings.Save(Registry());
    }

    // The driver reads these and never writes them.
    static void SetWhatOnlyPeopleSet(prtreg& registry) {
        for (const char* limit : {"Connect", "Answer", "Quiet"})
            registry.SetDWORD(OString("LOCAL:Status Monitor/") << limit << " Time Limit", 1000);
        OStringArray groups;
        groups.Add("FontGroup:B.pfg");
        registry.SetMultiString("Settings:Expansion Fonts", groups);
        registry.SetMultiString("Settings:Excluded Fonts", groups);
        registry.SetDWORD("Settings:Unprintable Width", 1000);
        registry.SetByte("Settings:Reprint After Error", 1);
        registry.SetByte("Settings:Media Feed", 1);
        registry.SetDWORD("Settings:Media Feed (Power Up)", 1);
        registry.SetDWORD("Settings:Media Feed (Head Close)", 1);
        SCOLOR inks;
        inks.Init(Model().get());
        registry.SetBinary("Settings:Spot Color", &inks, sizeof inks);
    }

    // Pages keep these when the user has changed them.
    static void SetWhatOnlyPagesSet(prtreg& registry) {
        const int32_t widths[5] = {80, 80, 80, 80, 80};
        registry.SetBinary("USERSETTINGS:Cache Contents/Column Widths", widths, sizeof widths);
        registry.SetBinary("USERSETTINGS:Fonts/Column Widths", widths, sizeof widths);
        registry.SetDWORD("USERSETTINGS:Fonts/View Type", 14);
        registry.SetDWORD("USERSETTINGS:Fonts/Sort Column", 1);
        registry.SetByte("USERSETTINGS:Fonts/Sort Reverse", 1);
        OStringArray code_pages;
        code_pages.Add("1250");
        registry.SetMultiString("Settings:Additional Code Pages", code_pages);
    }
};

} // namespace

TEST_F(RegistryPage, NamesEveryValueAndNoOther) {
    // Installs, settings files, presets, actions, a query and a client of a shared printer.
    const std::string story = root() + "/story";
    ASSERT_EQ(RunProgram("labelhost", {"demo", story}).status, 0);
    On(story + "/warehouse", {"upgrade", "Dock1"});
    On(story + "/warehouse", {"fonts", "add", "Dock1", "DejaVu Sans", "--bitmap", "12"});
    On(story + "/office", {"document", "\\\\WAREHOUSE\\Dock1"});
    std::ofstream(story + "/script") << "page \"About\"\nclick 111 CTRL+ALT+SHIFT\n"
                                        "page \"Output\"\npage \"Monitor\"\nok\nok\n";
    On(story + "/warehouse", {"sheet", "Dock1", "--device", "--run", story + "/script"});
    std::ofstream(story + "/format.zpl") << "^XA^DFR:1.ZPL^FO9,9^GB9,9^FS^XZ";
    On(story + "/warehouse", {"action", "Dock1", "22", story + "/format.zpl"});
    UseTheRest();
    win32host::SetRoot(story + "/office");
    NetworkPolicy("\\\\WAREHOUSE\\Dock1").SetNetworkSharing(true);

    std::set<std::string> values;
    for (const std::string& machine : {root(), story + "/warehouse", story + "/office"})
        Gather(machine, values);
    values.erase("");
    std::vector<Name> names = NamesOf(BytesOf(Sources("/docs/registry.md")));
    for (const std::string& value : values) {
        bool named = false;
        for (Name& name : names) {
            if (!std::regex_match(value, name.path)) continue;
            name.seen = named = true;
        }
        EXPECT_TRUE(named) << value << " is not on the page";
    }
    for (const Name& name : names)
        EXPECT_TRUE(name.seen) << name.text << " is on the page, and nothing has such a value";
}
