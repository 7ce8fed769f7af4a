// Device capabilities, which the printer's driver knows.
#include "spooler/opened_printer.h"

using namespace win32host;

extern "C" int WINAPI DeviceCapabilitiesW(LPCWSTR device, LPCWSTR, WORD capability, LPWSTR output,
                                          const DEVMODEW* dev_mode) {
    return Guarded(-1, [&] {
        std::u16string name = device ? device : u"";
        HANDLE handle = nullptr;
        if (!OpenPrinterW(name.data(), &handle, nullptr)) return -1;
        int answer = -1;
        if (const auto printer = FindPrinter(handle)) {
            const auto driver = printer->DriverName();
            const auto library = driver ? LoadDriver(*driver) : nullptr;
            if (library)
                answer = library->DeviceCapabilities(handle, printer->FullName(), capability,
                                                     output, dev_mode);
        }
        ClosePrinter(handle);
        return answer;
    });
}
