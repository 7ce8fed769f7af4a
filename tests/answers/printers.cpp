// Installed printers: defaults, document settings, capabilities, actions and settings files.
#include "answers/answers.h"

#include <algorithm>
#include <initializer_list>

namespace {

constexpr const WCHAR* kPrinter = TEXT("Answers");
constexpr const WCHAR* kExported = TEXT("C:\\answers\\exported.kds");

const struct {
    const char* name;
    const WCHAR *driver, *data_file;
} kModels[] = {
    {"D4", TEXT("Valdrick D4 203 dpi"), TEXT("C:\\answers\\zplqv.ddt")},
    {"X4", TEXT("Valdrick X4 600 dpi"), TEXT("C:\\answers\\zplqv.ddt")},
    {"R4", TEXT("Valdrick R4 RFID"), TEXT("C:\\answers\\zplqv.ddt")},
    {"C4", TEXT("Valdrick C4 Spot Color"), TEXT("C:\\answers\\zplqv.ddt")},
    {"TT", TEXT("TT X4 300 dpi"), TEXT("C:\\answers\\zpltt.ddt")},
};

WCHAR* Text(const WCHAR* text) {
    return const_cast<WCHAR*>(text);
}

void AddDriver(const WCHAR* name, const WCHAR* data_file) {
    DRIVER_INFO_3W info = {};
    info.cVersion = 3;
    info.pName = Text(name);
    info.pDriverPath = Text(TEXT("C:\\answers\\zplrender.dll"));
    info.pConfigFile = Text(TEXT("C:\\answers\\zplui.dll"));
    info.pDataFile = Text(data_file);
    info.pDefaultDataType = Text(TEXT("RAW"));
    info.pDependentFiles = Text(TEXT("C:\\answers\\zplui.dll.mui\0C:\\answers\\zpl.ddt\0"
                                     "C:\\answers\\zplvenu.dll\0C:\\answers\\zpltenu.dll\0"
                                     "C:\\answers\\oqvxxenu.kds\0C:\\answers\\ottxxenu.kds\0"));
    Require(AddPrinterDriverExW(nullptr, 3, reinterpret_cast<BYTE*>(&info),
                                APD_COPY_ALL_FILES | APD_COPY_FROM_DIRECTORY),
            "cannot install the driver");
}

// The printer's record, valid until the next call.
PRINTER_INFO_2W* RecordOf(HANDLE printer) {
    static Bytes bytes;
    DWORD needed = 0;
    GetPrinterW(printer, 2, nullptr, 0, &needed);
    bytes.assign(needed, 0);
    Require(GetPrinterW(printer, 2, bytes.data(), needed, &needed), "cannot read the printer");
    return reinterpret_cast<PRINTER_INFO_2W*>(bytes.data());
}

HANDLE AddPrinter(const WCHAR* driver) {
    PRINTER_INFO_2W info = {};
    info.pPrinterName = Text(kPrinter);
    info.pDriverName = Text(driver);
    info.pPortName = Text(TEXT("FILE:"));
    info.pPrintProcessor = Text(TEXT("WinPrint"));
    info.pDatatype = Text(TEXT("RAW"));
    const HANDLE added = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&info));
    Require(added != nullptr, "cannot add the printer");
    ClosePrinter(added);
    PRINTER_DEFAULTSW all = {nullptr, nullptr, PRINTER_ALL_ACCESS};
    HANDLE printer = nullptr;
    Require(OpenPrinterW(Text(kPrinter), &printer, &all), "cannot open the printer");
    return printer;
}

// Removes what an earlier run has left: the numbers of paper sizes and, if it broke off, the rest.
void RemoveLeftovers() {
    PRINTER_DEFAULTSW all = {nullptr, nullptr, PRINTER_ALL_ACCESS};
    HANDLE printer = nullptr;
    if (OpenPrinterW(Text(kPrinter), &printer, &all)) {
        DeletePrinter(printer);
        ClosePrinter(printer);
    }
    for (const auto& model : kModels) DeletePrinterDriverW(nullptr, nullptr, Text(model.driver));
    for (const WCHAR* sizes : {TEXT("SOFTWARE\\Valdrick\\Drivers\\Paper Sizes\\oqv"),
                               TEXT("SOFTWARE\\Valdrick\\Drivers\\Paper Sizes\\ott")})
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, sizes);
}

