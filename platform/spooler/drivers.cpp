// Adding, asking and deleting drivers.
#include "spooler/driver_files.h"
#include "spooler/level_writer.h"
#include "spooler/opened_printer.h"
#include "spooler/question.h"

#include "files/paths.h"
#include "host/text.h"

#include <algorithm>
#include <type_traits>

using namespace win32host;

namespace {

bool IsDriverLevel(DWORD level) {
    return level == 2 || level == 3 || level == 6;
}

// The record as one of the DRIVER_INFO_ structures, each of which starts with the next smaller one.
template <class Info>
void Put(LevelWriter& writer, size_t index, const DriverRecord& record,
         const std::u16string& folder) {
    constexpr bool has_files = !std::is_same_v<Info, DRIVER_INFO_2W>;
    constexpr bool has_maker = std::is_same_v<Info, DRIVER_INFO_6W>;
    const auto path = [&](const std::u16string& file) {
        return file.empty() ? file : folder + u'\\' + file;
    };
    Info info = {};
    info.cVersion = record.version;
    writer.Text(info.pName, record.name);
    writer.Text(info.pEnvironment, kEnvironment);
    writer.Text(info.pDriverPath, path(record.driver_file));
    writer.Text(info.pDataFile, path(record.data_file));
    writer.Text(info.pConfigFile, path(record.config_file));
    if constexpr (has_files) {
        std::vector<std::u16string> dependent_files;
        for (const std::u16string& file : record.dependent_files)
            dependent_files.push_back(path(file));
        writer.Text(info.pHelpFile, path(record.help_file));
        writer.Texts(info.pDependentFiles, dependent_files);
        writer.Text(info.pMonitorName, record.monitor);
        writer.Text(info.pDefaultDataType, record.datatype);
    }
    if constexpr (has_maker) {
        writer.Texts(info.pszzPreviousNames, record.previous_names);
        info.ftDriverDate = record.date;
        info.dwlDriverVersion = record.driver_version;
        writer.Text(info.pszMfgName, record.manufacturer);
        writer.Text(info.pszOEMUrl, record.oem_url);
        writer.Text(info.pszHardwareID, record.hardware_id);
        writer.Text(info.pszProvider, record.provider);
    }
    writer.Put(index, info);
}

template <class Info>
void PutAll(LevelWriter& writer, const std::vector<const DriverRecord*>& records,
            const std::u16string& folder) {
    writer.Structures<Info>(records.size());
    for (size_t i = 0; i < records.size(); ++i) Put<Info>(writer, i, *records[i], folder);
}

BOOL Fill(LPBYTE buffer, DWORD size, LPDWORD needed, DWORD level,
          const std::vector<const DriverRecord*>& records, const std::u16string& folder) {
    return FillBuffer(buffer, size, needed, [&](LevelWriter& writer) {
        if (level == 2) PutAll<DRIVER_INFO_2W>(writer, records, folder);
        if (level == 3) PutAll<DRIVER_INFO_3W>(writer, records, folder);
        if (level == 6) PutAll<DRIVER_INFO_6W>(writer, records, folder);
    });
}

std::vector<std::u16string> CopyList(LPCWSTR texts) {
    std::vector<std::u16string> list;
    for (; texts && *texts; texts += list.back().size() + 1) list.emplace_back(texts);
    return list;
}

// The files as the caller names them, and the record with only their names.
struct NewDriver {
    DriverRecord record;
    std::vector<std::u16string> files;
};

NewDriver NewDriverOf(DWORD level, const BYTE* info) {
    // Level 3 is the beginning of level 6.
    const auto& wanted = *reinterpret_cast<const DRIVER_INFO_3W*>(info);
    NewDriver driver;
    const auto take = [&](const std::u16string& file) {
        if (!file.empty()) driver.files.push_back(file);
        return std::u16string(FileNameOf(file));
    };
    DriverRecord& record = driver.record;
    record.name = CopyOf(wanted.pName);
    record.version = wanted.cVersion;
    record.driver_file = take(CopyOf(wanted.pDriverPath));
    record.data_file = take(CopyOf(wanted.pDataFile));
    record.config_file = take(CopyOf(wanted.pConfigFile));
    record.help_file = take(CopyOf(wanted.pHelpFile));
    for (const std::u16string& file : CopyList(wanted.pDependentFiles))
        record.dependent_files.push_back(take(file));
    record.monitor = CopyOf(wanted.pMonitorName);
    record.datatype = CopyOf(wanted.pDefaultDataType);
    if (level == 6) {
        const auto& whole = *reinterpret_cast<const DRIVER_INFO_6W*>(info);
        record.previous_names = CopyList(whole.pszzPreviousNames);
        record.date = whole.ftDriverDate;
        record.driver_version = whole.dwlDriverVersion;
        record.manufacturer = CopyOf(whole.pszMfgName);
        record.oem_url = CopyOf(whole.pszOEMUrl);
        record.hardware_id = CopyOf(whole.pszHardwareID);
        record.provider = CopyOf(whole.pszProvider);
    }
    return driver;
}

// True if exactly one way to treat existing files is given.
bool IsCopyMode(DWORD flags) {
    const DWORD mode = flags & ~DWORD{APD_COPY_FROM_DIRECTORY};
    return mode == APD_STRICT_UPGRADE || mode == APD_STRICT_DOWNGRADE ||
           mode == APD_COPY_ALL_FILES || mode == APD_COPY_NEW_FILES;
}

constexpr DWORD kUserModeVersion = 3;

// Tells the driver of every printer that had its previous version. A printer stays as it is if the
// driver fails.
void UpgradePrinters(const PrintServer& server, const std::u16string& driver) {
    std::shared_ptr<const DriverLibrary> library;
    for (const PrinterRecord& printer : ReadPrinters(server, false)) {
        if (!SameName(printer.driver, driver)) continue;
        if (!library) library = LoadDriver(driver);
        if (!library) return;
        library->UpgradePrinter(printer.name);
    }
}

} // namespace

