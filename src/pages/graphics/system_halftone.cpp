#include "pages/graphics/system_halftone.h"

#include <winddi.h>

#include <cstddef>
#include <cstring>

#include "settings/common_private_dm.h"

namespace {

using ColorAdjustmentDialog = LONG(WINAPI*)(LPSTR title, HANDLE picture, LPSTR picture_title,
                                            COLORADJUSTMENT* adjustment, BOOL monochrome_only,
                                            BOOL may_change);
using DeviceAdjustmentDialog = LONG(WINAPI*)(LPSTR device, DEVHTADJDATA* data);

// A function of the library, as long as the object lives.
class HalftoneLibrary {
public:
    explicit HalftoneLibrary(const char* function)
        : module_(LoadLibraryW(TEXT("htui.dll")))
        , function_(module_ ? GetProcAddress(module_, function) : nullptr) {}
    ~HalftoneLibrary() {
        if (module_) FreeLibrary(module_);
    }
    HalftoneLibrary(const HalftoneLibrary&) = delete;
    HalftoneLibrary& operator=(const HalftoneLibrary&) = delete;

    template <class F>
    F Get() const {
        return reinterpret_cast<F>(reinterpret_cast<void*>(function_));
    }

private:
    HMODULE module_;
    FARPROC function_;
};

// The halftone settings after the public part of a DEVMODE, null unless they are complete.
COMMONPRIVATEDM* HalftoneSettings(DEVMODEW* settings) {
    const COMMONPRIVATEDM* found = GetCommonPrivateDm(settings);
    const bool complete = found && found->size >= sizeof(COMMONPRIVATEDM) &&
                          settings->dmDriverExtra >= sizeof(COMMONPRIVATEDM);
    return complete ? const_cast<COMMONPRIVATEDM*>(found) : nullptr;
}

} // namespace

int EditSystemColorAdjustment(DEVMODEW* settings, const OString& title, bool color) {
    COMMONPRIVATEDM* const halftone = HalftoneSettings(settings);
    const HalftoneLibrary library("HTUI_ColorAdjustment");
    const auto show = library.Get<ColorAdjustmentDialog>();
    if (!halftone || !show) return IDCANCEL;
    // The settings are not aligned where they are.
    COLORADJUSTMENT adjustment = halftone->adjustment;
    OString caption(title);
    const LONG answer =
        show(const_cast<LPSTR>(caption.nstring()), nullptr, nullptr, &adjustment, !color, TRUE);
    if (answer <= 0) return IDCANCEL;
    halftone->adjustment = adjustment;
    return IDOK;
}

int EditSystemHalftone(DEVMODEW* settings, const OString& device, int x, int y, bool color) {
    COMMONPRIVATEDM* const halftone = HalftoneSettings(settings);
    const HalftoneLibrary library("HTUI_DeviceColorAdjustment");
    const auto show = library.Get<DeviceAdjustmentDialog>();
    if (!halftone || !show) return IDCANCEL;
    DEVHTINFO defaults;
    DefaultDevHTInfo(&defaults, settings);
    DEVHTINFO adjusted = halftone->halftone;
    DEVHTADJDATA data = {};
    data.DeviceFlags = color ? DEVHTADJF_COLOR_DEVICE : 0;
    data.DeviceXDPI = static_cast<DWORD>(x);
    data.DeviceYDPI = static_cast<DWORD>(y);
    data.pDefHTInfo = &defaults;
    data.pAdjHTInfo = &adjusted;
    OString name(device);
    if (show(const_cast<LPSTR>(name.nstring()), &data) <= 0) return IDCANCEL;
    halftone->halftone = adjusted;
    return IDOK;
}
