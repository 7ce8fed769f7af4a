// The DEVMODE of a new printer.
#include <cstring>

#include "core/fixed_text.h"
#include "model/prtmodel.h"
#include "settings/common_private_dm.h"
#include "settings/dev_mode.h"
#include "settings/public_part.h"

void DevMode::Reset(const prtmodel* model) {
    configuration_ = nullptr;
    if (!dev_mode_) return;
    DEVMODEW& mode = *dev_mode_;
    std::memset(static_cast<void*>(&mode), 0, static_cast<size_t>(GetDefaultDevModeSize()));

    PutFixedText(mode.dmDeviceName, model->GetPrinterName(), CCHDEVICENAME);
    if (const KVDriverInfo* driver = model->GetDriverInfo())
        mode.dmDriverVersion = static_cast<WORD>((driver->major & 0xFF) << 8 | driver->minor);
    mode.dmSpecVersion = DM_SPECVERSION;
    mode.dmSize = sizeof mode;
    mode.dmDriverExtra =
        static_cast<WORD>(static_cast<size_t>(GetDefaultDevModeSize()) - sizeof mode);
    mode.dmFields = DM_ORIENTATION | DM_PAPERSIZE | DM_PAPERLENGTH | DM_PAPERWIDTH | DM_SCALE |
                    DM_COPIES | DM_DEFAULTSOURCE | DM_PRINTQUALITY | DM_COLOR | DM_DUPLEX |
                    DM_YRESOLUTION | DM_TTOPTION | DM_COLLATE;
    mode.dmOrientation = DMORIENT_PORTRAIT;
    mode.dmPaperSize = DMPAPER_USER;
    mode.dmPaperLength = PaperExtent(model->GetDefaultPaperLength().MM10());
    mode.dmPaperWidth = PaperExtent(model->GetDefaultPaperWidth().MM10());
    mode.dmScale = 100;
    mode.dmCopies = 1;
    mode.dmDefaultSource = DMBIN_USER;
    mode.dmPrintQuality = static_cast<SHORT>(model->GetXResolution());
    mode.dmColor = static_cast<SHORT>(model->GetDefaultColorState());
    mode.dmDuplex = DMDUP_SIMPLEX;
    mode.dmYResolution = static_cast<SHORT>(model->GetYResolution());
    mode.dmTTOption = DMTT_BITMAP;
    mode.dmCollate = DMCOLLATE_FALSE;
    if (SupportsICM()) {
        mode.dmFields |= DM_ICMMETHOD | DM_ICMINTENT | DM_MEDIATYPE | DM_DITHERTYPE;
        mode.dmICMMethod = DMICMMETHOD_SYSTEM;
        mode.dmICMIntent = DMICM_SATURATE;
        mode.dmMediaType = DMMEDIA_STANDARD;
        mode.dmDitherType = DMDITHER_USER;
    }
    SetDefaultCommonPrivDm(&mode);

    char* bytes = reinterpret_cast<char*>(&mode);
    auto* tail = reinterpret_cast<endconfig*>(bytes + GetDefaultDevModeSize() - sizeof(endconfig));
    std::memcpy(tail->signature, "kvk", sizeof tail->signature);
    const char* prefix = model->GetPrefix();
    std::memcpy(tail->prefix, prefix, strnlen(prefix, sizeof tail->prefix));
    tail->size = static_cast<uint16_t>(prtconfig::GetTotalSize());
    prtconfig::Reset(
        reinterpret_cast<prtconfig*>(bytes + sizeof(DEVMODEW) + sizeof(COMMONPRIVATEDM)), model);
}
