// Turning DEVMODEs of other drivers into one of this driver.
#include <algorithm>
#include <cstring>

#include "model/prtmodel.h"
#include "settings/common_private_dm.h"
#include "settings/dev_mode.h"
#include "settings/public_part.h"

namespace {

// Merges the fields of one public part into another.
class PublicMerge {
public:
    // `held` is the number of bytes that both DEVMODEs hold.
    PublicMerge(DEVMODEW& to, const DEVMODEW& from, size_t held)
        : to_(to)
        , from_(from)
        , held_(held)
        , same_device_(SameText(to.dmDeviceName, from.dmDeviceName, CCHDEVICENAME)) {}

    void Run() {
        Take(DM_ORIENTATION, &DEVMODEW::dmOrientation);
        TakePaper();
        Take(DM_SCALE, &DEVMODEW::dmScale);
        Take(DM_COPIES, &DEVMODEW::dmCopies);
        Take(DM_DEFAULTSOURCE, &DEVMODEW::dmDefaultSource);
        TakeResolution(DM_PRINTQUALITY, &DEVMODEW::dmPrintQuality);
        if (Asks(DM_COLOR, &DEVMODEW::dmColor)) {
            to_.dmFields |= DM_COLOR;
            if (same_device_) to_.dmColor = from_.dmColor;
        }
        Take(DM_DUPLEX, &DEVMODEW::dmDuplex);
        TakeResolution(DM_YRESOLUTION, &DEVMODEW::dmYResolution);
        Take(DM_COLLATE, &DEVMODEW::dmCollate);
        Take(DM_ICMMETHOD, &DEVMODEW::dmICMMethod);
        Take(DM_ICMINTENT, &DEVMODEW::dmICMIntent);
    }

private:
    static bool SameText(const WCHAR* a, const WCHAR* b, int room) {
        for (int i = 0; i < room && a[i] == b[i]; ++i)
            if (!a[i] || i == room - 1) return true;
        return false;
    }

    template <class T>
    bool Held(T DEVMODEW::*field) const {
        return static_cast<size_t>(reinterpret_cast<const char*>(&(from_.*field)) -
                                   reinterpret_cast<const char*>(&from_)) < held_;
    }

    template <class T>
    bool Asks(DWORD bit, T DEVMODEW::*field) const {
        return (from_.dmFields & bit) && Held(field);
    }

    template <class T>
    void Take(DWORD bit, T DEVMODEW::*field) {
        if (!Asks(bit, field)) return;
        to_.dmFields |= bit;
        to_.*field = from_.*field;
    }

    // A symbolic resolution, or one of another device, becomes none. Validation finds one.
    void TakeResolution(DWORD bit, SHORT DEVMODEW::*field) {
        if (!Asks(bit, field)) return;
        to_.dmFields |= bit;
        to_.*field = from_.*field > 0 && same_device_ ? from_.*field : SHORT(0);
    }

    void TakePaper() {
        if (Held(&DEVMODEW::dmPaperLength)) to_.dmPaperLength = from_.dmPaperLength;
        if (Held(&DEVMODEW::dmPaperWidth)) to_.dmPaperWidth = from_.dmPaperWidth;

        const DWORD extent = DM_PAPERLENGTH | DM_PAPERWIDTH;
        if (Asks(DM_PAPERSIZE, &DEVMODEW::dmPaperSize)) {
            if (from_.dmPaperSize == 0 || from_.dmPaperSize == DMPAPER_USER) {
                to_.dmPaperSize = DMPAPER_USER;
                TakeFormName();
                to_.dmFields |= DM_FORMNAME | DM_PAPERSIZE | extent;
            } else {
                to_.dmPaperSize = from_.dmPaperSize;
                const bool named = (from_.dmFields & DM_FORMNAME) != 0;
                if (named) TakeFormName();
                NameBy(named ? DM_PAPERSIZE | DM_FORMNAME : DM_PAPERSIZE);
            }
        } else if ((from_.dmFields & DM_FORMNAME) && held_ > offsetof(DEVMODEW, dmFormName)) {
            TakeFormName();
            NameBy(DM_FORMNAME);
        }
    }

