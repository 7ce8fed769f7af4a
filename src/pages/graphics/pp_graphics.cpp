#include "pages/graphics/pp_graphics.h"

#include "locale/text_numbers.h"
#include "model/prtmodel.h"
#include "pages/graphics/pp_dither_color.h"
#include "pages/graphics/pp_dither_setup.h"
#include "pages/graphics/system_halftone.h"
#include "settings/scolor.h"
#include "spooler/platform_flags.h"
#include "ui/prtui.h"

namespace {

enum : uint16_t {
    kColorList = 309,
    kPreview = 319,
    kColorAdjustment = 339,
    kDitherSetup = 340,
    kColorMatchingList = 341,
    kColorMatchingLabel = 342,
    kResolutionList = 364,
    kHeadAlignment = 405,
    kColorSetup = 406,
    kFirstMethod = 1320,
    kLastMethod = 1325
};

constexpr int kSamplePicture = 110;

// The method of each button, by its identifier from kFirstMethod on.
constexpr uint16_t kMethods[] = {dithercfg::ALGORITHM_NONE,      dithercfg::ALGORITHM_CLUSTERED,
                                 dithercfg::ALGORITHM_DISPERSED, dithercfg::ALGORITHM_ALGEBRAIC,
                                 dithercfg::ALGORITHM_DIFFUSION, dithercfg::ALGORITHM_DEVICE};
static_assert(kLastMethod - kFirstMethod + 1 == sizeof(kMethods) / sizeof(kMethods[0]));

constexpr uint32_t kAnyColor = 255;

constexpr int kNoMatching = 1;     // DMICMMETHOD_NONE
constexpr int kSystemMatching = 2; // DMICMMETHOD_SYSTEM

constexpr printer_action kColorSetupAction = printer_action(42);
constexpr printer_action kHeadAlignmentAction = printer_action(43);

int HeadsInUse(const SCOLOR& inks) {
    int used = 0;
    for (int head = 0; head < inks.GetHeads(); ++head) used += inks.GetColorUsed(head);
    return used;
}

} // namespace

void ppGraphics::Init() {
    prtpage::Init();
    GetModel()->GetDitherCapabilities(capabilities_);
    method_.Bind(this, 0);
    for (int i = 0; i <= kLastMethod - kFirstMethod; ++i) {
        method_.AddButton(kFirstMethod + i);
        method_values_.Add(kMethods[i]);
    }
}

void ppGraphics::Refresh(bool all) {
    if (!config_) return;
    if (all) FillLists();
    EnableControls();
    ShowPreview();
}

void ppGraphics::FillLists() {
    FillResolutions();
    FillColors();
    FillColorMatching();
}

void ppGraphics::FillResolutions() {
    CB_ResetContent(kResolutionList);
    OTypedArray<int> resolutions;
    GetModel()->GetResolutions(resolutions);
    for (int i = 0; i + 1 < resolutions.GetSize(); i += 2) {
        const int x = resolutions[i];
        const int y = resolutions[i + 1];
        CB_AddString(kResolutionList, ui_->locale.dpi_to_string(x, y), y * 65536 + x);
    }
    CB_SetCurSelData(kResolutionList, static_cast<LPARAM>(devmode_.GetResolutionID()));
}

void ppGraphics::FillColors() {
    CB_ResetContent(kColorList);
    CB_AddString(kColorList, GetString(TEXT_MONOCHROME), DMCOLOR_MONOCHROME);
    if (GetModel()->ColorSupport(kAnyColor))
        CB_AddString(kColorList, GetString(TEXT_COLOR), DMCOLOR_COLOR);
    CB_SetCurSelData(kColorList, devmode_.GetColor());
}

void ppGraphics::FillColorMatching() {
    CB_ResetContent(kColorMatchingList);
    CB_AddString(kColorMatchingList, GetString(TEXT_NO_COLOR_MATCHING), 0);
    const int intents = win2000 ? 4 : 3;
    for (int intent = 1; intent <= intents; ++intent)
        CB_AddString(kColorMatchingList, GetString(TEXT_FIRST_INTENT + intent - 1), intent);
    const bool matched = devmode_.GetICMMethod() == kSystemMatching;
    CB_SetCurSelData(kColorMatchingList, matched ? devmode_.GetICMIntent() : 0);
}

