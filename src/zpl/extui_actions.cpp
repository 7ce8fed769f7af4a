// The actions of ZPL II printers.
#include "locale/text_numbers.h"
#include "pages/options/pp_rfid_options.h"
#include "ui/action_row.h"
#include "zpl/extconfig.h"
#include "zpl/extmodel.h"
#include "zpl/extui.h"
#include "zpl/pages/pp_memory_format.h"
#include "zpl/pages/pp_power_management.h"
#include "zpl/pages/pp_printer_information.h"
#include "zpl/pages/pp_printer_options.h"

namespace {

// ---- Whether an action is possible --------------------------------------------------------------

bool CanCut(prtui& ui) {
    const extconfig* config = extconfig::get_cfg(ui.devmode.GetDevMode());
    return (ui.model->GetCustomData()->flags & CustomData::CUTTER) && config &&
           config->print_mode != extconfig::PRINT_AS_SET;
}

bool IsNotPPLZ(prtui& ui) {
    return !AsZpl(*ui.model).IsPPLZ();
}

bool CanInitializeMemory(prtui& ui) {
    return AsZpl(*ui.model).HasMemoryInitializeCommand();
}

bool CanAnswer(prtui& ui) {
    return ui.stream && ui.stream->is_bidirectional();
}

bool HasRFIDOptions(prtui& ui) {
    const KVRFIDCapabilities* rfid = ui.model->GetRFIDCapabilities();
    return rfid && rfid->options != 0;
}

bool HasPowerOptions(prtui& ui) {
    return AsZpl(*ui.model).HasPowerOptions() && CanAnswer(ui);
}

// ---- Jobs, each named after the action ---------------------------------------------------------

extstream& Start(prtui& ui, const ActionRow& row) {
    auto& stream = static_cast<extstream&>(*ui.stream);
    stream.StartJob(ui.PrinterActionName(row.action));
    return stream;
}

// Writes the configuration in a format of its own.
void WriteConfiguration(prtui& ui, extstream& stream) {
    stream.format_start();
    if (const extconfig* config = extconfig::get_cfg(ui.devmode.GetDevMode()))
        config->output(stream);
    stream.format_end();
}

// Sends a control command.
void Control(prtui& ui, const ActionRow& row) {
    extstream& stream = Start(ui, row);
    stream.command_control(row.command);
    stream.EndJob();
}

// Sends the configuration, then a format with a command.
void Configured(prtui& ui, const ActionRow& row) {
    extstream& stream = Start(ui, row);
    WriteConfiguration(ui, stream);
    stream.format_start();
    stream.command_format(row.command);
    stream.format_end();
    stream.EndJob();
}

void PrintAllCharacters(prtui& ui, const ActionRow& row) {
    extstream& stream = Start(ui, row);
    stream.command_control("JD");
    for (int byte = 0; byte < 256; ++byte) stream.write_byte(static_cast<char>(byte));
    stream.command_control("JE");
    stream.EndJob();
}

void Feed(prtui& ui, const ActionRow& row) {
    extstream& stream = Start(ui, row);
    WriteConfiguration(ui, stream);
    stream.command_control(row.command);
    stream.EndJob();
}

void Cut(prtui& ui, const ActionRow& row) {
    extstream& stream = Start(ui, row);
    stream.cut();
    stream.EndJob();
}

void Reset(prtui& ui, const ActionRow& row) {
    Control(ui, row);
    static_cast<extui&>(ui).ClearCachedObjects('R');
}

// ---- Dialogs ------------------------------------------------------------------------------------

void ShowMemory(prtpage& page) {
    page.DialogModal("DLG_MEMORYFORMAT", ppMemoryFormat::WinProc);
}

void ShowPrinterOptions(prtpage& page) {
    page.DialogModal("DLG_PRINTEROPTIONS", ppPrinterOptions::WinProc);
}

void ShowPowerManagement(prtpage& page) {
    page.DialogModal("DLG_POWERMANAGEMENT", ppPowerManagement::WinProc);
}

void ShowRFIDOptions(prtpage& page) {
    page.DialogModal("*:FONTS/^RFID_OPTIONS", ppRFIDOptions::WinProc);
}

void ShowInformation(prtpage& page) {
    page.DialogModal("*:^INFORMATION", ppPrinterInformation::WinProc);
}

constexpr uint32_t kOffered = ACTION_OFFERED;
constexpr uint32_t kAdministrative = ACTION_OFFERED | ACTION_ADMINISTRATIVE;
constexpr uint32_t kDialog = ACTION_OFFERED | ACTION_OPENS_DIALOG;

constexpr ActionRow kActions[] = {
    {ACTION_CHARACTER_TEST, TEXT_CHARACTER_TEST, kOffered, nullptr, PrintAllCharacters},
    {ACTION_FEED, TEXT_FEED, kOffered, nullptr, Feed, "PH"},
    {ACTION_CUT, TEXT_CUT, kOffered, CanCut, Cut},
    {ACTION_RESET, TEXT_RESET, kAdministrative, nullptr, Reset, "JR"},
    {ACTION_CALIBRATE, TEXT_CALIBRATE, kAdministrative, nullptr, Control, "JC"},
    {ACTION_CONFIGURATION_LABEL, TEXT_CONFIGURATION_LABEL, kOffered, nullptr, Control, "WC"},
    {ACTION_LIST_ALL, TEXT_LIST_ALL, kOffered, nullptr, Configured, "WD*:*.*"},
    {ACTION_LIST_FONTS, TEXT_LIST_FONTS, kOffered, nullptr, Configured, "WD*:*.FNT"},
    {ACTION_LIST_FORMATS, TEXT_LIST_FORMATS, kOffered, nullptr, Configured, "WD*:*.ZPL"},
    {ACTION_LIST_GRAPHICS, TEXT_LIST_GRAPHICS, kOffered, nullptr, Configured, "WD*:*.GRF"},
    {ACTION_LIST_BUILT_IN_FONTS, TEXT_LIST_BUILT_IN_FONTS, kOffered, IsNotPPLZ, Configured,
     "WDZ:*.FNT"},
    {ACTION_LIST_BUILT_IN_BAR_CODES, TEXT_LIST_BUILT_IN_BAR_CODES, kOffered, IsNotPPLZ, Configured,
     "WDZ:*.BAR"},
    {ACTION_SENSOR_PROFILE, TEXT_SENSOR_PROFILE, kAdministrative, IsNotPPLZ, Control, "JG"},
    {ACTION_LABEL_LENGTH, TEXT_LABEL_LENGTH, kOffered, nullptr, Control, "JL"},
    {ACTION_FACTORY_SETTINGS, TEXT_FACTORY_SETTINGS, kOffered, nullptr, Configured, "JUF"},
    {ACTION_MEMORY, TEXT_MEMORY, kAdministrative | kDialog, CanInitializeMemory, nullptr, nullptr,
     ShowMemory},
    {ACTION_INFORMATION, TEXT_INFORMATION, kDialog, CanAnswer, nullptr, nullptr, ShowInformation},
    {ACTION_PRINTER_OPTIONS, TEXT_PRINTER_OPTIONS, kDialog, nullptr, nullptr, nullptr,
     ShowPrinterOptions},
    {ACTION_RFID_OPTIONS, TEXT_RFID_OPTIONS, kDialog, HasRFIDOptions, nullptr, nullptr,
     ShowRFIDOptions},
    {ACTION_POWER_MANAGEMENT, TEXT_POWER_MANAGEMENT, kAdministrative | kDialog, HasPowerOptions,
     nullptr, nullptr, ShowPowerManagement},
};

} // namespace

