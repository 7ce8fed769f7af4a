// The actions of all printers.
#include "locale/text_numbers.h"
#include "printer/prtstream.h"
#include "printer/prttest.h"
#include "spooler/driver_utility.h"
#include "ui/action_dialogs.h"
#include "ui/action_row.h"
#include "ui/prtpage.h"
#include "ui/prtui.h"

namespace {

constexpr uint32_t kAdministrativeDialog =
    ACTION_OFFERED | ACTION_OPENS_DIALOG | ACTION_ADMINISTRATIVE;

bool CanCache(prtui& ui) {
    return ui.model->CanCacheFormats() || ui.model->CanCacheGraphics();
}

bool HasCacheMemory(prtui& ui) {
    if (!CanCache(ui)) return false;
    CacheParameters parameters;
    ui.GetCacheParameters(parameters);
    return parameters.graphics_locations.GetSize() > 0 || parameters.format_locations.GetSize() > 0;
}

bool CanBeMonitored(prtui& ui) {
    return ui.stream && ui.stream->is_bidirectional() && ui.stream->IsMonitorSupported();
}

void PrintTestLabel(prtui& ui, const ActionRow&) {
    PrtTest(&ui, TestPattern::LABEL);
}

void PrintBlankLabel(prtui& ui, const ActionRow&) {
    PrtTest(&ui, TestPattern::BLANK);
}

void ClearCache(prtui& ui, const ActionRow& row) {
    ui.stream->StartJob(ui.PrinterActionName(row.action));
    ui.stream->CacheAction({KVCacheAction::CLEAR, 0});
    ui.stream->EndJob();
}

void AskForFileToSend(prtpage& page) {
    page.SendFile();
}

constexpr ActionRow kActions[] = {
    {ACTION_TEST_LABEL, TEXT_TEST_LABEL, ACTION_OFFERED, nullptr, PrintTestLabel},
    {ACTION_BLANK_LABEL, TEXT_BLANK_LABEL, ACTION_OFFERED, nullptr, PrintBlankLabel},
    {ACTION_SEND_FILE, TEXT_SEND_FILE, kAdministrativeDialog, nullptr, nullptr, nullptr,
     AskForFileToSend},
    {ACTION_CACHE, TEXT_CACHE, kAdministrativeDialog, HasCacheMemory, nullptr, nullptr,
     ShowObjectCache},
    {ACTION_CLEAR_CACHE, TEXT_CLEAR_CACHE, ACTION_OFFERED, CanCache, ClearCache},
    {ACTION_ADMINISTRATION, TEXT_NONE, kAdministrativeDialog, nullptr, nullptr, nullptr,
     ShowAdministration},
    {ACTION_STATUS, TEXT_NONE, kAdministrativeDialog, CanBeMonitored, nullptr, nullptr,
     ShowStatusMonitor},
    {ACTION_OFFICE_COMPATIBILITY, TEXT_NONE, kAdministrativeDialog, nullptr, nullptr, nullptr,
     ShowOfficeCompatibility},
    // The actions of other printer languages have only names.
    {printer_action{3}, 2402},
    {printer_action{4}, 2403},
    {printer_action{7}, 2456},
    {printer_action{9}, 2455},
    {printer_action{19}, 2414},
    {printer_action{21}, 2460},
    {printer_action{24}, 2461},
    {printer_action{27}, 2463},
    {printer_action{29}, 2459},
    {printer_action{30}, 2465},
    {printer_action{31}, 2466},
    {printer_action{33}, 2468},
    {printer_action{34}, 2470},
    {printer_action{35}, 2469},
    {printer_action{40}, 2486},
    {printer_action{42}, 2481},
    {printer_action{43}, 2482},
    {printer_action{44}, 2462},
    {printer_action{47}, 2415},
    {printer_action{48}, 2489},
};

} // namespace

const ActionRow* prtui::FindAction(printer_action action) const {
    return FindRow(kActions, action);
}

OString prtui::PrinterActionName(printer_action action) {
    const ActionRow* row = FindAction(action);
    return row && row->text ? locale.GetString(row->text) : OString();
}

uint32_t prtui::PrinterActionSupported(prtpage*, printer_action action) {
    const ActionRow* row = FindAction(action);
    if (!model || !row || (row->is_possible && !row->is_possible(*this))) return 0;
    return row->offer;
}

void prtui::PrinterAction(prtpage* page, printer_action action) {
    const ActionRow* row = FindAction(action);
    if (!row) return;
    if (stream && row->run)
        row->run(*this, *row);
    else if (page && row->show)
        row->show(*page);
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
