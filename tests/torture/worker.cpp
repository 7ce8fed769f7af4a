#include "torture/worker.h"

#include <win32host/control.h>
#include <windows.h>
#include <winspool.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/base64.h"
#include "core/obuffer.h"
#include "settings/stock.h"
#include "spooler/open_printer.h"
#include "zplui.h"

namespace {

constexpr int kStocks = 5; // of a set
constexpr int kFirstWidth = 20000;
constexpr char kPrefix[] = "Set ";
constexpr int kCalibrate = 11;

// The installed module, as programs load it.
template <class Function>
Function* Export(const char* name) {
    const HMODULE module =
        LoadLibraryW(TEXT("C:\\WINDOWS\\system32\\spool\\drivers\\w32x86\\3\\zplui.dll"));
    return module ? reinterpret_cast<Function*>(
                        reinterpret_cast<void (*)()>(GetProcAddress(module, name)))
                  : nullptr;
}

// A printer's settings, open.
class Settings {
public:
    explicit Settings(const std::string& printer)
        : printer_(OString(printer.c_str()), PRINTER_ALL_ACCESS)
        , handle_(Export<decltype(DAL_Printer_Open)>("DAL_Printer_Open")(printer_.Get())) {}
    ~Settings() { Export<decltype(DAL_Printer_Close)>("DAL_Printer_Close")(handle_); }
    Settings(const Settings&) = delete;
    Settings& operator=(const Settings&) = delete;

    HANDLE get() const { return handle_; }

private:
    const OpenPrinter printer_;
    const HANDLE handle_;
};

std::string BytesOf(const std::string& file) {
    std::ostringstream bytes;
    bytes << std::ifstream(file, std::ios::binary).rdbuf();
    return bytes.str();
}

// A file of this thread's own.
class ScratchFile {
public:
    ScratchFile() {
        std::string pattern = (std::filesystem::temp_directory_path() / "torture-XXXXXX").string();
        const int file = mkstemp(pattern.data());
        if (file >= 0) CloseDescriptor(file);
        path_ = pattern;
    }
    ~ScratchFile() { std::remove(path_.c_str()); }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    const std::string& path() const { return path_; }

private:
    static void CloseDescriptor(int file) { std::fclose(fdopen(file, "r")); }

    std::string path_;
};

// The number of stocks of each worker's set in a list, and the widths of the known ones.
using Sets = std::map<int, std::vector<int>>;

void TakeName(Sets& sets, const std::string& name, int width) {
    int worker = 0;
    if (std::sscanf(name.c_str(), "Set %d-", &worker) == 1) sets[worker].push_back(width);
}

Sets SetsInFile(const std::string& text) {
    Sets sets;
    std::string name;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.ends_with('\r')) line.pop_back();
        if (line.starts_with("Name=")) name = line.substr(5);
        if (!line.starts_with("Data=")) continue;
        OBuffer<char> record;
        Base64::StringToBuffer(OString(line.c_str() + 5), record);
        int32_t width = 0;
        if (record.GetSize() >= sizeof width) std::memcpy(&width, record.GetData(), sizeof width);
        TakeName(sets, name, width);
    }
    return sets;
}

// The faults of a list that was read. Empty for one that somebody has saved.
std::string TornSets(const Sets& sets) {
    for (const auto& [worker, widths] : sets) {
        bool whole = widths.size() == kStocks;
        for (const int width : widths) whole = whole && width == widths[0];
        if (whole) continue;
        std::string text = "set of worker " + std::to_string(worker) + ":";
        for (const int width : widths) text += ' ' + std::to_string(width);
        return text;
    }
    return {};
}

std::string SettingsFile(int worker, int round) {
    std::string text = "<driver version='6.6'>\r\n\r\n";
    Stock stock;
    stock.width = kFirstWidth + round;
    stock.length = 50000;
    for (int i = 0; i < kStocks; ++i)
        text += std::string("<stock>\r\nName=") + kPrefix + std::to_string(worker) + "-" +
                std::to_string(i) + "\r\nData=" + Encoded(&stock.GetRecord(), sizeof(StockRecord)) +
                "\r\n</stock>\r\n\r\n";
    return text;
}

} // namespace

ModelTables TortureWorker::Tables() {
    return {.model = "Resolution=203,203x406\nStock.Default.X=4 in\nStock.Default.Y=6 in\n"
                     "Stock.Maximum.X=500 mm\nStock.Maximum.Y=990 mm\n",
            .method = "Copies.Limit=500\n"};
}

std::string TortureWorker::DocumentOf(int worker, int round) {
    return "Document " + std::to_string(worker) + "-" + std::to_string(round);
}

void TortureWorker::Fault(const std::string& what) {
    faults_.push_back("worker " + std::to_string(number_) + ": " + what);
}

std::map<int, int> TortureWorker::StoredSets(const std::string& printer,
                                             std::vector<std::string>& faults) {
    const ScratchFile file;
    {
        const Settings settings(printer);
        Export<decltype(DAL_Settings_Export)>("DAL_Settings_Export")(
            settings.get(), OString(file.path().c_str()).wstring(), DAL_SETTINGS_STOCKS);
    }
    const Sets sets = SetsInFile(BytesOf(file.path()));
    if (const std::string torn = TornSets(sets); !torn.empty())
        faults.push_back(printer + " has a " + torn);
    std::map<int, int> rounds;
    for (const auto& [worker, widths] : sets) rounds[worker] = widths[0] - kFirstWidth;
    return rounds;
}