// A stored DEVMODE without the bytes after the names' ends, which the spooler may set to anything.
Bytes Meaning(const DEVMODEW* dev_mode) {
    const auto* begin = reinterpret_cast<const uint8_t*>(dev_mode);
    Bytes bytes(begin, begin + dev_mode->dmSize + dev_mode->dmDriverExtra);
    for (WCHAR* name : {DevModeIn(bytes)->dmDeviceName, DevModeIn(bytes)->dmFormName}) {
        WCHAR* const end = name + CCHDEVICENAME;
        std::fill(std::find(name, end, WCHAR{0}), end, WCHAR{0});
    }
    return bytes;
}

class Printer {
public:
    Printer(const Module& module, const char* name, HANDLE printer)
        : module_(module)
        , name_(name)
        , printer_(printer) {}

    void Ask() {
        const auto convert = EXPORT(module_, DrvConvertDevMode);
        Bytes defaults(1508);
        DWORD size = 1508;
        Tell(name_ + " has defaults",
             convert(Text(kPrinter), nullptr, DevModeIn(defaults), &size, CDM_DRIVER_DEFAULT));
        Tell(name_ + ", defaults", defaults);
        // The first defaults of a new printer are the spooler's own choice.
        PRINTER_INFO_2W record = *RecordOf(printer_);
        record.pDevMode = DevModeIn(defaults);
        Require(SetPrinterW(printer_, 2, reinterpret_cast<BYTE*>(&record), 0),
                "cannot set the printer's defaults");
        Tell(name_ + " is initialised",
             EXPORT(module_, DrvPrinterEvent)(Text(kPrinter), PRINTER_EVENT_INITIALIZE, 0, 0));
        Tell(name_ + ", the spooler's defaults", Meaning(RecordOf(printer_)->pDevMode));

        AskForDocuments(defaults);
        AskForCapabilities();
        AskForSettings();
    }

private:
    void AskForDocument(const std::string& what, Bytes in) const {
        Bytes out(1508);
        DOCUMENTPROPERTYHEADER header = {};
        header.cbSize = sizeof header;
        header.hPrinter = printer_;
        header.pszPrinterName = Text(kPrinter);
        header.fMode = DM_OUT_BUFFER | (in.empty() ? 0u : DWORD{DM_IN_BUFFER});
        header.pdmIn = in.empty() ? nullptr : DevModeIn(in);
        header.pdmOut = DevModeIn(out);
        header.cbOut = 1508;
        Tell(name_ + " makes a document " + what, EXPORT(module_, DrvDocumentPropertySheets)(
                                                      nullptr, reinterpret_cast<LPARAM>(&header)));
        Tell(name_ + ", document " + what, out);
    }

    // DEVMODEs of programs: complete ones, truncated ones, and ones with random contents.
    void AskForDocuments(const Bytes& defaults) const {
        AskForDocument("of nothing", {});
        AskForDocument("of its defaults", defaults);
        for (const WORD size : std::initializer_list<WORD>{72, 102, 156, 188, 220}) {
            Bytes cut = defaults;
            DevModeIn(cut)->dmSize = size;
            DevModeIn(cut)->dmDriverExtra = 0;
            DevModeIn(cut)->dmCopies = 7;
            cut.resize(size);
            AskForDocument("of " + std::to_string(size) + " bytes", cut);
        }
        for (uint32_t round = 0; round < 60; ++round) {
            Noise noise(round);
            Bytes changed = defaults;
            for (int change = 0; change < 40; ++change) {
                const size_t limit = round % 2 ? 220 : changed.size();
                const size_t at = (noise.Byte() * 256u + noise.Byte()) % limit;
                // Versions and sizes decide how much may be read.
                if (at < 64 || at >= 72) changed[at] = noise.Byte();
            }
            AskForDocument("of anything, " + std::to_string(round), changed);
        }
    }

