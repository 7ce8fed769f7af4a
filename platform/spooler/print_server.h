// A machine with printers: this one, or one that servers/NAME leads to.
#pragma once

#include "spooler/registry_key.h"

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace win32host {

extern const char16_t kEnvironment[]; // "Windows NT x86"

// True if a caller's environment is the one that this host has. Null and empty mean that one.
bool IsKnownEnvironment(LPCWSTR environment);

class PrintServer {
public:
    // The machine with this name: an empty name or this computer's name is this machine, "\\SERVER"
    // (or "SERVER") another. Null with ERROR_RPC_SERVER_UNAVAILABLE if it cannot be reached.
    static std::shared_ptr<PrintServer> Named(std::u16string_view name);

    bool IsLocal() const { return name_.empty(); }
    // "\\SERVER"; empty for this machine.
    const std::u16string& Name() const { return name_; }
    // The full name of one of its printers.
    std::u16string FullName(std::u16string_view printer) const;

    HKEY Machine() const;
    // The machine's root folder (POSIX path).
    const std::string& RootFolder() const { return root_; }
    // The folder of the jobs' files (POSIX path), which need not exist.
    std::string SpoolFolder() const { return root_ + "/spool"; }
    // The POSIX path of a path on that machine, whose drive C is the one in its root folder.
    std::optional<std::string> HostPath(const std::u16string& path) const;
    // The folders for drivers before and after installation, as this machine names them, without a
    // separator at the end.
    std::u16string DriverFolder() const;
    std::u16string InstalledFolder() const;

    // Open the key that holds all printers, all drivers, all ports.
    LSTATUS OpenPrinters(RegistryKey& key) const;
    LSTATUS CreatePrinters(RegistryKey& key) const;
    LSTATUS OpenDrivers(RegistryKey& key) const;
    LSTATUS CreateDrivers(RegistryKey& key) const;
    LSTATUS OpenPorts(RegistryKey& key) const;
    LSTATUS CreatePorts(RegistryKey& key) const;
    // Opens the key that holds the ports of one port monitor.
    LSTATUS OpenMonitorPorts(const std::u16string& monitor, RegistryKey& key) const;
    LSTATUS OpenPrinter(const std::u16string& printer, RegistryKey& key) const;
    LSTATUS OpenDriver(const std::u16string& driver, RegistryKey& key) const;

private:
    std::u16string name_;
    std::string root_;
    RegistryKey machine_; // for another machine only
};

// The two parts of "\\SERVER\NAME". The server is empty for a printer of this machine, and the
// printer is empty for the name of a server.
struct PrinterName {
    std::u16string server; // with its two backslashes
    std::u16string printer;
};
PrinterName SplitPrinterName(std::u16string_view name);

// Keeps all other writers of the machine's printers, drivers and ports waiting, in this process and
// in others. Held while the registry is changed, never while a driver is called.
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
