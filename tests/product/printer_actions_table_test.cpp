// Every action on every printer that ships, through the module's exports, against
// golden/printer_actions.txt.
//
// That file has the printers in the order of the packaging list, each as installed, set up, and
// moved to a network port. Below each title are the differences from the state before: how an
// action is offered, and its jobs, in which {6} is the configuration as action 6 sends it.
//
// The Tools page offers the same actions, and they send the same jobs.

#include <nlohmann/json.hpp>

#include <fstream>
#include <map>

#include "spooler/printer_info.h"
#include "support/build_folders.h"
#include "support/job_test.h"
#include "support/program.h"
#include "zpl/extconfig.h"
#include "zplui.h"

namespace {

constexpr char kFile[] = "one label.prn";

// The actions of the Tools page's menus, by the identifiers of their buttons. 0 is a separator.
const std::vector<std::pair<int, std::vector<int>>> kMenus = {
    {611, {1, 3, 4, 2, 0, 12, 19, 13, 15, 16, 14, 0, 17, 18}},
    {612, {6, 7, 8, 9, 0, 37, 48, 0, 11, 23, 35, 20, 0, 21, 10, 28, 31, 5, 29, 0, 22}},
    {613, {39, 40, 45, 0, 24, 32, 47, 0, 27, 33, 30, 34, 44, 46}},
};
constexpr int kItem = 0x7000;

// What a printer is offered and sent, by names like "12 offer" and "12 job".
using Facts = std::map<std::string, std::string>;

// One line of printable characters. All bytes in their order are "{00-FF}".
std::string Escaped(const std::string& bytes) {
    std::string text;
    for (size_t i = 0; i < bytes.size(); ++i) {
        const char c = bytes[i];
        if (c == '\0' && i + 256 <= bytes.size() && bytes[i + 255] == '\xFF') {
            text += "{00-FF}";
            i += 255;
        } else {
            text += c == '\r' ? "\\r" : c == '\n' ? "\\n" : std::string(1, c);
        }
    }
    return text;
}

std::string Spaced(const std::string& text) {
    return text.empty() ? text : " " + text;
}

class PrinterActionsTable : public JobTest {
protected:
    void Open(const std::string& printer) {
        PRINTER_DEFAULTSW access = {nullptr, nullptr, PRINTER_ALL_ACCESS};
        const OString name(printer.c_str());
        ASSERT_TRUE(OpenPrinterW(const_cast<WCHAR*>(name.wstring()), &printer_, &access));
        WCHAR folder[MAX_PATH] = {};
        DWORD needed = 0;
        GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(folder),
                                   sizeof folder, &needed);
        module_ = LoadLibraryW((OString(folder) + "\\3\\zplui.dll").wstring());
        ASSERT_NE(module_, nullptr);
    }
    void Close() {
        FreeLibrary(module_);
        ClosePrinter(printer_);
    }

