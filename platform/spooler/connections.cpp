#include "spooler/connections.h"

#include "spooler/driver_files.h"
#include "spooler/opened_printer.h"

#include <winddiui.h>

#include <algorithm>

namespace win32host {
namespace {

const std::u16string kConnections = u"Printers\\Connections";

// "\\SERVER\NAME" as one key: ",,SERVER,NAME". A server's name has no comma.
std::u16string ConnectionKey(std::u16string full_name) {
    std::replace(full_name.begin(), full_name.end(), u'\\', u',');
    return full_name;
}

// The full name that a key stands for; empty if it is not a connection's.
std::u16string NameOf(std::u16string key) {
    if (!key.starts_with(u",,")) return {};
    const size_t end = key.find(u',', 2);
    if (end == std::u16string::npos) return {};
    key[0] = key[1] = key[end] = u'\\';
    return key;
}

// Installs the printer's driver on this machine too, with its files.
DWORD BringDriver(const PrintServer& server, const std::u16string& name) {
    const auto local = PrintServer::Named({});
    if (ReadDriver(*local, name)) return ERROR_SUCCESS;
    const auto driver = ReadDriver(server, name);
    if (!driver) return ERROR_UNKNOWN_PRINTER_DRIVER;
    std::vector<std::u16string> files;
    for (const std::u16string& file : driver->Files())
        files.push_back(server.InstalledFolder() + u'\\' + file);
    SpoolerLock lock(*local);
    if (const DWORD code = InstallDriverFiles(*local, files, APD_COPY_NEW_FILES)) return code;
    return static_cast<DWORD>(WriteDriver(*local, *driver));
}

} // namespace

std::vector<std::u16string> ConnectionNames() {
    std::vector<std::u16string> names;
    RegistryKey key;
    if (key.Open(HKEY_CURRENT_USER, kConnections) != ERROR_SUCCESS) return names;
    for (const std::u16string& subkey : key.SubkeyNames()) {
        if (std::u16string name = NameOf(subkey); !name.empty()) names.push_back(std::move(name));
    }
    return names;
}

} // namespace win32host

using namespace win32host;

extern "C" BOOL WINAPI AddPrinterConnectionW(LPWSTR name) {
    return Guarded(FALSE, [&] {
        const PrinterName parts = SplitPrinterName(name ? name : u"");
        if (parts.server.empty() || parts.printer.empty()) return Fail(ERROR_INVALID_PRINTER_NAME);
        const auto server = PrintServer::Named(parts.server);
        if (!server) return FALSE;
        const auto printer = ReadPrinter(*server, parts.printer);
        if (!printer || server->IsLocal()) return Fail(ERROR_INVALID_PRINTER_NAME);
        const std::u16string full_name = server->FullName(printer->name);

        RegistryKey connections, key;
        LSTATUS status = connections.Create(HKEY_CURRENT_USER, kConnections);
        if (status != ERROR_SUCCESS) return Fail(static_cast<DWORD>(status));
        if (key.Open(connections.get(), ConnectionKey(full_name)) == ERROR_SUCCESS) return TRUE;
        if (const DWORD code = BringDriver(*server, printer->driver)) return Fail(code);
        status = key.Create(connections.get(), ConnectionKey(full_name));
        if (status == ERROR_SUCCESS) status = key.SetText(u"Server", server->Name());
        // This lets the driver be told of the end even if the server no longer exists.
        if (status == ERROR_SUCCESS) status = key.SetText(u"Printer Driver", printer->driver);
        if (status != ERROR_SUCCESS) return Fail(static_cast<DWORD>(status));
        if (const auto library = LoadDriver(printer->driver))
            library->RaisePrinterEvent(full_name, PRINTER_EVENT_ADD_CONNECTION, 0, 0);
        return TRUE;
    });
}

extern "C" BOOL WINAPI DeletePrinterConnectionW(LPWSTR name) {
    return Guarded(FALSE, [&] {
        const std::u16string full_name = name ? name : u"";
        const PrinterName parts = SplitPrinterName(full_name);
        RegistryKey connections, key;
        if (parts.server.empty() || parts.printer.empty() ||
            connections.Open(HKEY_CURRENT_USER, kConnections, KEY_ALL_ACCESS) != ERROR_SUCCESS ||
            key.Open(connections.get(), ConnectionKey(full_name)) != ERROR_SUCCESS)
            return Fail(ERROR_INVALID_PRINTER_NAME);
        if (const auto library = LoadDriver(key.Text(u"Printer Driver")))
            library->RaisePrinterEvent(full_name, PRINTER_EVENT_DELETE_CONNECTION, 0, 0);
        key.Close();
        const LSTATUS status = connections.DeleteTree(ConnectionKey(full_name));
        return status == ERROR_SUCCESS ? TRUE : Fail(static_cast<DWORD>(status));
    });
}
