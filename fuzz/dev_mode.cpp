// DEVMODEs from anywhere: whatever their sizes and bytes say, nothing beyond them is read, and a
// merge results in a complete DEVMODE of the driver.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "settings/common_private_dm.h"
#include "settings/dev_mode.h"
#include "settings/prtconfig.h"
#include "spooler/printer_info.h"
#include "target.h"
#include "zpl/extconfig.h"
#include "zpl/extmodel.h"
#include "zplui.h"

namespace {

const prtmodel& Model() {
    static const std::unique_ptr<prtmodel> model(prtmodel::new_ext(PrinterInfo(nullptr)));
    return *model;
}

// The input as a DEVMODE of either layout, with as many bytes as its sizes say, or those of its
// header.
template <class Layout>
std::vector<uint8_t> Owned(const uint8_t* data, size_t size) {
    const size_t header = offsetof(Layout, dmFields);
    std::vector<uint8_t> bytes(data, data + size);
    bytes.resize(std::max(size, header));
    const auto* mode = reinterpret_cast<const Layout*>(bytes.data());
    bytes.resize(std::max(size_t{mode->dmSize} + mode->dmDriverExtra, header));
    bytes.shrink_to_fit();
    return bytes;
}

} // namespace

FUZZ_TARGET(dev_mode)(const uint8_t* data, size_t size) {
    std::vector<uint8_t> bytes = Owned<DEVMODE32>(data, size);
    auto* source = reinterpret_cast<DEVMODEW*>(bytes.data());

    DevMode usual, merged;
    usual.CreateDefault(&Model());
    merged.CreateDefault(&Model());
    merged.Merge(source, &Model());
    const DEVMODEW& raw = *merged.GetDevMode();
    const auto* tail = reinterpret_cast<const char*>(&raw) + 1500;
    if (std::memcmp(&raw, usual.GetDevMode(), 72) != 0 ||
        std::memcmp(tail, reinterpret_cast<const char*>(usual.GetDevMode()) + 1500, 8) != 0 ||
        raw.dmFormName[CCHFORMNAME - 1] != 0 || raw.dmCopies < 1 || raw.dmScale != 100 ||
        !prtconfig::get_cfg(&raw) || !GetCommonPrivateDm(&raw))
        std::abort();

    // The same through the entry point, with the room given by the input's first bytes.
    std::vector<char> made(DWORD(source->dmDeviceName[0]) % 2048);
    made.shrink_to_fit();
    DOCUMENTPROPERTYHEADER header = {};
    header.cbSize = sizeof header;
    header.pdmIn = source;
    header.pdmOut = reinterpret_cast<DEVMODEW*>(made.data());
    header.cbOut = static_cast<DWORD>(made.size());
    header.fMode = DM_IN_BUFFER | DM_OUT_BUFFER;
    if (!made.empty()) {
        const bool fits = made.size() >= 1508;
        const LONG answer = DrvDocumentPropertySheets(nullptr, reinterpret_cast<LPARAM>(&header));
        if (answer != (fits ? IDOK : 0) || (fits && std::memcmp(made.data(), &raw, 1508) != 0))
            std::abort();
    }

    reinterpret_cast<extconfig*>(merged.GetConfiguration())->Validate(&Model());

    std::vector<char> out(sizeof(DEVMODEW) + source->dmDriverExtra);
    auto* converted = reinterpret_cast<DEVMODEW*>(out.data());
    converted->dmSpecVersion = DM_SPECVERSION;
    converted->dmSize = sizeof(DEVMODEW);
    auto room = static_cast<DWORD>(out.size());
    if (!DrvConvertDevMode(nullptr, source, converted, &room, CDM_CONVERT)) std::abort();

    merged.Convert(Owned<DEVMODE16>(data, size).data());
    DevMode view(source);
    (void)(view == merged);
    view.SetOrientation(view.GetOrientation());
    view.SetPresetName(source->dmDeviceName[0] ? TEXT("x") : nullptr);
    view.Validate(&Model());
    view = usual;
    usual = view;
    if (!usual.GetConfiguration()) std::abort();
    return 0;
}