    void SetUp(const std::string& printer) {
        const OString name(printer.c_str());
        auto* wide = const_cast<WCHAR*>(name.wstring());
        const LONG size = DocumentPropertiesW(nullptr, printer_, wide, nullptr, nullptr, 0);
        ASSERT_GT(size, 0);
        std::vector<char> bytes(static_cast<size_t>(size));
        auto* settings = reinterpret_cast<DEVMODEW*>(bytes.data());
        DocumentPropertiesW(nullptr, printer_, wide, settings, nullptr, DM_OUT_BUFFER);
        extconfig* config = extconfig::get_cfg(settings);
        ASSERT_NE(config, nullptr);
        config->flags |= prtconfig::FLAG_MIRROR;
        config->media_type = 0;
        config->media_tracking = 2;
        config->label_top = 2540;
        config->tear_off = -1270;
        config->backfeed = extconfig::BACKFEED_PERCENTAGE;
        config->backfeed_percentage = 40;
        config->print_mode = extconfig::PRINT_CUTTER;
        config->absolute_darkness = 7;
        config->relative_darkness = -5;
        config->print_speed = 3;
        config->slew_speed = 1;
        config->backfeed_speed = 4;
        config->setting_flags = extconfig::SETTING_LABEL_TOP | extconfig::SETTING_TEAR_OFF |
                                extconfig::SETTING_SPEEDS | extconfig::SETTING_DARKNESS |
                                extconfig::SETTING_ABSOLUTE_DARKNESS;
        // Settings that the printer does not support are reset, as the pages do it.
        const std::unique_ptr<prtmodel> model(prtmodel::new_ext(PrinterInfo(name)));
        ASSERT_NE(model, nullptr);
        config->Validate(model.get());
        PRINTER_INFO_8W info = {settings};
        EXPECT_TRUE(SetPrinterW(printer_, 8, reinterpret_cast<BYTE*>(&info), 0));

        prtreg registry(name);
        registry.SetByte("Settings:Reprint After Error", 0);
        registry.SetByte("Settings:Media Feed", 1);
        registry.SetDWORD("Settings:Media Feed (Power Up)", 0);
        registry.SetDWORD("Settings:Media Feed (Head Close)", 2);
        registry.SetInt("Settings:RFID/Transponder Offset", 25400);
    }

    void MoveToNetwork() {
        DWORD needed = 0;
        GetPrinterW(printer_, 2, nullptr, 0, &needed);
        std::vector<BYTE> bytes(needed);
        ASSERT_TRUE(GetPrinterW(printer_, 2, bytes.data(), needed, &needed));
        WCHAR port[] = TEXT("IP_127.0.0.1:9");
        reinterpret_cast<PRINTER_INFO_2W*>(bytes.data())->pPortName = port;
        ASSERT_TRUE(SetPrinterW(printer_, 2, bytes.data(), 0));
    }

    template <class Function>
    Function* Export(const char* name) const {
        return reinterpret_cast<Function*>(
            reinterpret_cast<void (*)()>(GetProcAddress(module_, name)));
    }

    // The offers of the module and, if `run`, the resulting jobs.
    Facts Seen(bool run) {
        const HANDLE settings = Export<decltype(DAL_Printer_Open)>("DAL_Printer_Open")(printer_);
        const auto supported = Export<decltype(DAL_Action_Supported)>("DAL_Action_Supported");
        Facts facts;
        items_.clear();
        jobs_.clear();
        std::string configuration = "none"; // known from the feed action on
        for (int action = -1; action <= 64; ++action) {
            const DWORD offer = supported(settings, action);
            if (!offer) continue;
            WCHAR name[128] = {};
            Export<decltype(DAL_Action_Name)>("DAL_Action_Name")(settings, action, name, 128);
            const std::string number = (action < 10 ? " " : "") + std::to_string(action);
            facts[number + " offer"] = std::to_string(offer) + Spaced(Text(OString(name)));
            items_[action] = Text(OString(name)) + (offer & ACTION_OPENS_DIALOG ? "..." : "");
            if (!run) continue;
            const OString file = OString("C:\\") + kFile;
            Export<decltype(DAL_Action_Run)>("DAL_Action_Run")(settings, action, file.wstring());
            for (const PrintedJob& job : jobs_[action] = TakeJobs(printer_)) {
                std::string bytes = Escaped(job.bytes);
                if (action == 6) configuration = bytes.substr(0, bytes.find("~PH"));
                if (action != 6 && bytes.starts_with(configuration))
                    bytes.replace(0, configuration.size(), "{6}");
                facts[number + " job"] += job.name + ":" + Spaced(bytes);
            }
        }
        Export<decltype(DAL_Printer_Close)>("DAL_Printer_Close")(settings);
        return facts;
    }