extern "C" BOOL WINAPI AddPrinterDriverExW(LPWSTR server_name, DWORD level, PBYTE info,
                                           DWORD flags) {
    return Guarded(FALSE, [&] {
        const auto server = PrintServer::Named(CopyOf(server_name));
        if (!server) return FALSE;
        if (level != 3 && level != 6) return Fail(ERROR_INVALID_LEVEL);
        if (!info || !IsCopyMode(flags)) return Fail(ERROR_INVALID_PARAMETER);
        if (!IsKnownEnvironment(reinterpret_cast<const DRIVER_INFO_3W*>(info)->pEnvironment))
            return Fail(ERROR_INVALID_ENVIRONMENT);
        if (!MayAdminister()) return Fail(ERROR_ACCESS_DENIED);
        const auto [record, files] = NewDriverOf(level, info);
        if (!IsDriverName(record.name) || record.driver_file.empty() || record.data_file.empty() ||
            record.config_file.empty() || record.version != kUserModeVersion)
            return Fail(ERROR_INVALID_PARAMETER);
        {
            SpoolerLock lock(*server);
            if (const DWORD code = InstallDriverFiles(*server, files, flags)) return Fail(code);
            if (const LSTATUS status = WriteDriver(*server, record); status != ERROR_SUCCESS)
                return Fail(static_cast<DWORD>(status));
            if (server->IsLocal()) DropDriver(record.name);
        }
        if (server->IsLocal()) UpgradePrinters(*server, record.name);
        return TRUE;
    });
}

extern "C" BOOL WINAPI AddPrinterDriverW(LPWSTR server, DWORD level, LPBYTE info) {
    return AddPrinterDriverExW(server, level, info, APD_COPY_NEW_FILES);
}

extern "C" BOOL WINAPI DeletePrinterDriverW(LPWSTR server_name, LPWSTR environment, LPWSTR name) {
    return Guarded(FALSE, [&] {
        const auto server = PrintServer::Named(CopyOf(server_name));
        if (!server) return FALSE;
        if (!IsKnownEnvironment(environment)) return Fail(ERROR_INVALID_ENVIRONMENT);
        if (!MayAdminister()) return Fail(ERROR_ACCESS_DENIED);
        const std::u16string driver = CopyOf(name);
        if (server->IsLocal()) DropDriver(driver);
        SpoolerLock lock(*server);
        if (!ReadDriver(*server, driver)) return Fail(ERROR_UNKNOWN_PRINTER_DRIVER);
        const auto printers = ReadPrinters(*server, false);
        if (std::any_of(printers.begin(), printers.end(), [&](const PrinterRecord& printer) {
                return SameName(printer.driver, driver);
            }))
            return Fail(ERROR_PRINTER_DRIVER_IN_USE);
        const LSTATUS status = EraseDriver(*server, driver);
        return status == ERROR_SUCCESS ? TRUE : Fail(static_cast<DWORD>(status));
    });
}

