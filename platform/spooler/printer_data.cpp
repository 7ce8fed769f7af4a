// Printer data: named values that belong to a printer.
#include "files/paths.h"
#include "host/text.h"
#include "spooler/ansi.h"
#include "spooler/language_monitor.h"
#include "spooler/opened_printer.h"

#include <algorithm>
#include <cstring>

using namespace win32host;

namespace {

const std::u16string kData = u"PrinterDriverData";

bool IsText(DWORD type) {
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

struct Data {
    DWORD type = REG_NONE;
    std::vector<BYTE> bytes;
};

// Runs `body` for functions that answer an error code.
template <class Body>
DWORD GuardedCode(const Body& body) {
    return Guarded(DWORD{ERROR_NOT_ENOUGH_MEMORY}, body);
}

// Opens or makes a key of the printer's; the name is the data key if no other is given. Answers an
// error code.
DWORD OpenData(const OpenedPrinter& printer, bool create, RegistryKey& key,
               const std::u16string& name = kData) {
    RegistryKey printer_key;
    if (printer.Server().OpenPrinter(printer.Printer(), printer_key) != ERROR_SUCCESS)
        return ERROR_PRINTER_DELETED;
    const LSTATUS status = create ? key.Create(printer_key.get(), name)
                                  : key.Open(printer_key.get(), name, KEY_ALL_ACCESS);
    return static_cast<DWORD>(status);
}

// Opens a key of the printer of a handle, if the handle may change printer data.
DWORD OpenDataToChange(HANDLE handle, RegistryKey& key, const std::u16string& name = kData) {
    const auto printer = FindPrinter(handle);
    if (!printer) return ERROR_INVALID_HANDLE;
    if (!printer->Has(PRINTER_ACCESS_ADMINISTER)) return ERROR_ACCESS_DENIED;
    return OpenData(*printer, true, key, name);
}

// The only data that a print server has.
DWORD ReadOfServer(const PrintServer& server, const std::u16string& name, Data& data) {
    if (!SameName(name, SPLREG_DEFAULT_SPOOL_DIRECTORY)) return ERROR_INVALID_HANDLE;
    const std::u16string folder = WindowsPath(server.SpoolFolder());
    data.type = REG_SZ;
    data.bytes.resize((folder.size() + 1) * sizeof(WCHAR));
    std::memcpy(data.bytes.data(), folder.c_str(), data.bytes.size());
    return ERROR_SUCCESS;
}

// Reads a value of a printer's key.
DWORD ReadValue(const OpenedPrinter& printer, const std::u16string& key_name,
                const std::u16string& name, Data& data) {
    RegistryKey key;
    if (const DWORD code = OpenData(printer, false, key, key_name)) return code;
    data.bytes.resize(256);
    for (;;) {
        DWORD size = static_cast<DWORD>(data.bytes.size());
        const LSTATUS status = RegQueryValueExW(key.get(), name.c_str(), nullptr, &data.type,
                                                data.bytes.data(), &size);
        if (status == ERROR_MORE_DATA) {
            data.bytes.resize(std::max<size_t>(size, data.bytes.size() + 1));
            continue;
        }
        data.bytes.resize(status == ERROR_SUCCESS ? size : 0);
        return static_cast<DWORD>(status);
    }
}

DWORD Read(HANDLE handle, const std::u16string& name, Data& data) {
    const auto printer = Find<OpenedPrinter>(handle);
    if (!printer) return ERROR_INVALID_HANDLE;
    if (printer->Printer().empty()) return ReadOfServer(printer->Server(), name, data);
    const DWORD code = ReadValue(*printer, kData, name, data);
    if (code != ERROR_FILE_NOT_FOUND) return code;
    // The driver's monitor may know what nobody has stored.
    const auto monitor = LanguageMonitor::Of(printer->Server(), printer->Printer());
    return monitor ? monitor->PrinterData(name, data.type, data.bytes) : code;
}

DWORD Answer(const Data& found, LPDWORD type, LPBYTE data, DWORD size, LPDWORD needed) {
    if (type) *type = found.type;
    *needed = static_cast<DWORD>(found.bytes.size());
    if (found.bytes.size() > size) return ERROR_MORE_DATA;
    if (found.bytes.empty()) return ERROR_SUCCESS;
    if (!data) return ERROR_INVALID_PARAMETER;
    std::memcpy(data, found.bytes.data(), found.bytes.size());
    return ERROR_SUCCESS;
}

DWORD Write(HANDLE handle, const std::u16string& name, DWORD type, const BYTE* data, size_t size,
            const std::u16string& key_name = kData) {
    RegistryKey key;
    if (const DWORD code = OpenDataToChange(handle, key, key_name)) return code;
    return static_cast<DWORD>(
        RegSetValueExW(key.get(), name.c_str(), 0, type, data, static_cast<DWORD>(size)));
}

} // namespace

extern "C" DWORD WINAPI GetPrinterDataW(HANDLE handle, LPWSTR name, LPDWORD type, LPBYTE data,
                                        DWORD size, LPDWORD needed) {
    return GuardedCode([&]() -> DWORD {
        if (!name || !needed) return ERROR_INVALID_PARAMETER;
        Data found;
        if (const DWORD code = Read(handle, name, found)) return code;
        return Answer(found, type, data, size, needed);
    });
}

extern "C" DWORD WINAPI GetPrinterDataExW(HANDLE handle, LPCWSTR key, LPCWSTR name, LPDWORD type,
                                          LPBYTE data, DWORD size, LPDWORD needed) {
    return GuardedCode([&]() -> DWORD {
        if (!key || !*key || !name || !needed) return ERROR_INVALID_PARAMETER;
        if (SameName(key, kData))
            return GetPrinterDataW(handle, const_cast<LPWSTR>(name), type, data, size, needed);
        const auto printer = FindPrinter(handle);
        if (!printer) return ERROR_INVALID_HANDLE;
        Data found;
        if (const DWORD code = ReadValue(*printer, key, name, found)) return code;
        return Answer(found, type, data, size, needed);
    });
}

extern "C" DWORD WINAPI GetPrinterDataA(HANDLE handle, LPSTR name, LPDWORD type, LPBYTE data,
                                        DWORD size, LPDWORD needed) {
    return GuardedCode([&]() -> DWORD {
        if (!name || !needed) return ERROR_INVALID_PARAMETER;
        Data found;
        if (const DWORD code = Read(handle, FromAnsi(name), found)) return code;
        if (IsText(found.type)) {
            std::u16string text(found.bytes.size() / sizeof(WCHAR), u'\0');
            std::memcpy(text.data(), found.bytes.data(), text.size() * sizeof(WCHAR));
            const std::string ansi = Ansi(text);
            found.bytes.assign(ansi.begin(), ansi.end());
        }
        return Answer(found, type, data, size, needed);
    });
}

extern "C" DWORD WINAPI SetPrinterDataW(HANDLE handle, LPWSTR name, DWORD type, LPBYTE data,
                                        DWORD size) {
    return GuardedCode([&]() -> DWORD {
        if (!name || (!data && size)) return ERROR_INVALID_PARAMETER;
        return Write(handle, name, type, data, size);
    });
}

extern "C" DWORD WINAPI SetPrinterDataExW(HANDLE handle, LPCWSTR key, LPCWSTR name, DWORD type,
                                          LPBYTE data, DWORD size) {
    return GuardedCode([&]() -> DWORD {
        if (!key || !*key || !name || (!data && size)) return ERROR_INVALID_PARAMETER;
        return Write(handle, name, type, data, size, key);
    });
}

extern "C" DWORD WINAPI SetPrinterDataA(HANDLE handle, LPSTR name, DWORD type, LPBYTE data,
                                        DWORD size) {
    return GuardedCode([&]() -> DWORD {
        if (!name || (!data && size)) return ERROR_INVALID_PARAMETER;
        if (!IsText(type)) return Write(handle, FromAnsi(name), type, data, size);
        const std::u16string text = FromAnsi({reinterpret_cast<const char*>(data), size});
        return Write(handle, FromAnsi(name), type, reinterpret_cast<const BYTE*>(text.data()),
                     text.size() * sizeof(WCHAR));
    });
}

extern "C" DWORD WINAPI DeletePrinterDataW(HANDLE handle, LPWSTR name) {
    return GuardedCode([&]() -> DWORD {
        if (!name) return ERROR_INVALID_PARAMETER;
        RegistryKey key;
        if (const DWORD code = OpenDataToChange(handle, key)) return code;
        return static_cast<DWORD>(key.DeleteValue(name));
    });
}
