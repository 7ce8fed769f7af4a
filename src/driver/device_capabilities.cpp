// The entry points that only answer: DrvDeviceCapabilities and DevQueryPrintEx.
#include "zplui.h"

#include <memory>

#include "model/prtmodel.h"
#include "settings/dev_mode.h"
#include "spooler/printer_info.h"

BOOL WINAPI DevQueryPrintEx(PDEVQUERYPRINT_INFO) {
    return TRUE;
}

DWORD WINAPI DrvDeviceCapabilities(HANDLE printer, PWSTR name, WORD capability, PVOID output,
                                   PDEVMODEW dev_mode) {
    const std::unique_ptr<const prtmodel> model(prtmodel::new_ext(PrinterInfo::Of(printer, name)));
    if (!model) return static_cast<DWORD>(-1);

    DevMode settings;
    switch (capability) {
    case DC_FIELDS:
    case DC_SIZE:
    case DC_EXTRA:
    case DC_VERSION:
    case DC_DRIVER:
        settings.CreateDefault(model.get());
        settings.Merge(dev_mode, model.get());
        break;
    default:
        break;
    }
    return model->DeviceCapabilitiesW(capability, static_cast<unsigned char*>(output),
                                      settings.GetDevMode());
}
