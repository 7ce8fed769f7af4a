// One driver as it is in the registry: its files by name, without folders.
#pragma once

#include "spooler/print_server.h"

#include <optional>
#include <string>
#include <vector>

namespace win32host {

struct DriverRecord {
    std::u16string name;
    DWORD version = 3;
    std::u16string driver_file;
    std::u16string data_file;
    std::u16string config_file;
    std::u16string help_file;
    std::vector<std::u16string> dependent_files;
    std::u16string monitor;
    std::u16string datatype;
    std::vector<std::u16string> previous_names;
    FILETIME date = {};
    DWORDLONG driver_version = 0;
    std::u16string manufacturer;
    std::u16string oem_url;
    std::u16string hardware_id;
    std::u16string provider;

    // All files, each of them once.
    std::vector<std::u16string> Files() const;
};

// True for a valid driver name: not empty and without a backslash.
bool IsDriverName(const std::u16string& name);

// The driver's current record, or nothing if there is no such driver.
std::optional<DriverRecord> ReadDriver(const PrintServer& server, const std::u16string& name);
// Only its configuration file; empty if there is no such driver.
std::u16string ReadConfigFile(const PrintServer& server, const std::u16string& name);
// All drivers, in the order of their installation.
std::vector<DriverRecord> ReadDrivers(const PrintServer& server);

// Writes the record over an existing one. The driver file is written last: a driver without one
// does not exist.
LSTATUS WriteDriver(const PrintServer& server, const DriverRecord& record);
LSTATUS EraseDriver(const PrintServer& server, const std::u16string& name);

} // namespace win32host
