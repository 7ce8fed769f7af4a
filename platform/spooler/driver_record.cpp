#include "spooler/driver_record.h"

#include "host/text.h"
#include "registry/transactions.h"

#include <algorithm>
#include <cstring>

namespace win32host {
namespace {

constexpr char16_t kDriverFile[] = u"Driver";
constexpr char16_t kConfigFile[] = u"Configuration File";
constexpr char16_t kDependentFiles[] = u"Dependent Files";
constexpr char16_t kPreviousNames[] = u"Previous Names";
constexpr char16_t kVersion[] = u"Version";
constexpr char16_t kDriverDate[] = u"DriverDate";
constexpr char16_t kDriverVersion[] = u"DriverVersion";

struct DriverText {
    const char16_t* name;
    std::u16string DriverRecord::*member;
};
constexpr DriverText kDriverTexts[] = {
    {u"Data File", &DriverRecord::data_file}, {kConfigFile, &DriverRecord::config_file},
    {u"Help File", &DriverRecord::help_file}, {u"Monitor", &DriverRecord::monitor},
    {u"Datatype", &DriverRecord::datatype},   {u"Manufacturer", &DriverRecord::manufacturer},
    {u"OEM URL", &DriverRecord::oem_url},     {u"HardwareID", &DriverRecord::hardware_id},
    {u"Provider", &DriverRecord::provider},
};

template <class T>
void ReadBytes(const RegistryKey& key, const char16_t* name, T& target) {
    const std::vector<BYTE> bytes = key.Bytes(name);
    if (bytes.size() == sizeof target) std::memcpy(&target, bytes.data(), sizeof target);
}

std::optional<DriverRecord> ReadKey(const RegistryKey& key, const std::u16string& name) {
    DriverRecord record;
    record.name = name;
    record.driver_file = key.Text(kDriverFile);
    if (record.driver_file.empty()) return std::nullopt;
    for (const DriverText& text : kDriverTexts) record.*text.member = key.Text(text.name);
    record.version = key.Number(kVersion, record.version);
    record.dependent_files = key.Texts(kDependentFiles);
    record.previous_names = key.Texts(kPreviousNames);
    ReadBytes(key, kDriverDate, record.date);
    ReadBytes(key, kDriverVersion, record.driver_version);
    if (key.HasFailed()) return std::nullopt; // half a record does not count
    return record;
}

} // namespace

bool IsDriverName(const std::u16string& name) {
    return !name.empty() && name.find(u'\\') == std::u16string::npos;
}

std::vector<std::u16string> DriverRecord::Files() const {
    std::vector<std::u16string> files;
    const auto add = [&](const std::u16string& file) {
        const auto same = [&](const std::u16string& other) { return SameName(other, file); };
        if (!file.empty() && std::none_of(files.begin(), files.end(), same)) files.push_back(file);
    };
    add(driver_file);
    add(data_file);
    add(config_file);
    add(help_file);
    for (const std::u16string& file : dependent_files) add(file);
    return files;
}

std::optional<DriverRecord> ReadDriver(const PrintServer& server, const std::u16string& name) {
    RegistryKey key;
    if (!IsDriverName(name) || server.OpenDriver(name, key) != ERROR_SUCCESS) return std::nullopt;
    return ReadKey(key, name);
}

std::u16string ReadConfigFile(const PrintServer& server, const std::u16string& name) {
    RegistryKey key;
    if (!IsDriverName(name) || server.OpenDriver(name, key) != ERROR_SUCCESS ||
        key.Text(kDriverFile).empty())
        return {};
    return key.Text(kConfigFile);
}

std::vector<DriverRecord> ReadDrivers(const PrintServer& server) {
    std::vector<DriverRecord> records;
    RegistryKey drivers;
    if (server.OpenDrivers(drivers) != ERROR_SUCCESS) return records;
    for (const std::u16string& name : drivers.SubkeyNames()) {
        RegistryKey key;
        if (key.Open(drivers.get(), name) != ERROR_SUCCESS) continue;
        if (auto record = ReadKey(key, name)) records.push_back(std::move(*record));
    }
    return records;
}

LSTATUS WriteDriver(const PrintServer& server, const DriverRecord& record) {
    RegistryKey drivers, key;
    if (!IsDriverName(record.name)) return ERROR_INVALID_PARAMETER;
    LSTATUS status = server.CreateDrivers(drivers);
    if (status == ERROR_SUCCESS) status = key.Create(drivers.get(), record.name);
    const auto then = [&](LSTATUS next) {
        if (status == ERROR_SUCCESS) status = next;
    };
    if (status != ERROR_SUCCESS) return status;
    registry::KeyTransaction transaction(key.get());
    for (const DriverText& text : kDriverTexts) then(key.SetText(text.name, record.*text.member));
    then(key.SetTexts(kDependentFiles, record.dependent_files));
    then(key.SetTexts(kPreviousNames, record.previous_names));
    then(key.SetNumber(kVersion, record.version));
    then(key.SetBytes(kDriverDate, &record.date, sizeof record.date));
    then(key.SetBytes(kDriverVersion, &record.driver_version, sizeof record.driver_version));
    if (status == ERROR_SUCCESS) status = key.SetText(kDriverFile, record.driver_file);
    return transaction.Commit(status);
}

LSTATUS EraseDriver(const PrintServer& server, const std::u16string& name) {
    RegistryKey drivers;
    if (!IsDriverName(name)) return ERROR_UNKNOWN_PRINTER_DRIVER;
    if (server.OpenDrivers(drivers) != ERROR_SUCCESS) return ERROR_UNKNOWN_PRINTER_DRIVER;
    const LSTATUS status = drivers.DeleteTree(name);
    return status == ERROR_FILE_NOT_FOUND ? ERROR_UNKNOWN_PRINTER_DRIVER : status;
}

} // namespace win32host
