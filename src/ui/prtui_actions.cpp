// What every printer can be told to do.
#include "printer/prtstream.h"
#include "printer/prttest.h"
#include "spooler/driver_utility.h"
#include "ui/prtui.h"

namespace {

struct ActionName {
    int32_t action;
    int text;
};

// Also those of other printer languages: names are asked for before offers.
constexpr ActionName kNames[] = {
    {1, 2401},  {2, 2405},  {3, 2402},  {4, 2403},  {5, 2404},  {6, 2451},  {7, 2456},  {8, 2452},
    {9, 2455},  {10, 2453}, {37, 2450}, {11, 2454}, {12, 2406}, {13, 2410}, {15, 2408}, {16, 2409},
    {14, 2407}, {17, 2411}, {18, 2412}, {20, 2413}, {19, 2414}, {21, 2460}, {22, 2464}, {27, 2463},
    {28, 2457}, {23, 2458}, {39, 2485}, {40, 2486}, {45, 2487}, {24, 2461}, {25, 2483}, {26, 2484},
    {29, 2459}, {30, 2465}, {31, 2466}, {32, 2467}, {33, 2468}, {34, 2470}, {35, 2469}, {42, 2481},
    {43, 2482}, {44, 2462}, {46, 2488}, {47, 2415}, {48, 2489},
};

} // namespace

OString prtui::PrinterActionName(printer_action action) {
    for (const ActionName& name : kNames)
        if (name.action == action) return locale.GetString(name.text);
    return OString();
}

void prtui::GetCacheParameters(CacheParameters& parameters) const {
    parameters.largest_memory = 0;
    parameters.graphics_min = parameters.graphics_max = 0;
    parameters.format_min = parameters.format_max = 0;
    parameters.graphics_locations.SetSize(0);
    parameters.graphics_location_names.SetSize(0);
    parameters.format_locations.SetSize(0);
    parameters.format_location_names.SetSize(0);
}

bool prtui::EnableVerifyFonts(prtstream&) {
    return false;
}

uint32_t prtui::PrinterActionSupported(prtpage*, printer_action action) {
    if (!model) return 0;
    constexpr uint32_t kAdministrativeDialog =
        ACTION_OFFERED | ACTION_OPENS_DIALOG | ACTION_ADMINISTRATIVE;
    const auto caches = [this] { return model->CanCacheFormats() || model->CanCacheGraphics(); };
    switch (action) {
    case ACTION_TEST_LABEL:
    case ACTION_BLANK_LABEL:
        return ACTION_OFFERED;
    case ACTION_SEND_FILE:
    case ACTION_ADMINISTRATION:
    case ACTION_OFFICE_COMPATIBILITY:
        return kAdministrativeDialog;
    case ACTION_CACHE: {
        if (!caches()) return 0;
        CacheParameters parameters;
        GetCacheParameters(parameters);
        const bool has_memory = parameters.graphics_locations.GetSize() > 0 ||
                                parameters.format_locations.GetSize() > 0;
        return has_memory ? kAdministrativeDialog : 0;
    }
    case ACTION_CLEAR_CACHE:
        return caches() ? ACTION_OFFERED : 0;
    case ACTION_STATUS:
        return stream && stream->is_bidirectional() && stream->IsMonitorSupported()
                   ? kAdministrativeDialog
                   : 0;
    default:
        return 0;
    }
}

void prtui::PrinterAction(prtpage*, printer_action action) {
    if (!stream) return;
    switch (action) {
    case ACTION_TEST_LABEL:
        PrtTest(this, TestPattern::LABEL);
        break;
    case ACTION_BLANK_LABEL:
        PrtTest(this, TestPattern::BLANK);
        break;
    case ACTION_CLEAR_CACHE:
        stream->StartJob(PrinterActionName(action));
        stream->CacheAction({KVCacheAction::CLEAR, 0});
        stream->EndJob();
        break;
    default:
        break;
    }
}

bool prtui::RunChoice(printer_action action, const OString& choice) {
    if (!stream || action != ACTION_SEND_FILE || choice.IsEmpty()) return false;
    SendFile(choice);
    return true;
}

void prtui::SendFile(const OString& path) {
    if (!stream) return;
    stream->StartJob(path.FilePart());
    stream->write_file(path);
    stream->EndJob();
}

void prtui::rundll_statusmonitor(const OString& printer, const OString& server, const OString& verb,
                                 int show) {
    OString command = "rundll32.exe ";
    command << DriverUtility::GetDriverDirectory() << "\\qstmon.dll,StatusMonitor " << verb
            << " \"";
    if (!server.IsEmpty()) command << "\\\\" << server << "\\";
    command << printer << "\"";
    WinExec(command.nstring(), static_cast<UINT>(show));
}
