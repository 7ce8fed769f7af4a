#include "spooler/print_server.h"

#include "files/paths.h"
#include "host/root.h"
#include "host/text.h"
#include "security/accounts.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace win32host {

const char16_t kEnvironment[] = u"Windows NT x86";

namespace {

const std::u16string kPrinters = u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers";
const std::u16string kDrivers =
    std::u16string(u"SYSTEM\\CurrentControlSet\\Control\\Print\\Environments\\") + kEnvironment +
    u"\\Drivers\\Version-3";
const std::u16string kMonitors = u"SYSTEM\\CurrentControlSet\\Control\\Print\\Monitors\\";
const std::u16string kPorts = u"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Ports";

} // namespace

bool IsKnownEnvironment(LPCWSTR environment) {
    return !environment || !*environment || SameName(environment, kEnvironment);
}

std::shared_ptr<PrintServer> PrintServer::Named(std::u16string_view name) {
    if (name.starts_with(u"\\\\")) name.remove_prefix(2);
    auto server = std::make_shared<PrintServer>();
    if (name.empty() || SameName(name, ComputerName())) {
        server->root_ = Root();
        return server;
    }
    server->name_ = u"\\\\" + std::u16string(name);
    HKEY machine = nullptr;
    const auto root = win32host::HostPath(Utf16(Root() + "/servers/") + std::u16string(name));
    if (!root ||
        RegConnectRegistryW(server->name_.c_str(), HKEY_LOCAL_MACHINE, &machine) != ERROR_SUCCESS) {
        SetLastError(ERROR_RPC_SERVER_UNAVAILABLE);
        return nullptr;
    }
    server->root_ = *root;
    server->machine_ = RegistryKey(machine);
    return server;
}

std::u16string PrintServer::FullName(std::u16string_view printer) const {
    return IsLocal() ? std::u16string(printer) : name_ + u'\\' + std::u16string(printer);
}

HKEY PrintServer::Machine() const {
    return IsLocal() ? HKEY_LOCAL_MACHINE : machine_.get();
}

std::optional<std::string> PrintServer::HostPath(const std::u16string& path) const {
    if (IsLocal() || path.size() < 2 || path[1] != u':' || UpperOf(path[0]) != u'C')
        return win32host::HostPath(path);
    return win32host::HostPath(WindowsPath(root_ + "/drive_c") + path.substr(2));
}

std::u16string PrintServer::DriverFolder() const {
    std::u16string folder = kDriversFolder;
    // On another machine's drive C.
    if (!IsLocal()) folder = WindowsPath(root_ + "/drive_c") + folder.substr(2);
    return folder;
}

std::u16string PrintServer::InstalledFolder() const {
    return DriverFolder() + u"\\3";
}

LSTATUS PrintServer::OpenPrinters(RegistryKey& key) const {
    return key.Open(Machine(), kPrinters, KEY_ALL_ACCESS);
}

LSTATUS PrintServer::CreatePrinters(RegistryKey& key) const {
    return key.Create(Machine(), kPrinters);
}

LSTATUS PrintServer::OpenDrivers(RegistryKey& key) const {
    return key.Open(Machine(), kDrivers, KEY_ALL_ACCESS);
}

LSTATUS PrintServer::CreateDrivers(RegistryKey& key) const {
    return key.Create(Machine(), kDrivers);
}

LSTATUS PrintServer::OpenPorts(RegistryKey& key) const {
    return key.Open(Machine(), kPorts);
}

LSTATUS PrintServer::CreatePorts(RegistryKey& key) const {
    return key.Create(Machine(), kPorts);
}

LSTATUS PrintServer::OpenMonitorPorts(const std::u16string& monitor, RegistryKey& key) const {
    return key.Open(Machine(), kMonitors + monitor + u"\\Ports");
}

LSTATUS PrintServer::OpenPrinter(const std::u16string& printer, RegistryKey& key) const {
    return key.Open(Machine(), kPrinters + u'\\' + printer, KEY_ALL_ACCESS);
}

LSTATUS PrintServer::OpenDriver(const std::u16string& driver, RegistryKey& key) const {
    return key.Open(Machine(), kDrivers + u'\\' + driver, KEY_ALL_ACCESS);
}

PrinterName SplitPrinterName(std::u16string_view name) {
    if (!name.starts_with(u"\\\\")) return {{}, std::u16string(name)};
    const size_t end = name.find(u'\\', 2);
    if (end == std::u16string_view::npos) return {std::u16string(name), {}};
    return {std::u16string(name.substr(0, end)), std::u16string(name.substr(end + 1))};
}

SpoolerLock::SpoolerLock(const PrintServer& server)
    : file_(open((server.RootFolder() + "/spooler.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC,
                 0666)) {
    while (file_ >= 0 && flock(file_, LOCK_EX) != 0 && errno == EINTR) {
    }
}

SpoolerLock::~SpoolerLock() {
    if (file_ >= 0) close(file_);
}

} // namespace win32host
