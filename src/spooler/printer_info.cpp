#include "spooler/printer_info.h"

#include <cstring>

#include "core/memory.h"
#include "spooler/open_printer.h"
#include "spooler/spooler_dev_mode.h"

namespace {

constexpr uint32_t kMaxRecordSize = 64u << 20;
constexpr uint32_t kUsualRecordSize = 4096; // larger than any of the structures
constexpr int kMaxAttempts = 8;             // for a record that keeps growing between two calls

// How far a question to the spooler got.
enum Outcome {
    Done,
    Failed,     // the size was known, but the record could not be obtained
    NotOffered, // neither the record nor its size
};

// Asks for a record of at least `minimum` bytes. First with room for a usual one, because a call
// costs the spooler more than the room costs us, then with as much as it asks for.
template <typename Ask>
Outcome GetRecord(OBuffer<unsigned char>& buffer, uint32_t minimum, Ask ask) {
    DWORD needed = 0;
    if (!buffer.SetSize(kUsualRecordSize)) return Failed;
    std::memset(buffer.GetData(), 0, buffer.GetSize());
    if (ask(buffer.GetData(), buffer.GetSize(), &needed)) return Done;
    if (GetLastError() != ERROR_INSUFFICIENT_BUFFER) return NotOffered;
    for (int attempt = 0; attempt < kMaxAttempts; ++attempt) {
        if (needed < minimum || needed > kMaxRecordSize || !buffer.SetSize(needed)) return Failed;
        if (ask(buffer.GetData(), buffer.GetSize(), &needed)) return Done;
        if (GetLastError() != ERROR_INSUFFICIENT_BUFFER) return Failed;
    }
    return Failed;
}

OString FilePartOf(const OString& path) {
    return path.FilePart();
}

// Reads the file parts of a list whose entries are zero-terminated, as is the list itself.
template <typename Character>
void ReadFileList(OStringArray& files, const Character* list) {
    if (!list) return;
    while (*list) {
        files.Add(FilePartOf(OString(list)));
        while (*list) ++list;
        ++list;
    }
}

} // namespace

struct PrinterInfo::PrinterRecord {
    OString server_name;
    OString share_name;
    OString port_name;
    OString driver_name;
    OString comment;
    OString location;
    OString separator_file;
    OString print_processor;
    OString datatype;
    OString parameters;
    uint32_t attributes = 0;
    bool known = false;

    // From PRINTER_INFO_2W or PRINTER_INFO_2A.
    template <typename Info>
    void Read(const Info& info) {
        server_name = info.pServerName;
        share_name = info.pShareName;
        port_name = info.pPortName;
        driver_name = info.pDriverName;
        comment = info.pComment;
        location = info.pLocation;
        separator_file = info.pSepFile;
        print_processor = info.pPrintProcessor;
        datatype = info.pDatatype;
        parameters = info.pParameters;
        attributes = info.Attributes;
        known = true;
    }
};

struct PrinterInfo::DriverRecord {
    uint32_t version = 0;
    OString environment;
    OString directory;
    OString driver_file;
    OString data_file;
    OString config_file;
    OString help_file;
    OStringArray dependent_files;
    OString monitor_name;
    OString default_datatype;
    OString manufacturer;
    OString hardware_id;
    OString provider;
    bool known = false;

    // From DRIVER_INFO_6W, DRIVER_INFO_3W or DRIVER_INFO_3A: the members they have in common.
    template <typename Info>
    void Read(const Info& info) {
        const OString driver_path = info.pDriverPath;
        version = info.cVersion;
        environment = info.pEnvironment;
        directory = driver_path.PathPart();
        driver_file = driver_path.FilePart();
        data_file = FilePartOf(info.pDataFile);
        config_file = FilePartOf(info.pConfigFile);
        help_file = FilePartOf(info.pHelpFile);
        ReadFileList(dependent_files, info.pDependentFiles);
        monitor_name = info.pMonitorName;
        default_datatype = info.pDefaultDataType;
        known = true;
    }
};

PrinterInfo::PrinterInfo(const OString& name)
    : handle_(nullptr)
    , name_(name) {}

