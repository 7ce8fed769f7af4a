// The entry points that only answer: DrvDeviceCapabilities and DevQueryPrintEx.
#include "zplui.h"

#include <memory>

#include "driver/printer_info.h"
#include "model/prtmodel.h"

BOOL WINAPI DevQueryPrintEx(PDEVQUERYPRINT_INFO) {
    return TRUE;
}

DWORD WINAPI DrvDeviceCapabilities(HANDLE printer, PWSTR, WORD capability, PVOID output,
                                   PDEVMODEW) {
    std::unique_ptr<const prtmodel> model(prtmodel::new_ext(PrinterInfo(printer)));
    if (!model) return static_cast<DWORD>(-1);
    return model->DeviceCapabilitiesW(capability, static_cast<unsigned char*>(output), nullptr);
}
