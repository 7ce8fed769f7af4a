#include "spooler/dev_modes.h"

#include "spooler/opened_printer.h"

#include <winddiui.h>

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace win32host {
namespace {

const std::u16string kUserDevModes = u"Printers\\DevModePerUser";

constexpr size_t kLargest = 2 * size_t{0xFFFF}; // dmSize and dmDriverExtra have 16 bits

// Versions and sizes are adjacent.
constexpr size_t kLayout = offsetof(DEVMODEW, dmSpecVersion);
constexpr size_t kLayoutSize = offsetof(DEVMODEW, dmFields) - kLayout;

// Runs a conversion into `out`, which becomes as long as the driver says; empty if it fails.
void Convert(const DriverLibrary& library, const std::u16string& printer, std::vector<BYTE>* in,
             std::vector<BYTE>& out, DWORD mode) {
    DWORD size = static_cast<DWORD>(out.size());
    const bool good =
        library.ConvertDevMode(printer, in ? in->data() : nullptr, out.data(), size, mode);
    out =
        good ? CheckedDevMode(out.data(), std::min<size_t>(size, out.size())) : std::vector<BYTE>();
}

} // namespace

std::vector<BYTE> InLayoutOfDriver(const std::u16string& driver, const std::u16string& printer,
                                   std::vector<BYTE> dev_mode) {
    const auto library = dev_mode.empty() ? nullptr : LoadDriver(driver);
    if (!library) return dev_mode;
    DWORD size = 0;
    if (library->ConvertDevMode(printer, nullptr, nullptr, size, CDM_DRIVER_DEFAULT) ||
        size > kLargest)
        return dev_mode;
    std::vector<BYTE> converted(size);
    Convert(*library, printer, nullptr, converted, CDM_DRIVER_DEFAULT);
    if (converted.empty() ||
        std::memcmp(converted.data() + kLayout, dev_mode.data() + kLayout, kLayoutSize) == 0)
        return dev_mode;
    converted.resize(kLargest);
    Convert(*library, printer, &dev_mode, converted, CDM_CONVERT);
    return converted.empty() ? dev_mode : converted;
}

std::vector<BYTE> ReadUserDevMode(const std::u16string& printer) {
    RegistryKey key;
    if (key.Open(HKEY_CURRENT_USER, kUserDevModes) != ERROR_SUCCESS) return {};
    const std::vector<BYTE> bytes = key.Bytes(printer.c_str());
    return CheckedDevMode(bytes.data(), bytes.size());
}

LSTATUS WriteUserDevMode(const std::u16string& printer, const std::vector<BYTE>& dev_mode) {
    RegistryKey key;
    if (dev_mode.empty()) {
        LSTATUS status = key.Open(HKEY_CURRENT_USER, kUserDevModes, KEY_ALL_ACCESS);
        if (status == ERROR_SUCCESS) status = key.DeleteValue(printer);
        return status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status;
    }
    const LSTATUS status = key.Create(HKEY_CURRENT_USER, kUserDevModes);
    return status == ERROR_SUCCESS ? key.SetBytes(printer, dev_mode.data(), dev_mode.size())
                                   : status;
}

} // namespace win32host
