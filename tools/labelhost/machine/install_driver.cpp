#include "machine/install_driver.h"

#include "fault.h"
#include "machine/printer.h"
#include "text.h"

#include <windows.h>
#include <winspool.h>

#include <cstring>

namespace {

// A machine without printers lacks the folder for drivers, so each level is made in turn.
void MakeFolders(const WideString& path) {
    for (size_t at = path.find(TEXT('\\')); at != WideString::npos;
         at = path.find(TEXT('\\'), at + 1))
        if (at > 2) CreateDirectoryW(path.substr(0, at).c_str(), nullptr);
    if (!CreateDirectoryW(path.c_str(), nullptr) && GetLastError() != ERROR_ALREADY_EXISTS)
        throw SystemFault("cannot make the folder '" + ToUtf8(path.c_str()) + "'", GetLastError());
}

WideString DriverFolder() {
    DWORD needed = 0;
    GetPrinterDriverDirectoryW(nullptr, nullptr, 1, nullptr, 0, &needed);
    std::vector<WCHAR> folder(needed / sizeof(WCHAR) + 1);
    if (!GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(folder.data()),
                                    needed, &needed))
        throw SystemFault("cannot find the folder of printer drivers", GetLastError());
    return folder.data();
}

// Copies one file of the product into the driver folder: first under a name unique to this process,
// which is then renamed, so that a failed copy leaves the old file and does not disturb another
// process that installs at the same time. Answers the new file's path.
WideString StageFile(const std::string& product, const std::string& file,
                     const WideString& folder) {
    const std::string source = product + "/" + file;
    const WideString target = folder + TEXT("\\") + ToWide(file);
    WCHAR aside[MAX_PATH] = {};
    if (!GetTempFileNameW(folder.c_str(), TEXT("inst"), 0, aside))
        throw SystemFault("cannot write to the folder '" + ToUtf8(folder.c_str()) + "'",
                          GetLastError());
    DWORD error = NO_ERROR;
    std::string what;
    if (!CopyFileW(ToWide(source).c_str(), aside, FALSE)) {
        error = GetLastError();
        what = "cannot copy driver file '" + source + "'";
    } else if (!MoveFileExW(aside, target.c_str(), MOVEFILE_REPLACE_EXISTING)) {
        error = GetLastError();
        what = "cannot replace driver file '" + ToUtf8(target.c_str()) + "'";
    }
    if (error == NO_ERROR) return target;
    DeleteFileW(aside);
    throw SystemFault(what, error);
}

void AddDriver(const Installation& product, const Model& model, const DriverFiles& files) {
    const WideString folder = DriverFolder();
    MakeFolders(folder);
    WideString driver = StageFile(product.folder(), files.driver, folder);
    WideString config = StageFile(product.folder(), files.config, folder);
    // On hosts other than Windows a module's resources are in a file beside it.
    const std::string resources = files.config + ".mui";
    if (GetFileAttributesW(ToWide(product.folder() + "/" + resources).c_str()) !=
        INVALID_FILE_ATTRIBUTES)
        StageFile(product.folder(), resources, folder);
    WideString data = StageFile(product.folder(), files.data, folder);
    WideString help =
        files.help.empty() ? WideString() : StageFile(product.folder(), files.help, folder);
    WideString dependent;
    for (const std::string& file : files.dependent)
        dependent += StageFile(product.folder(), file, folder) + WCHAR(0);
    dependent += WCHAR(0);

    WideString name = ToWide(model.name);
    WideString data_type = ToWide(files.default_data_type);
    WideString monitor = ToWide(files.monitor);
    WideString manufacturer = ToWide(model.manufacturer);
    WideString hardware_id = ToWide(model.hardware_id);
    WideString provider = ToWide(product.provider());
    DRIVER_INFO_6W info = {};
    info.cVersion = 3;
    info.pName = name.data();
    info.pDriverPath = driver.data();
    info.pConfigFile = config.data();
    info.pDataFile = data.data();
    info.pHelpFile = help.empty() ? nullptr : help.data();
    info.pDependentFiles = dependent.data();
    info.pMonitorName = monitor.empty() ? nullptr : monitor.data();
    info.pDefaultDataType = data_type.empty() ? nullptr : data_type.data();
    info.pszMfgName = manufacturer.data();
    info.pszHardwareID = hardware_id.data();
    info.pszProvider = provider.data();
    const auto add = [&] {
        return AddPrinterDriverExW(nullptr, 6, reinterpret_cast<BYTE*>(&info),
                                   APD_COPY_ALL_FILES | APD_COPY_FROM_DIRECTORY) != FALSE;
    };
    bool added = add();
    // A spooler that does not accept the status monitor as a language monitor does without.
    if (!added && info.pMonitorName) {
        info.pMonitorName = nullptr;
        added = add();
    }
    if (!added) throw SystemFault("cannot add driver '" + model.name + "'", GetLastError());
}

