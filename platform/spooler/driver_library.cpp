#include "spooler/driver_library.h"

#include "host/root.h"
#include "host/text.h"

#include <map>
#include <mutex>
#include <utility>

namespace win32host {
namespace {

using PrinterEventFunction = BOOL(WINAPI*)(LPWSTR, int, DWORD, LPARAM);
using UpgradeFunction = BOOL(WINAPI*)(DWORD, LPBYTE);
using CapabilitiesFunction = DWORD(WINAPI*)(HANDLE, LPWSTR, WORD, LPVOID, DEVMODEW*);
using ConvertFunction = BOOL(WINAPI*)(LPWSTR, PDEVMODEW, PDEVMODEW, PDWORD, DWORD);
using DocumentEventFunction = int(WINAPI*)(HANDLE, HDC, int, ULONG, PVOID, ULONG, PVOID);

template <class Function>
Function As(FARPROC function) {
    return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(function));
}

struct Loaded {
    std::mutex lock;
    uint32_t root_generation = 0;
    std::map<std::u16string, std::shared_ptr<const DriverLibrary>> libraries;
};

// Lives until the process ends, like the modules themselves.
Loaded& TheLoaded() {
    static Loaded* loaded = new Loaded;
    return *loaded;
}

std::u16string LibraryKey(std::u16string file) {
    for (char16_t& unit : file) unit = UpperOf(unit);
    return file;
}

} // namespace

std::shared_ptr<const DriverLibrary> DriverLibrary::Load(const std::u16string& file) {
    Loaded& loaded = TheLoaded();
    const std::u16string key = LibraryKey(file);
    decltype(loaded.libraries) left_behind; // freed without the lock: a driver may call us
    {
        std::lock_guard guard(loaded.lock);
        if (loaded.root_generation != RootGeneration()) {
            left_behind.swap(loaded.libraries);
            loaded.root_generation = RootGeneration();
        }
        if (auto found = loaded.libraries.find(key); found != loaded.libraries.end())
            return found->second;
    }
    left_behind.clear();
    const HMODULE module = LoadLibraryW(file.c_str());
    if (!module) return nullptr;
    auto library = std::make_shared<const DriverLibrary>(module);
    std::lock_guard guard(loaded.lock);
    return loaded.libraries.emplace(key, library).first->second;
}

void DriverLibrary::Drop(const std::u16string& file) {
    Loaded& loaded = TheLoaded();
    std::shared_ptr<const DriverLibrary> dropped;
    std::lock_guard guard(loaded.lock);
    if (auto found = loaded.libraries.find(LibraryKey(file)); found != loaded.libraries.end()) {
        dropped = std::move(found->second);
        loaded.libraries.erase(found);
    }
}

DriverLibrary::DriverLibrary(HMODULE module)
    : module_(module)
    , printer_event_(GetProcAddress(module, "DrvPrinterEvent"))
    , upgrade_(GetProcAddress(module, "DrvUpgradePrinter"))
    , capabilities_(GetProcAddress(module, "DrvDeviceCapabilities"))
    , convert_(GetProcAddress(module, "DrvConvertDevMode"))
    , document_sheets_(GetProcAddress(module, "DrvDocumentPropertySheets"))
    , document_event_(GetProcAddress(module, "DrvDocumentEvent")) {}

DriverLibrary::~DriverLibrary() {
    FreeLibrary(module_);
}

bool DriverLibrary::RaisePrinterEvent(const std::u16string& printer, int event, DWORD flags,
                                      LPARAM parameter) const {
    if (!printer_event_) return true;
    std::u16string name = printer; // the driver may write into it
    return As<PrinterEventFunction>(printer_event_)(name.data(), event, flags, parameter) != FALSE;
}

bool DriverLibrary::UpgradePrinter(const std::u16string& printer) const {
    if (!upgrade_) return true;
    std::u16string name = printer;
    // A driver's files are replaced in place: there is no folder with the old ones.
    DRIVER_UPGRADE_INFO_1W info = {name.data(), nullptr};
    return As<UpgradeFunction>(upgrade_)(1, reinterpret_cast<LPBYTE>(&info)) != FALSE;
}

int DriverLibrary::DeviceCapabilities(HANDLE printer, const std::u16string& device, WORD capability,
                                      LPWSTR output, const DEVMODEW* dev_mode) const {
    if (!capabilities_) return -1;
    std::u16string name = device;
    const DWORD answer = As<CapabilitiesFunction>(capabilities_)(
        printer, name.data(), capability, output, const_cast<DEVMODEW*>(dev_mode));
    return static_cast<int>(answer);
}

bool DriverLibrary::ConvertDevMode(const std::u16string& printer, void* input, void* output,
                                   DWORD& size, DWORD mode) const {
    if (!convert_) {
        size = 0;
        return false;
    }
    std::u16string name = printer;
    return As<ConvertFunction>(convert_)(name.data(), static_cast<PDEVMODEW>(input),
                                         static_cast<PDEVMODEW>(output), &size, mode) != FALSE;
}

LONG DriverLibrary::DocumentProperties(DOCUMENTPROPERTYHEADER& header) const {
    if (!document_sheets_) {
        SetLastError(ERROR_PROC_NOT_FOUND);
        return -1;
    }
    return DocumentSheets()(nullptr, reinterpret_cast<LPARAM>(&header));
}

PFNPROPSHEETUI DriverLibrary::DocumentSheets() const {
    return As<PFNPROPSHEETUI>(document_sheets_);
}

int DriverLibrary::DocumentEvent(HANDLE printer, HDC dc, int event, ULONG input_size, void* input,
                                 ULONG output_size, void* output) const {
    if (!document_event_) return DOCUMENTEVENT_UNSUPPORTED;
    return As<DocumentEventFunction>(document_event_)(printer, dc, event, input_size, input,
                                                      output_size, output);
}

} // namespace win32host
