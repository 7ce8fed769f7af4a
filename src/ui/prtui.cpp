#include "ui/prtui.h"

#include <commctrl.h>

#include "core/memory.h"
#include "keys/network_policy.h"
#include "keys/shadow_keys.h"
#include "locale/text_numbers.h"
#include "spooler/printer_info.h"
#include "ui/prtbitmap.h"
#include "ui/window_hook.h"

prtui::~prtui() {
    WindowHook_Remove(this);
    if (uses_controls_) prtbitmap::Unregister();
}

void prtui::GetVersionInfo(OString& version) {
    version = version_.GetText("ProductVersion");
}

void prtui::GetVersionTag(OString& tag) {
    tag = version_.GetText("Product Tag");
}

void prtui::init(HANDLE printer, const DEVMODEW* in, uint32_t mode) {
    fmode = mode;
    hprinter = printer;

    const AllocationWatch memory;
    const PrinterInfo info(printer);
    printer_name = info.GetPrinterName();
    port_name = info.GetPortName();
    driver_name = info.GetDriverName();
    model.reset(prtmodel::new_ext(info));
    if (!model) return;
    devmode.CreateDefault(model.get());
    devmode.Merge(info.GetDevMode(), model.get());
    if (mode & DM_IN_BUFFER) devmode.Merge(in, model.get());
    InitEx();
    is_whole = model->WasReadWhole() && !memory.Failed();
    LoadControls();
}

void prtui::LoadControls() {
    constexpr DWORD kDateAndInternetClasses = 0x900;
    const INITCOMMONCONTROLSEX classes = {sizeof(INITCOMMONCONTROLSEX), kDateAndInternetClasses};
    InitCommonControlsEx(&classes);
    LoadLibraryW(TEXT("riched20.dll")); // stays for the process
    prtbitmap::Register();
    uses_controls_ = true;
}

void prtui::InitEx() {
    if (devmode.GetDevMode()) {
        devmode_crc = devmode.GetCRC32();
        devmode_saved.Create();
        devmode.CopyTo(devmode_saved.GetDevMode());
    }
    locale.Load(model->GetRegistry(), model.get());
    presets.Load(model.get());
    AddBuiltInPresets();
    stocks.init(model.get());
    stocks.Load(model.get());
    restricted = !NetworkPolicy(model->GetPrinterName()).MayChange();
    fonts.Load(model.get());
    data_fonts.Load(model.get());
    start_on_last = locale.GetString(TEXT_START_ON_LAST_PAGE) == "Y";
}

int prtui::DeviceDitherSetup(prtpage*, dithercfg&) {
    return IDCANCEL;
}

void prtui::ChooseFontSettings(CFontSettings*) {}

bool prtui::VerifyFonts(prtpage*) {
    return false;
}

void prtui::AdjustFontInfo(DownloadedFontInfo*) {}

void prtui::Settings_Load() {
    if (!model) return;
    CreateShadow(PrinterInfo(hprinter).GetPrinterName());
    presets.Load(model.get());
    stocks.Load(model.get());
    fonts.Load(model.get());
    data_fonts.Load(model.get());
}

bool prtui::Settings_Save() {
    if (!model || !is_whole) return false;
    bool stored = presets.Save(model.get()) != SaveResult::FAILED;
    stored &= stocks.Save(model.get()) != SaveResult::FAILED;
    stored &= fonts.Save(model.get()) != SaveResult::FAILED;
    stored &= data_fonts.Save(model.get()) != SaveResult::FAILED;
    if (commit_shadow) CommitShadow(PrinterInfo(hprinter).GetPrinterName());
    return stored;
}

void prtui::Settings_Export(const WCHAR* file, int contents, KDSettingsResult* result) {
    KDSettingsResult written = {};
    if (model && file)
        written = ExportSettingsFile(file, contents, {*model, stocks, presets, data_fonts});
    if (result) *result = written;
}

void prtui::Settings_Import(const WCHAR* file, int contents, KDSettingsResult* result) {
    KDSettingsResult read = {};
    if (model && file)
        read = ImportSettingsFile(file, contents, {*model, stocks, presets, data_fonts});
    if (result) *result = read;
}

void prtui::AddBuiltInPresets() {
    const auto add = [this](Preset::BuiltIn kind, int32_t priority, int name, int description) {
        auto* preset = new (kCounted) Preset;
        if (!preset) return;
        preset->SetBuiltIn(kind);
        preset->SetPriority(priority);
        if (kind == Preset::CURRENT_SETTINGS)
            preset->SetDevMode(devmode.GetDevMode());
        else
            preset->SetToDefaultDevMode(model.get());
        preset->SetName(locale.GetString(name));
        preset->SetDescription(locale.GetString(description));
        // Without a language library they have no names. They must not replace each other then.
        if (preset->GetName().IsEmpty())
            presets.AddTail(preset);
        else
            presets.AddTail_ReplaceName(preset);
    };
    add(Preset::CURRENT_SETTINGS, Preset::CURRENT_SETTINGS_PRIORITY, TEXT_CURRENT_SETTINGS,
        TEXT_ABOUT_CURRENT_SETTINGS);
    add(Preset::DEFAULT_SETTINGS, Preset::DEFAULT_SETTINGS_PRIORITY, TEXT_DEFAULT_SETTINGS,
        TEXT_ABOUT_DEFAULT_SETTINGS);
    presets.Sort();
}