PrinterInfo::PrinterInfo(void* handle)
    : handle_(handle) {}

PrinterInfo PrinterInfo::Of(void* handle, const WCHAR* name) {
    if (handle || !name || !*name) return PrinterInfo(handle);
    return PrinterInfo(OString(name));
}

PrinterInfo::~PrinterInfo() = default;

const PrinterInfo::PrinterRecord& PrinterInfo::Printer() const {
    static const PrinterRecord none;
    if (!printer_) {
        printer_.reset(new (kCounted) PrinterRecord);
        if (printer_) FetchPrinter();
    }
    return printer_ ? *printer_ : none;
}

const PrinterInfo::DriverRecord& PrinterInfo::Driver() const {
    static const DriverRecord none;
    if (!driver_) {
        driver_.reset(new (kCounted) DriverRecord);
        if (driver_) FetchDriver();
    }
    return driver_ ? *driver_ : none;
}

void PrinterInfo::FetchPrinter() const {
    const OpenPrinter printer(name_, PRINTER_ACCESS_USE, handle_);
    if (!printer.Get()) return;

    OBuffer<unsigned char> buffer;
    Outcome outcome =
        GetRecord(buffer, sizeof(PRINTER_INFO_2W), [&](BYTE* data, DWORD size, DWORD* needed) {
            return GetPrinterW(printer.Get(), 2, data, size, needed);
        });
    if (outcome == Done) TakePrinter<PRINTER_INFO_2W>(buffer);
    if (outcome != NotOffered) return;

    outcome =
        GetRecord(buffer, sizeof(PRINTER_INFO_2A), [&](BYTE* data, DWORD size, DWORD* needed) {
            return GetPrinterA(printer.Get(), 2, data, size, needed);
        });
    if (outcome == Done) TakePrinter<PRINTER_INFO_2A>(buffer);
}

template <typename Info>
void PrinterInfo::TakePrinter(const OBuffer<unsigned char>& record) const {
    const auto& info = *reinterpret_cast<const Info*>(record.GetData());
    printer_->Read(info);
    name_ = info.pPrinterName;

    const auto* dev_mode = reinterpret_cast<const unsigned char*>(info.pDevMode);
    const unsigned char* end = record.GetData() + record.GetSize();
    if (dev_mode < record.GetData() || dev_mode >= end) return;
    dev_mode_ = CopyDevMode(info.pDevMode, static_cast<size_t>(end - dev_mode));
}

void PrinterInfo::FetchDriver() const {
    const OpenPrinter printer(name_, PRINTER_ACCESS_USE, handle_);
    if (!printer.Get()) return;

    OBuffer<unsigned char> buffer;
    const auto ask_wide = [&](DWORD level) {
        return [&printer, level](BYTE* data, DWORD size, DWORD* needed) {
            return GetPrinterDriverW(printer.Get(), nullptr, level, data, size, needed);
        };
    };
    if (GetRecord(buffer, sizeof(DRIVER_INFO_6W), ask_wide(6)) == Done) {
        const auto& info = *reinterpret_cast<const DRIVER_INFO_6W*>(buffer.GetData());
        driver_->Read(info);
        driver_->manufacturer = info.pszMfgName;
        driver_->hardware_id = info.pszHardwareID;
        driver_->provider = info.pszProvider;
    } else if (GetRecord(buffer, sizeof(DRIVER_INFO_3W), ask_wide(3)) == Done) {
        driver_->Read(*reinterpret_cast<const DRIVER_INFO_3W*>(buffer.GetData()));
    } else if (GetRecord(
                   buffer, sizeof(DRIVER_INFO_3A), [&](BYTE* data, DWORD size, DWORD* needed) {
                       return GetPrinterDriverA(printer.Get(), nullptr, 3, data, size, needed);
                   }) == Done) {
        driver_->Read(*reinterpret_cast<const DRIVER_INFO_3A*>(buffer.GetData()));
    }
}

const OString& PrinterInfo::GetPrinterName() const {
    Printer();
    return name_;
}

bool PrinterInfo::IsKnown() const {
    return Printer().known;
}

bool PrinterInfo::IsDriverKnown() const {
    return Driver().known;
}