extern "C" BOOL WINAPI EnumPrinterDriversW(LPWSTR server_name, LPWSTR environment, DWORD level,
                                           LPBYTE buffer, DWORD size, LPDWORD needed,
                                           LPDWORD returned) {
    return Guarded(FALSE, [&] {
        if (!needed || !returned) return Fail(ERROR_INVALID_PARAMETER);
        *needed = *returned = 0;
        const auto server = PrintServer::Named(CopyOf(server_name));
        if (!server) return FALSE;
        if (!IsKnownEnvironment(environment)) return Fail(ERROR_INVALID_ENVIRONMENT);
        if (!IsDriverLevel(level)) return Fail(ERROR_INVALID_LEVEL);
        const auto drivers = ReadDrivers(*server);
        std::vector<const DriverRecord*> records;
        for (const DriverRecord& driver : drivers) records.push_back(&driver);
        const BOOL good = Fill(buffer, size, needed, level, records, server->InstalledFolder());
        if (good) *returned = static_cast<DWORD>(records.size());
        return good;
    });
}

extern "C" BOOL WINAPI GetPrinterDriverW(HANDLE handle, LPWSTR environment, DWORD level,
                                         LPBYTE buffer, DWORD size, LPDWORD needed) {
    return AnswerQuestion({"GetPrinterDriverW", level}, buffer, size, [&] {
        const auto printer = FindPrinter(handle);
        if (!printer) return FALSE;
        if (!needed) return Fail(ERROR_INVALID_PARAMETER);
        if (!IsKnownEnvironment(environment)) return Fail(ERROR_INVALID_ENVIRONMENT);
        if (!IsDriverLevel(level)) return Fail(ERROR_INVALID_LEVEL);
        const auto record = printer->Driver();
        if (!record) return FALSE;
        return Fill(buffer, size, needed, level, {&*record},
                    PrintServer::Named({})->InstalledFolder());
    });
}

extern "C" BOOL WINAPI GetPrinterDriverA(HANDLE handle, LPSTR environment, DWORD level,
                                         LPBYTE buffer, DWORD size, LPDWORD needed) {
    return AnswerQuestion({"GetPrinterDriverA", level}, buffer, size, [&] {
        const auto printer = FindPrinter(handle);
        if (!printer) return FALSE;
        if (!needed) return Fail(ERROR_INVALID_PARAMETER);
        if (environment && !IsKnownEnvironment(FromAnsi(environment).c_str()))
            return Fail(ERROR_INVALID_ENVIRONMENT);
        if (level != 3) return Fail(ERROR_INVALID_LEVEL);
        const auto record = printer->Driver();
        if (!record) return FALSE;
        return FillBuffer(buffer, size, needed, [&](LevelWriter& writer) {
            PutAll<DRIVER_INFO_3A>(writer, {&*record}, PrintServer::Named({})->InstalledFolder());
        });
    });
}

extern "C" BOOL WINAPI GetPrinterDriverDirectoryW(LPWSTR server_name, LPWSTR environment,
                                                  DWORD level, LPBYTE directory, DWORD size,
                                                  LPDWORD needed) {
    return Guarded(FALSE, [&] {
        if (!needed) return Fail(ERROR_INVALID_PARAMETER);
        const auto server = PrintServer::Named(CopyOf(server_name));
        if (!server) return FALSE;
        if (!IsKnownEnvironment(environment)) return Fail(ERROR_INVALID_ENVIRONMENT);
        if (level != 1) return Fail(ERROR_INVALID_LEVEL);
        return FillBuffer(directory, size, needed, [&](LevelWriter& writer) {
            LPWSTR unused;
            writer.Text(unused, server->DriverFolder());
        });
    });
}