const ActionRow* extui::FindAction(printer_action action) const {
    const ActionRow* row = FindRow(kActions, action);
    return row ? row : prtui::FindAction(action);
}

void extui::PrinterAction(prtpage* page, printer_action action) {
    if (!model) return;
    stream_.reset_mode();
    prtui::PrinterAction(page, action);
}

void extui::GetCacheParameters(CacheParameters& parameters) const {
    prtui::GetCacheParameters(parameters);
    parameters.largest_memory = 8192;
    parameters.graphics_max = parameters.format_max = 999;
    if (!model) return;
    OStringArray memories;
    AsZpl(*model).GetMemoryLocations(memories);
    for (int i = 0; i < memories.GetSize(); ++i) {
        const char letter = *memories[i].nstring();
        const OString name = MemoryName(memories[i]);
        parameters.graphics_locations.Add(letter);
        parameters.graphics_location_names.Add(name);
        parameters.format_locations.Add(letter);
        parameters.format_location_names.Add(name);
    }
}

void extui::ClearCachedObjects(int32_t location) {
    stream_.CacheAction({KVCacheAction::FORGET_LOCATION, static_cast<uint32_t>(location)});
}

bool extui::EnableVerifyFonts(prtstream& printer) {
    return printer.is_bidirectional();
}