void ppGraphics::EnableControls() {
    const int algorithm = config_->dither.algorithm;
    const bool matching = PrintsInColor() && DevMode::SupportsICM();
    WM_Enable(kColorMatchingList, matching);
    WM_Enable(kColorMatchingLabel, matching);
    WM_Enable(kDitherSetup, algorithm != dithercfg::ALGORITHM_NONE);
    WM_Enable(kColorAdjustment, algorithm != dithercfg::ALGORITHM_DEVICE);
    WM_Enable(kLastMethod, capabilities_.own_dithering != 0);
    int selected = -1;
    for (int i = 0; i < method_values_.GetSize(); ++i)
        if (method_values_[i] == algorithm) selected = i;
    method_.SetCurSel(selected);

    const bool setup = PrintsInColor() && is_default_dm();
    SCOLOR inks = {};
    inks.Init(GetModel());
    inks.Load(registry_);
    WM_Enable(kColorSetup, setup && PrinterActionSupported(kColorSetupAction));
    WM_Enable(kHeadAlignment,
              setup && PrinterActionSupported(kHeadAlignmentAction) && HeadsInUse(inks) > 1);
}

void ppGraphics::ShowPreview() {
    const auto* sample = static_cast<const BITMAPINFO*>(ui_->locale.LockBitmap(kSamplePicture));
    SCOLOR inks = {};
    inks.Init(GetModel());
    inks.Load(registry_);
    BMM_SetBitmapHandle(kPreview,
                        preview_.Make(sample, config_->dither, PrintsInColor() ? &inks : nullptr));
}

bool ppGraphics::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (!config_) return true;
    if (id >= kFirstMethod && id <= kLastMethod && code == BN_CLICKED) {
        SelectMethod();
        return false;
    }
    switch (id) {
    case kColorList:
        if (code != CBN_SELCHANGE) return true;
        SelectColor();
        return false;
    case kColorMatchingList:
        if (code != CBN_SELCHANGE) return true;
        SelectColorMatching();
        return false;
    case kResolutionList:
        if (code != CBN_SELCHANGE) return true;
        devmode_.SetResolutionID(static_cast<uint32_t>(CB_GetCurSelData(kResolutionList)));
        return false;
    case kColorAdjustment:
        if (code != BN_CLICKED) return true;
        ColorAdjustment();
        return false;
    case kDitherSetup:
        if (code != BN_CLICKED) return true;
        DitherSetup();
        return false;
    case kHeadAlignment:
        if (code != BN_CLICKED) return true;
        PrinterAction(kHeadAlignmentAction);
        return false;
    case kColorSetup:
        if (code != BN_CLICKED) return true;
        PrinterAction(kColorSetupAction);
        return false;
    default:
        return prtpage::Command(id, code, value);
    }
}

void ppGraphics::SelectColor() {
    devmode_.SetColor(static_cast<int>(CB_GetCurSelData(kColorList)));
    devmode_.SetICMMethod(kNoMatching);
    // The matching list then shows that there is none.
    CB_SetCurSelData(kColorMatchingList, 0);
}

void ppGraphics::SelectColorMatching() {
    const auto intent = static_cast<int>(CB_GetCurSelData(kColorMatchingList));
    if (intent < 1) {
        devmode_.SetICMMethod(kNoMatching);
        return;
    }
    devmode_.SetICMIntent(intent);
    devmode_.SetICMMethod(kSystemMatching);
}

void ppGraphics::SelectMethod() {
    const int selected = method_.GetCurSel();
    config_->dither.algorithm =
        selected >= 0 ? static_cast<int16_t>(method_values_[selected]) : int16_t{0};
}

bool ppGraphics::PaletteChange(UINT message, WPARAM first, LPARAM second) {
    Forward(kPreview, message, first, second);
    return false;
}

bool ppGraphics::UsesSystemHalftones() const {
    return winNT && config_->dither.algorithm == dithercfg::ALGORITHM_CLUSTERED;
}

int ppGraphics::ColorAdjustment() {
    if (UsesSystemHalftones())
        return EditSystemColorAdjustment(devmode_.GetDevMode(), ui_->printer_name, PrintsInColor());
    return DialogModal("*:GRAPHICS/^COLOR_ADJUSTMENT", ppDitherColor::WinProc);
}

int ppGraphics::DitherSetup() {
    if (UsesSystemHalftones()) {
        const uint32_t resolution = devmode_.GetResolutionID();
        return EditSystemHalftone(devmode_.GetDevMode(), ui_->printer_name,
                                  static_cast<int>(resolution & 0xFFFF),
                                  static_cast<int>(resolution >> 16), PrintsInColor());
    }
    if (config_->is_24bit_device()) return ui_->DeviceDitherSetup(this, config_->dither);
    return DialogModal("*:GRAPHICS/^DITHERING_SETUP", ppDitherSetup::WinProc);
}
