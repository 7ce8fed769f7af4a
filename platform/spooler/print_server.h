// A machine whose printers are asked about: this one, or one that servers/NAME leads to.
#pragma once

#include "spooler/registry_key.h"

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace win32host {

extern const char16_t kEnvironment[]; // "Windows NT x86"

// Whether a caller's environment is the one that this host has; null and empty mean it.
bool IsKnownEnvironment(LPCWSTR environment);

class PrintServer {
public:
    // The machine of a name: null, empty or this computer's name is this machine, "\\SERVER" (or
    // "SERVER") another. Null with ERROR_RPC_SERVER_UNAVAILABLE when it cannot be reached.
    static std::shared_ptr<PrintServer> Named(std::u16string_view name);

    bool IsLocal() const { return name_.empty(); }
    // "\\SERVER"; empty for this machine.
    const std::u16string& Name() const { return name_; }
    // The full name of one of its printers.
    std::u16string FullName(std::u16string_view printer) const;

    HKEY Machine() const;
    // The machine's root folder (POSIX path).
    const std::string& RootFolder() const { return root_; }
    // Where the jobs' files are (POSIX path); need not exist.
    std::string SpoolFolder() const { return root_ + "/spool"; }
    // The POSIX path of a path of that machine: its drive C is the one of its root folder.
    std::optional<std::string> HostPath(const std::u16string& path) const;
    // Where drivers are put and where they lie after installation, as this machine names the
    // folders; without a separator at the end.
    std::u16string DriverFolder() const;
    std::u16string InstalledFolder() const;

    // The key that holds all printers, all drivers, all ports.
    LSTATUS OpenPrinters(RegistryKey& key) const;
    LSTATUS CreatePrinters(RegistryKey& key) const;
    LSTATUS OpenDrivers(RegistryKey& key) const;
    LSTATUS CreateDrivers(RegistryKey& key) const;
    LSTATUS OpenPorts(RegistryKey& key) const;
    LSTATUS CreatePorts(RegistryKey& key) const;
    // The key that holds the ports of one port monitor.
    LSTATUS OpenMonitorPorts(const std::u16string& monitor, RegistryKey& key) const;
    LSTATUS OpenPrinter(const std::u16string& printer, RegistryKey& key) const;
    LSTATUS OpenDriver(const std::u16string& driver, RegistryKey& key) const;

private:
    std::u16string name_;
    std::string root_;
    RegistryKey machine_; // of another machine only
};

// "\\SERVER\NAME" taken apart. The server is empty for a printer of this machine, the printer for
// a name that is a server's.
struct PrinterName {
    std::u16string server; // with its two backslashes
    std::u16string printer;
};
PrinterName SplitPrinterName(std::u16string_view name);

// Keeps every other writer of the machine's printers, drivers and ports waiting, of this process
// and of others. Held while the registry is changed, never while a driver is called.
class SpoolerLock {
public:
    explicit SpoolerLock(const PrintServer& server);
    ~SpoolerLock();
    SpoolerLock(const SpoolerLock&) = delete;
    SpoolerLock& operator=(const SpoolerLock&) = delete;

private:
    int file_;
};

} // namespace win32host