    // Chooses every item of the Tools page's menus, which must be what Seen has seen.
    void ExpectTheSameFromToolsPage(const std::string& printer) const {
        std::string script = "page Tools\n", expected_items;
        std::vector<PrintedJob> expected_jobs;
        for (const auto& [button, actions] : kMenus) {
            const std::string menu = std::to_string(button);
            script += "click " + menu + "\nstate menu\nkey ESC\n";
            std::string separator;
            expected_items += menu;
            for (const int action : actions) {
                const auto item = items_.find(action);
                if (item == items_.end()) {
                    if (action == 0 && !expected_items.ends_with(menu)) separator = "|";
                    continue;
                }
                expected_items += separator + "|" + item->second;
                separator.clear();
                script += "menu " + menu + " " + std::to_string(kItem | action) + "\n";
                if (action == ACTION_SEND_FILE)
                    script += std::string("file \"C:\\\\") + kFile + "\"\n";
                else if (item->second.ends_with("..."))
                    script += "cancel\n";
                const auto& jobs = jobs_.at(action);
                expected_jobs.insert(expected_jobs.end(), jobs.begin(), jobs.end());
            }
            expected_items += "\n";
        }
        WriteFile("script", script + "cancel\n");
        const ProgramResult result =
            RunProgram("labelhost", {"--root", root(), "sheet", printer, "--device", "--run",
                                     OnDriveC("script"), "--json"});
        ASSERT_EQ(result.status, 0) << result.errors;
        const auto told = nlohmann::json::parse(result.output);
        std::string items;
        for (size_t i = 0; i < kMenus.size(); ++i) {
            items += std::to_string(kMenus[i].first);
            for (const auto& item : told["states"][i]["items"])
                items += "|" + item["text"].get<std::string>();
            items += "\n";
        }
        EXPECT_EQ(items, expected_items);
        EXPECT_EQ(TakeJobs(printer_), expected_jobs);
    }

    HANDLE printer_ = nullptr;
    HMODULE module_ = nullptr;
    // What Seen has seen: the texts of menu items, and the jobs, by action.
    std::map<int, std::string> items_;
    std::map<int, std::vector<PrintedJob>> jobs_;
};

} // namespace

TEST_F(PrinterActionsTable, HoldsForEveryPrinterThatShips) {
    NeedRenderingModule();
    std::vector<std::string> models;
    std::ifstream packaging(Built("/product/zplui.inf"));
    for (std::string line; std::getline(packaging, line);)
        if (const size_t end = line.find("\"=Install."); end != std::string::npos)
            models.push_back(line.substr(1, end - 1));
    ASSERT_FALSE(models.empty());
    WriteFile(kFile, "^XA^FDone^XZ");
    // The installed tables are those that this test's own models are made from.
    WriteFile("WINDOWS\\system32\\zpl.ddt", BytesOf(Built("/product/zpl.ddt")));

    // The differences from the state before, each time a printer is looked at.
    std::string seen;
    Facts before;
    const auto look = [&](const std::string& title, bool run) {
        Facts now = Seen(run);
        seen += "= " + title + "\n";
        for (const auto& [name, value] : before)
            if (!now.contains(name) && (run || name.ends_with("offer"))) seen += name + ": no\n";
        for (const auto& [name, value] : now)
            if (!before.contains(name) || before[name] != value) seen += name + " " + value + "\n";
        if (run) before = std::move(now);
    };
    for (const std::string& model : models) {
        SCOPED_TRACE(model);
        const std::string printer = "Printer " + model;
        const ProgramResult installed =
            RunProgram("labelhost", {"--root", root(), "install", printer, "--model", model});
        ASSERT_EQ(installed.status, 0) << installed.errors;
        ASSERT_NO_FATAL_FAILURE(Open(printer));
        look(model, true);
        ASSERT_NO_FATAL_FAILURE(SetUp(printer));
        look(model + ", set up", true);
        ASSERT_NO_FATAL_FAILURE(ExpectTheSameFromToolsPage(printer));
        ASSERT_NO_FATAL_FAILURE(MoveToNetwork());
        look(model + ", on the network", false);
        Close();
    }
    EXPECT_EQ(seen, BytesOf(Sources("/tests/product/golden/printer_actions.txt")));
}