    void AskForCapabilities() const {
        const auto ask = EXPORT(module_, DrvDeviceCapabilities);
        for (WORD capability = 0; capability <= 40; ++capability) {
            // The locations of files and the driver's version depend on the machine.
            if (capability == DC_FILEDEPENDENCIES) continue;
            const std::string what = name_ + ", capability " + std::to_string(capability);
            Tell(what + " alone",
                 static_cast<int32_t>(ask(printer_, Text(kPrinter), capability, nullptr, nullptr)));
            Bytes output(20000);
            Tell(what, static_cast<int32_t>(
                           ask(printer_, Text(kPrinter), capability, output.data(), nullptr)));
            Tell(what + " stores", output);
        }
    }

    void AskForSettings() const {
        const HANDLE settings = EXPORT(module_, DAL_Printer_Open)(printer_);
        Require(settings != nullptr, "cannot open the settings");
        EXPORT(module_, DAL_Settings_Load)(settings);
        for (int action = 0; action <= DAL_ACTION_LAST + 1; ++action) {
            const std::string what = name_ + ", action " + std::to_string(action);
            Tell(what, EXPORT(module_, DAL_Action_Supported)(settings, action));
            WCHAR name[80] = {};
            const int length = EXPORT(module_, DAL_Action_Name)(settings, action, name, 80);
            Tell(what + " is called", name, 2 * static_cast<size_t>(std::clamp(length, 0, 79)));
        }
        EXPORT(module_, DAL_Settings_Export)(settings, kExported, 0xFFFF);
        TellLines("exports", FileOf(kExported));
        EXPORT(module_, DAL_Settings_Import)(settings, kExported, 0xFFFF);
        EXPORT(module_, DAL_Settings_Export)(settings, kExported, DAL_SETTINGS_STOCKS);
        TellLines("exports what it has imported", FileOf(kExported));
        EXPORT(module_, DAL_Printer_Close)(settings);
    }

    // An answer for each line: every system lists what is stored in an order of its own.
    void TellLines(const std::string& what, const Bytes& file) const {
        for (auto line = file.begin(); line != file.end();) {
            const auto end = std::find(line, file.end(), '\n');
            Tell(name_ + " " + what, Bytes(line, end));
            line = end == file.end() ? end : end + 1;
        }
    }

    static Bytes FileOf(const WCHAR* path) {
        const HANDLE file = CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
        Require(file != INVALID_HANDLE_VALUE, "cannot read a file");
        Bytes bytes(GetFileSize(file, nullptr));
        DWORD read = 0;
        Require(ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr),
                "cannot read a file");
        CloseHandle(file);
        return bytes;
    }

    const Module& module_;
    std::string name_;
    HANDLE printer_;
};

} // namespace

Wide InstallDriver(const Wide& module, const Wide& product) {
    RemoveLeftovers();
    CreateDirectoryW(TEXT("C:\\answers"), nullptr);
    const Wide stage = TEXT("C:\\answers\\");
    const auto copy = [](const Wide& from, const Wide& to) {
        Require(CopyFileW(from.c_str(), to.c_str(), FALSE), "cannot copy a file of the driver");
    };
    copy(module, stage + TEXT("zplui.dll"));
    for (const WCHAR* file : {TEXT("zplui.dll.mui"), TEXT("zplrender.dll"), TEXT("zpl.ddt"),
                              TEXT("zplqv.ddt"), TEXT("zpltt.ddt"), TEXT("zplvenu.dll"),
                              TEXT("zpltenu.dll"), TEXT("oqvxxenu.kds"), TEXT("ottxxenu.kds")})
        copy(product + TEXT("\\") + file, stage + file);
    for (const auto& model : kModels) AddDriver(model.driver, model.data_file);

    WCHAR folder[MAX_PATH] = {};
    DWORD needed = 0;
    Require(GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(folder),
                                       sizeof folder, &needed),
            "cannot find the folder of drivers");
    return folder + Wide(TEXT("\\3\\zplui.dll"));
}

void AskPrinters(const Module& module) {
    for (const auto& model : kModels) {
        const HANDLE printer = AddPrinter(model.driver);
        Printer(module, model.name, printer).Ask();
        DeletePrinter(printer);
        ClosePrinter(printer);
    }
    RemoveLeftovers();
}
