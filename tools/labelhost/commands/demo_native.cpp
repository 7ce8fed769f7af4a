// labelhost demo: shows what the driver and the host can do, on two machines and a printer made for
// it.
#include "arguments.h"
#include "commands/commands.h"
#include "commands/story.h"
#include "fault.h"
#include "machine/installation.h"

#include "emulator/server.h"

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <thread>

namespace {

namespace fs = std::filesystem;

constexpr const char* kLabel = "^XA\n"
                               "^FO50,50^A0N,60,60^FDHello from Dock 3^FS\n"
                               "^FO50,140^BCN,100,Y,N,N^FD12345678^FS\n"
                               "^XZ\n";
constexpr std::chrono::seconds kPatience(20);

// An emulated printer that prints while the story goes on.
class Printer {
public:
    Printer()
        : server_(0, AnswerRules(""), [this](const std::string& note) { Hear(note); })
        , thread_([this] { server_.Run(); }) {}
    ~Printer() {
        server_.Stop();
        thread_.join();
    }
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;

    uint16_t Port() const { return server_.Port(); }

    // Waits until it has printed a label and answers its line. Throws Fault if it does not print.
    std::string Printed() {
        std::unique_lock lock(mutex_);
        if (!heard_.wait_for(lock, kPatience, [this] { return !printed_.empty(); }))
            throw Fault("the emulated printer has not printed");
        return printed_;
    }

private:
    void Hear(const std::string& note) {
        const std::lock_guard lock(mutex_);
        if (note.starts_with("printed")) printed_ = note;
        heard_.notify_all();
    }

    std::mutex mutex_;
    std::condition_variable heard_;
    std::string printed_;
    EmulatorServer server_;
    std::thread thread_;
};

// A new folder for the machines, which stays for the reader to go on with.
fs::path NewFolder(const Arguments& arguments) {
    if (arguments.size() == 0) {
        std::string name = (fs::temp_directory_path() / "labelhost-demo-XXXXXX").string();
        if (!mkdtemp(name.data())) throw FileFault("cannot make a folder like", name);
        return name;
    }
    std::error_code error;
    fs::create_directories(arguments[0], error);
    if (error || !fs::is_empty(arguments[0], error) || error)
        throw Fault("'" + arguments[0] + "' is no empty folder, nor can it be made one");
    return fs::absolute(arguments[0]);
}

// The folder of this program.
std::string ProgramFolder() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path().string();
}

class Demo {
public:
    explicit Demo(std::string product)
        : product_(std::move(product)) {}

    void Tell() {
        Install();
        Capabilities();
        DocumentSettings();
        SettingsFile();
        Jobs();
        Network();
        PrintServer();
    }

private:
    using Parts = std::vector<std::string>;

    // Runs labelhost on the machine of that name.
    static void On(const char* machine, Words words, const Parts& parts = {}) {
        words.insert(words.begin(), {"--root", machine});
        Story::Run(words, parts);
    }
    static void Here(const Words& words, const Parts& parts = {}) { On("warehouse", words, parts); }

    void InstallPrinter(const char* printer, const char* model,
                        const std::string& port = "") const {
        Words words = {"install", printer, "--model", model};
        if (!port.empty()) words.insert(words.end(), {"--port", port});
        if (product_ != DefaultProductFolder()) words.insert(words.end(), {"--product", product_});
        Here(words);
    }

    void Install() const {
        Story::Chapter("1. Two printers",
                       "The machine \"warehouse\" gets a desktop printer of 300 dpi and a mobile "
                       "one. The spooler\ncopies the driver's files and tells the driver of its "
                       "new printers.");
        InstallPrinter("Dock1", "Valdrick X4 300 dpi");
        InstallPrinter("Dock2", "Valdrick M2 Mobile");
        Here({"list"});
    }

    static void Capabilities() {
        const Parts parts = {"smallest", "largest", "papers  ", "resolutions  ", "zpl.ddt"};
        Story::Chapter("2. What they can do",
                       "Programs ask the spooler, which asks the driver, which knows every model "
                       "from its data file.");
        Here({"capabilities", "Dock1"}, parts);
        Here({"capabilities", "Dock2"}, parts);
    }

    static void DocumentSettings() {
        const Parts parts = {"bytes",       "dmCopies",          "dmPaper",         "dmFormName",
                             "print_speed", "relative_darkness", "dither.algorithm"};
        Story::Chapter(
            "3. Document settings",
            "What a program gets that prints without choosing anything; then a preset, a "
            "stock and\nthree copies, kept as bytes in a file and as a preset of the "
            "printer.");
        Here({"document", "Dock1"}, parts);
        Here({"document", "Dock1", "--preset", "High quality", "--set", "stock=4 x 6 in", "--set",
              "dmCopies=3", "--out", "label.dm", "--save-preset", "Pallet"},
             parts);
    }