    // Of the bits that name a paper, leaves only these.
    void NameBy(DWORD bits) {
        to_.dmFields &= ~DWORD(DM_PAPERSIZE | DM_PAPERLENGTH | DM_PAPERWIDTH | DM_FORMNAME);
        to_.dmFields |= bits;
    }

    void TakeFormName() {
        int i = 0;
        for (; i < CCHFORMNAME - 1 && from_.dmFormName[i]; ++i)
            to_.dmFormName[i] = from_.dmFormName[i];
        to_.dmFormName[i] = 0;
    }

    DEVMODEW& to_;
    const DEVMODEW& from_;
    const size_t held_;
    const bool same_device_;
};

} // namespace

void DevMode::MergeDevMode(DEVMODEW* destination, const DEVMODEW* source, const prtmodel* model) {
    if (!destination || !source) return;
    PublicPart to(destination);
    const PublicPart from(source);
    PublicMerge(to.fields, from.fields, std::min(destination->dmSize, source->dmSize)).Run();
    to.WriteTo(destination);

    CopyCommonPrivateDm(destination, source);
    DevMode(destination).Validate(model);
    prtconfig::Copy(prtconfig::get_tail(destination), prtconfig::get_tail(source));
}

void DevMode::Validate(const prtmodel* model) {
    if (!dev_mode_) return;
    PublicPart part(dev_mode_);
    DEVMODEW& mode = part.fields;
    if (mode.dmOrientation != DMORIENT_PORTRAIT && mode.dmOrientation != DMORIENT_LANDSCAPE)
        mode.dmOrientation = DMORIENT_PORTRAIT;
    mode.dmCopies =
        static_cast<SHORT>(std::max(std::min<int>(mode.dmCopies, model->GetMaxCopies()), 1));
    if (!model->ColorSupport(255)) mode.dmColor = DMCOLOR_MONOCHROME;
    mode.dmScale = 100;
    mode.dmDuplex = DMDUP_SIMPLEX;
    mode.dmCollate = DMCOLLATE_FALSE;

    OTypedArray<int> pairs;
    model->GetResolutions(pairs);
    bool known = false;
    for (int i = 0; i + 1 < pairs.GetSize() && !known; i += 2)
        known = pairs[i] == mode.dmPrintQuality && pairs[i + 1] == mode.dmYResolution;
    if (!known) {
        mode.dmPrintQuality = static_cast<SHORT>(model->GetXResolution());
        mode.dmYResolution = static_cast<SHORT>(model->GetYResolution());
    }
    part.WriteTo(dev_mode_);
}

// ---- 16-bit programs ----------------------------------------------------------------------------

void DevMode::Convert16(DEVMODE32* destination, const DEVMODE16* source) {
    if (!destination || !source) return;
    PublicPart part(destination);
    const size_t size = source->dmSize;
    // Takes the fields between two of the source, as far as it has them.
    const auto take = [&](size_t to, size_t from, size_t end) {
        end = std::min(end, size);
        if (end > from)
            std::memcpy(reinterpret_cast<char*>(&part.fields) + to,
                        reinterpret_cast<const char*>(source) + from, end - from);
    };
    take(offsetof(DEVMODE32, dmFields), offsetof(DEVMODE16, dmFields),
         offsetof(DEVMODE16, dmFormName));
    take(offsetof(DEVMODE32, dmLogPixels), offsetof(DEVMODE16, dmLogPixels),
         offsetof(DEVMODE16, dmBitsPerPel));
    take(offsetof(DEVMODE32, dmBitsPerPel), offsetof(DEVMODE16, dmBitsPerPel),
         offsetof(DEVMODE16, dmICMMethod));
    if (destination->dmSize >= offsetof(DEVMODE32, dmPanningWidth) &&
        size >= offsetof(DEVMODE16, dmPanningWidth))
        take(offsetof(DEVMODE32, dmICMMethod), offsetof(DEVMODE16, dmICMMethod),
             offsetof(DEVMODE16, dmReserved1));
    part.fields.dmPanningWidth = 0;
    part.fields.dmPanningHeight = 0;
    part.WriteTo(destination);
    prtconfig::Copy(prtconfig::get_tail(destination),
                    prtconfig::get_tail(source, source->dmSize, source->dmDriverExtra));
}