const OString& PrinterInfo::GetServerName() const {
    return Printer().server_name;
}
const OString& PrinterInfo::GetShareName() const {
    return Printer().share_name;
}
const OString& PrinterInfo::GetPortName() const {
    return Printer().port_name;
}
const OString& PrinterInfo::GetDriverName() const {
    return Printer().driver_name;
}
const OString& PrinterInfo::GetComment() const {
    return Printer().comment;
}
const OString& PrinterInfo::GetLocation() const {
    return Printer().location;
}
const OString& PrinterInfo::GetSeparatorFile() const {
    return Printer().separator_file;
}
const OString& PrinterInfo::GetPrintProcessor() const {
    return Printer().print_processor;
}
const OString& PrinterInfo::GetDatatype() const {
    return Printer().datatype;
}
const OString& PrinterInfo::GetParameters() const {
    return Printer().parameters;
}
uint32_t PrinterInfo::GetAttributes() const {
    return Printer().attributes;
}

const DEVMODEW* PrinterInfo::GetDevMode() const {
    Printer();
    return reinterpret_cast<const DEVMODEW*>(dev_mode_.GetData());
}

uint32_t PrinterInfo::GetDriverVersion() const {
    return Driver().version;
}
const OString& PrinterInfo::GetEnvironment() const {
    return Driver().environment;
}
const OString& PrinterInfo::GetDriverDirectory() const {
    return Driver().directory;
}
const OString& PrinterInfo::GetDriverFile() const {
    return Driver().driver_file;
}
const OString& PrinterInfo::GetDataFile() const {
    return Driver().data_file;
}
const OString& PrinterInfo::GetConfigFile() const {
    return Driver().config_file;
}
const OString& PrinterInfo::GetHelpFile() const {
    return Driver().help_file;
}
const OString& PrinterInfo::GetMonitorName() const {
    return Driver().monitor_name;
}
const OString& PrinterInfo::GetDefaultDatatype() const {
    return Driver().default_datatype;
}
const OStringArray& PrinterInfo::GetDependentFiles() const {
    return Driver().dependent_files;
}
const OString& PrinterInfo::GetManufacturer() const {
    return Driver().manufacturer;
}
const OString& PrinterInfo::GetHardwareID() const {
    return Driver().hardware_id;
}
const OString& PrinterInfo::GetProvider() const {
    return Driver().provider;
}

OString PrinterInfo::GetPrefix() const {
    OString prefix = GetDataFile().Left(3);
    prefix.MakeLower();
    return prefix;
}

OString PrinterInfo::GetOEM() const {
    OString oem = GetDataFile().Mid(3, 2);
    oem.MakeLower();
    return oem;
}

OString PrinterInfo::PrinterPart() const {
    const OString& name = GetPrinterName();
    const int backslash = name.Find(TEXT("\\"), 2);
    return backslash < 0 ? name : name.Mid(backslash + 1);
}

bool PrinterInfo::IsLocal() const {
    return GetServerName().IsEmpty();
}

bool PrinterInfo::SetDevMode(DEVMODEW* dev_mode) {
    if (!dev_mode) return false;
    const OpenPrinter printer(name_, PRINTER_ALL_ACCESS, handle_);
    if (!printer.Get()) return false;

    OBuffer<unsigned char> buffer;
    if (GetRecord(buffer, sizeof(PRINTER_INFO_2W), [&](BYTE* data, DWORD size, DWORD* needed) {
            return GetPrinterW(printer.Get(), 2, data, size, needed);
        }) != Done) {
        return false;
    }
    auto& info = *reinterpret_cast<PRINTER_INFO_2W*>(buffer.GetData());
    info.pDevMode = dev_mode;
    // With null the spooler keeps its own. To write it back would need more rights.
    info.pSecurityDescriptor = nullptr;
    if (!SetPrinterW(printer.Get(), 2, buffer.GetData(), 0)) return false;

    if (printer_) {
        dev_mode_.Assign(reinterpret_cast<const unsigned char*>(dev_mode),
                         uint32_t{dev_mode->dmSize} + dev_mode->dmDriverExtra);
    }
    return true;
}