    static void SettingsFile() {
        Story::Chapter(
            "4. A settings file",
            "Everything that Dock1 has goes into a text file, and from there to Dock2. Options of\n"
            "another model stay out; the preset is Dock2's too now, at its own resolution.");
        Here({"settings", "export", "Dock1", "dock1.kds"});
        Story::ShowFile("dock1.kds", 6);
        Here({"settings", "import", "Dock2", "dock1.kds"});
        Here({"document", "Dock2", "--preset", "Pallet"},
             {"dmCopies", "dmPaper", "dmFormName", "dmPrintQuality", "print_speed",
              "relative_darkness"});
    }

    static void Jobs() {
        Story::Chapter("5. ZPL jobs",
                       "Two of the things that the printer can be told to do: a configuration "
                       "label, and the\ncalibration of its media sensor. Each is a job in the "
                       "spooler; these are its bytes.");
        Here({"actions", "Dock1"}, {"Calibrate", "Configuration", "Feed", "Send File"});
        Here({"action", "Dock1", "12"});
        Here({"action", "Dock1", "11"});
        Here({"action", "Dock1", "6"});
        Here({"jobs", "Dock1"});
        for (const char* job : {"1", "2", "3"}) Here({"jobs", "Dock1", "--show", job});
    }

    void Network() const {
        Printer printer;
        const std::string port = std::to_string(printer.Port());
        if (printer.Port() == 0) throw Fault("there is no free port for an emulated printer");
        std::ofstream("label.zpl") << kLabel;
        Story::Chapter("6. A printer on the network",
                       "The demo runs an emulated printer, as 'labelhost printer-emulator' does, "
                       "on port " +
                           port +
                           ".\nA file of ZPL is printed there, and the printer is "
                           "asked about itself.");
        InstallPrinter("Dock3", "Valdrick X4 203 dpi", "IP_127.0.0.1:" + port);
        Story::ShowFile("label.zpl", 4);
        Here({"action", "Dock3", "22", "label.zpl"});
        Story::Say("    the printer says: " + printer.Printed());
        Here({"query", "Dock3"}, {"Model", "Firmware", "PRINT WIDTH", "DARKNESS", "Memory-Size",
                                  "Head-Up", "Paper-Out"});
    }

    static void PrintServer() {
        const Parts parts = {"dmFormName", "dmCopies", "relative_darkness"};
        Story::Chapter("7. A print server and its client",
                       "A second machine, \"office\", connects to Dock1. It sees the preset that "
                       "was saved on the\nserver; one that it saves itself is the server's from "
                       "then on.");
        On("office", {"connect", "\\\\WAREHOUSE\\Dock1", "--server", "warehouse"});
        On("office", {"list"});
        On("office", {"document", "\\\\WAREHOUSE\\Dock1", "--preset", "Pallet"}, parts);
        On("office",
           {"document", "\\\\WAREHOUSE\\Dock1", "--preset", "Draft", "--set", "stock=2 x 1 in",
            "--save-preset", "Returns"},
           parts);
        Here({"document", "Dock1", "--preset", "Returns"}, parts);
    }

    const std::string product_;
};

} // namespace

void DemoCommand(const Words& words) {
    const Arguments arguments(words, {"product"}, {});
    arguments.RequireCount(0, 1, "demo [DIR] [--product DIR]");
    const std::string product =
        fs::absolute(arguments.Get("product", DefaultProductFolder())).string();
    const fs::path folder = NewFolder(arguments);
    std::error_code error;
    fs::current_path(folder, error);
    if (error) throw Fault("cannot go to '" + folder.string() + "': " + error.message());
    Story::Say("The story of a label printer driver, on machines that live in\n" + folder.string() +
               "; the commands run there.");
    Demo(product).Tell();
    Story::Chapter(
        "What to try next",
        "The machines stay where they are, until you delete the folder:\n\n"
        "  cd " +
            folder.string() +
            "\n"
            "  export PATH=\"" +
            ProgramFolder() +
            ":$PATH\"\n"
            "  labelhost models                                    # what else can be "
            "installed\n"
            "  labelhost --root warehouse document Dock1 --json    # every field\n"
            "  labelhost --root warehouse actions Dock2            # what a mobile printer "
            "can do\n"
            "  labelhost --root warehouse settings import Dock1 dock1.kds\n"
            "  labelhost --root office registry dump 'HKCU\\Software\\Valdrick'\n"
            "  labelhost help");
}
