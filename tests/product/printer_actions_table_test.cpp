// Every action on every printer that ships, through the module's exports, against the table in
// golden/printer_actions.txt.

#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "spooler/printer_info.h"
#include "support/build_folders.h"
#include "support/job_test.h"
#include "support/program.h"
#include "zpl/extconfig.h"
#include "zplui.h"

namespace {

constexpr char kFile[] = "one label.prn";

// What is offered to a printer and what it is sent, by the number of the action.
using Actions = std::map<int, std::string>;

std::string Described(DWORD offer, const std::string& name) {
    return std::to_string(offer) + " " + name;
}
std::string Described(const PrintedJob& job) {
    return "\njob " + job.name + "\n" + job.bytes;
}

class Table {
public:
    explicit Table(const std::string& path) {
        std::ifstream in(path);
        for (std::string line; std::getline(in, line);) Read(line);
    }

    const std::map<std::string, std::string>& printers() const { return printers_; }

    // `state` is "installed", "set-up" or "network"; jobs are not those of the network.
    Actions Of(const std::string& printer, const std::string& state) const {
        Actions actions;
        for (const Offer& offer : offers_) {
            if (!Holds(offer.state, state) || !offer.printers.contains(printer)) continue;
            std::string& text = actions[offer.action];
            text = Described(offer.flags, names_.at(offer.action));
            for (const Bytes& job : jobs_)
                if (job.action == offer.action && job.printers.contains(printer) &&
                    state != "network")
                    text += Described(PrintedJob{job.name, Expanded(job.bytes, printer, state)});
        }
        return actions;
    }

private:
    using Names = std::set<std::string>;
    struct Offer {
        int action;
        DWORD flags;
        std::string state;
        Names printers;
    };
    // Of a block, or of a job.
    struct Bytes {
        int action;
        std::string name, state;
        Names printers;
        std::string bytes;
    };

    static bool Holds(const std::string& when, const std::string& state) {
        return when == "always" || when == state;
    }

    Names ReadPrinters(std::istream& in) const {
        Names names;
        bool all = false;
        for (std::string word; in >> word;) {
            if (word == "all") {
                all = true;
                for (const auto& printer : printers_) names.insert(printer.first);
            } else if (word != "but") {
                EXPECT_TRUE(printers_.contains(word)) << word;
                if (all)
                    names.erase(word);
                else
                    names.insert(word);
            }
        }
        return names;
    }

    void Read(const std::string& line) {
        if (line.empty() || line[0] == '#') return;
        std::istringstream in(line);
        std::string kind, word, rest;
        if (line[0] == ' ') {
            ASSERT_NE(last_, nullptr) << line;
            ASSERT_FALSE(last_->empty());
            last_->back().bytes += line.substr(line.find_first_not_of(' '));
            return;
        }
        in >> kind;
        if (kind == "printer") {
            in >> word >> std::ws;
            std::getline(in, printers_[word]);
        } else if (kind == "action") {
            in >> action_ >> std::ws;
            std::getline(in, names_[action_]);
        } else if (kind == "offer") {
            Offer offer = {action_, 0, {}, {}};
            in >> offer.flags;
            std::getline(in >> std::ws, offer.state, ':');
            offer.printers = ReadPrinters(in);
            offers_.push_back(offer);
        } else if (kind == "job") {
            std::getline(in >> std::ws, word, ':');
            jobs_.push_back({action_, word, {}, ReadPrinters(in), {}});
            last_ = &jobs_;
        } else if (kind == "block") {
            in >> word;
            std::getline(in >> std::ws, rest, ':');
            blocks_.push_back({0, word, rest, ReadPrinters(in), {}});
            last_ = &blocks_;
        } else {
            ADD_FAILURE() << line;
        }
    }

    std::string Expanded(const std::string& text, const std::string& printer,
                         const std::string& state) const {
        std::string bytes;
        for (size_t i = 0; i < text.size(); ++i) {
            if (text.compare(i, 4, "\\r\\n") == 0) {
                bytes += "\r\n";
                i += 3;
            } else if (text[i] == '{') {
                const std::string name = text.substr(i + 1, text.find('}', i) - i - 1);
                i += name.size() + 1;
                if (name == "00-FF")
                    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
                for (const Bytes& block : blocks_)
                    if (block.name == name && Holds(block.state, state) &&
                        block.printers.contains(printer))
                        bytes += Expanded(block.bytes, printer, state);
            } else {
                bytes += text[i];
            }
        }
        return bytes;
    }