// A file of the host or of this machine, read from its start; closed by the destructor.
class ReadFrom {
public:
    explicit ReadFrom(const WideString& path)
        : file_(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                            OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    ~ReadFrom() {
        if (*this) CloseHandle(file_);
    }
    ReadFrom(const ReadFrom&) = delete;
    ReadFrom& operator=(const ReadFrom&) = delete;

    explicit operator bool() const { return file_ != INVALID_HANDLE_VALUE; }

    // Reads the next bytes into `piece`, which is empty at the end. False if they cannot be read.
    bool Next(std::vector<BYTE>& piece) {
        DWORD read = 0;
        piece.resize(kPiece);
        const bool good = ReadFile(file_, piece.data(), kPiece, &read, nullptr);
        piece.resize(read);
        return good;
    }

private:
    static constexpr DWORD kPiece = 1 << 18;
    const HANDLE file_;
};

bool SameBytes(const WideString& one, const WideString& other) {
    ReadFrom a(one), b(other);
    if (!a || !b) return false;
    std::vector<BYTE> of_a, of_b;
    do {
        if (!a.Next(of_a) || !b.Next(of_b) || of_a != of_b) return false;
    } while (!of_a.empty());
    return true;
}

// True if an installed file is the same as this one of the product, or if neither exists.
bool SameFile(const Installation& product, const std::string& file, LPCWSTR installed) {
    const std::string path = ToUtf8(installed);
    if (file.empty() || path.empty()) return file.empty() && path.empty();
    return SameText(path.substr(path.find_last_of('\\') + 1), file) &&
           SameBytes(ToWide(product.folder() + "/" + file), installed);
}

bool SameFiles(const Installation& product, const std::vector<std::string>& files,
               LPCWSTR installed) {
    for (const std::string& file : files) {
        if (!installed || !*installed || !SameFile(product, file, installed)) return false;
        installed += std::char_traits<WCHAR>::length(installed) + 1;
    }
    return !installed || !*installed;
}

bool IsInstalled(const Installation& product, const Model& model, const DriverFiles& files) {
    DWORD count = 0;
    const std::vector<BYTE> buffer =
        Record("cannot list the drivers", [&](BYTE* out, DWORD size, DWORD* needed) {
            return EnumPrinterDriversW(nullptr, nullptr, 6, out, size, needed, &count);
        });
    const auto* drivers = reinterpret_cast<const DRIVER_INFO_6W*>(buffer.data());
    for (DWORD i = 0; i < count && !buffer.empty(); ++i) {
        const DRIVER_INFO_6W& driver = drivers[i];
        if (!SameText(ToUtf8(driver.pName), model.name)) continue;
        return ToUtf8(driver.pMonitorName) == files.monitor &&
               ToUtf8(driver.pDefaultDataType) == files.default_data_type &&
               ToUtf8(driver.pszMfgName) == model.manufacturer &&
               ToUtf8(driver.pszHardwareID) == model.hardware_id &&
               ToUtf8(driver.pszProvider) == product.provider() &&
               SameFile(product, files.driver, driver.pDriverPath) &&
               SameFile(product, files.config, driver.pConfigFile) &&
               SameFile(product, files.data, driver.pDataFile) &&
               SameFile(product, files.help, driver.pHelpFile) &&
               SameFiles(product, files.dependent, driver.pDependentFiles);
    }
    return false;
}

} // namespace

void InstallDriver(const Installation& product, const Model& model, const DriverFiles& files) {
    if (!IsInstalled(product, model, files)) AddDriver(product, model, files);
}