void TortureWorker::Work(int rounds) {
    for (int round = 0; round < rounds; ++round) {
        const std::string printer = SharedPrinter(PrinterOf(number_, round));
        AskCapabilities(printer);
        ImportStocks(printer, round);
        StoredSets(printer, faults_);
        Print(printer, round, round + 1 == rounds);
        RunAction();
        if (round % 4 == number_ % 4) ChangeOptions(printer);
    }
}

void TortureWorker::AskCapabilities(const std::string& printer) {
    const OString name(printer.c_str());
    const auto ask = [&](WORD capability, WCHAR* output) {
        return static_cast<int>(
            DeviceCapabilitiesW(name.wstring(), nullptr, capability, output, nullptr));
    };
    const int copies = ask(DC_COPIES, nullptr);
    if (copies != 500 && copies != 32767) Fault("copies " + std::to_string(copies));

    constexpr size_t kMost = 100, kLength = 64; // many more than all workers make
    std::vector<WCHAR> names(kMost * kLength);
    const int count = ask(DC_PAPERNAMES, names.data());
    Sets sets;
    for (int i = 0; i < count; ++i)
        TakeName(sets, Text(OString(names.data() + static_cast<size_t>(i) * kLength)), 0);
    if (count < 1) Fault("no papers");
    if (const std::string torn = TornSets(sets); !torn.empty()) Fault("papers with a " + torn);
}

void TortureWorker::Import(const std::string& printer, const std::string& text, int contents) {
    const ScratchFile file;
    std::ofstream(file.path(), std::ios::binary) << text;
    const Settings settings(printer);
    if (!settings.get()) Fault("settings of " + printer + " do not open");
    Export<decltype(DAL_Settings_Import)>("DAL_Settings_Import")(
        settings.get(), OString(file.path().c_str()).wstring(), contents);
}

void TortureWorker::ImportStocks(const std::string& printer, int round) {
    Import(printer, SettingsFile(number_, round), DAL_SETTINGS_STOCKS);
}

void TortureWorker::ChangeOptions(const std::string& printer) {
    Import(printer,
           "<driver version='6.6'>\r\n\r\n<options model='Model 1'>\r\n[DATA:\\Settings]\r\n"
           "\"Disable Copies Limit\"=hex:01\r\n</options>\r\n",
           DAL_SETTINGS_OPTIONS);
}

namespace {

std::string SpoolFile(DWORD job) {
    char name[32];
    std::snprintf(name, sizeof name, "/spool/%05u.SPL", unsigned{job});
    return win32host::Root() + name;
}

} // namespace

void TortureWorker::Print(const std::string& printer, int round, bool keep) {
    const OpenPrinter opened(OString(printer.c_str()), PRINTER_ALL_ACCESS);
    OString name(DocumentOf(number_, round).c_str());
    DOC_INFO_1W info = {const_cast<WCHAR*>(name.wstring()), nullptr, nullptr};
    const DWORD job = StartDocPrinterW(opened.Get(), 1, reinterpret_cast<BYTE*>(&info));
    std::string sent;
    for (int i = 0; i < 3; ++i) {
        std::string part(static_cast<size_t>(100 + number_), static_cast<char>('a' + i));
        DWORD written = 0;
        WritePrinter(opened.Get(), part.data(), static_cast<DWORD>(part.size()), &written);
        sent += part;
    }
    if (!job || !EndDocPrinter(opened.Get())) return Fault("no job on " + printer);
    if (BytesOf(SpoolFile(job)) != sent) Fault("job " + std::to_string(job) + " has other bytes");
    if (!keep && !SetJobW(opened.Get(), job, 0, nullptr, JOB_CONTROL_DELETE))
        Fault("job " + std::to_string(job) + " cannot be deleted");
}

// The jobs of its own printer are only this worker's.
void TortureWorker::RunAction() {
    const std::string printer = OwnPrinter(number_);
    {
        const Settings settings(printer);
        if (!Export<decltype(DAL_Action_Run)>("DAL_Action_Run")(settings.get(), kCalibrate,
                                                                nullptr))
            return Fault("the action does not run");
    }
    const OpenPrinter opened(OString(printer.c_str()), PRINTER_ALL_ACCESS);
    alignas(JOB_INFO_1W) BYTE buffer[4096];
    DWORD needed = 0, count = 0;
    EnumJobsW(opened.Get(), 0, 10, 1, buffer, sizeof buffer, &needed, &count);
    if (count != 1) return Fault("the action made " + std::to_string(count) + " jobs");
    const DWORD job = reinterpret_cast<const JOB_INFO_1W*>(buffer)->JobId;
    const std::string bytes = BytesOf(SpoolFile(job));
    if (action_bytes_.empty()) action_bytes_ = bytes;
    if (bytes.empty() || bytes != action_bytes_) Fault("an action's job has other bytes");
    SetJobW(opened.Get(), job, 0, nullptr, JOB_CONTROL_DELETE);
}