    std::map<std::string, std::string> printers_; // by short name
    std::map<int, std::string> names_;
    std::vector<Offer> offers_;
    std::vector<Bytes> jobs_, blocks_;
    std::vector<Bytes>* last_ = nullptr;
    int action_ = 0;
};

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
                                32; // absolute darkness
        // What the printer cannot do is taken back, as the pages do it.
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
    Function Export(const char* name) const {
        return reinterpret_cast<Function>(
            reinterpret_cast<void (*)()>(GetProcAddress(module_, name)));
    }

    // What the module offers, and the jobs that come of it when `run`.
    Actions Seen(bool run) const {
        const HANDLE settings = Export<decltype(&DAL_Printer_Open)>("DAL_Printer_Open")(printer_);
        EXPECT_NE(settings, nullptr);
        Actions actions;
        for (int action = -1; action <= 64; ++action) {
            const DWORD offer =
                Export<decltype(&DAL_Action_Supported)>("DAL_Action_Supported")(settings, action);
            if (!offer) continue;
            WCHAR name[128] = {};
            Export<decltype(&DAL_Action_Name)>("DAL_Action_Name")(settings, action, name, 128);
            std::string& text = actions[action];
            text = Described(offer, Text(OString(name)));
            if (!run) continue;
            const OString file = OString("C:\\") + kFile;
            Export<decltype(&DAL_Action_Run)>("DAL_Action_Run")(settings, action, file.wstring());
            for (const PrintedJob& job : TakeJobs(printer_)) text += Described(job);
        }
        Export<decltype(&DAL_Printer_Close)>("DAL_Printer_Close")(settings);
        return actions;
    }

    HANDLE printer_ = nullptr;
    HMODULE module_ = nullptr;
};

void ExpectSame(const Actions& seen, const Actions& expected) {
    for (const auto& [action, text] : expected)
        EXPECT_EQ(seen.contains(action) ? seen.at(action) : "(not offered)", text)
            << "action " << action;
    for (const auto& [action, text] : seen)
        EXPECT_TRUE(expected.contains(action)) << "action " << action << " is not in the table:\n"
                                               << text;
}

} // namespace

TEST_F(PrinterActionsTable, HoldsForEveryPrinterThatShips) {
    NeedRenderingModule();
    const Table table(Sources("/tests/product/golden/printer_actions.txt"));
    std::set<std::string> shipped;
    std::ifstream packaging(Built("/product/zplui.inf"));
    for (std::string line; std::getline(packaging, line);)
        if (const size_t end = line.find("\"=Install."); end != std::string::npos)
            shipped.insert(line.substr(1, end - 1));
    WriteFile(kFile, "^XA^FDone^XZ");
    // The tables that are installed are those that this test's own models are made of.
    WriteFile("WINDOWS\\system32\\zpl.ddt", BytesOf(Built("/product/zpl.ddt")));
    for (const auto& [short_name, model] : table.printers()) {
        SCOPED_TRACE(model);
        EXPECT_EQ(shipped.erase(model), 1u);
        const std::string printer = "Printer " + model;
        const ProgramResult installed =
            RunProgram("labelhost", {"--root", root(), "install", printer, "--model", model});
        ASSERT_EQ(installed.status, 0) << installed.errors;
        ASSERT_NO_FATAL_FAILURE(Open(printer));
        ExpectSame(Seen(true), table.Of(short_name, "installed"));
        ASSERT_NO_FATAL_FAILURE(SetUp(printer));
        ExpectSame(Seen(true), table.Of(short_name, "set-up"));
        ASSERT_NO_FATAL_FAILURE(MoveToNetwork());
        ExpectSame(Seen(false), table.Of(short_name, "network"));
        Close();
    }
    EXPECT_TRUE(shipped.empty()) << *shipped.begin() << " is not in the table";
}
