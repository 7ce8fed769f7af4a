// What ZPL II printers can be told to do.
#include "zpl/extconfig.h"
#include "zpl/extmodel.h"
#include "zpl/extui.h"

namespace {

// The model is made by this driver, in which all are of the ZPL kind.
const extmodel& ZplModel(const prtui& ui) {
    return static_cast<const extmodel&>(*ui.model);
}

} // namespace

void extui::GetCacheParameters(CacheParameters& parameters) const {
    prtui::GetCacheParameters(parameters);
    parameters.largest_memory = 8192;
    parameters.graphics_max = parameters.format_max = 999;
    if (!model) return;
    OStringArray memories;
    ZplModel(*this).GetMemoryLocations(memories);
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

// ---- Offers -------------------------------------------------------------------------------------

bool extui::CanCut() const {
    const extconfig* config = extconfig::get_cfg(devmode.GetDevMode());
    return (model->GetCustomData()->flags & CustomData::CUTTER) && config &&
           config->print_mode != extconfig::PRINT_AS_SET;
}

uint32_t extui::PrinterActionSupported(prtpage* page, printer_action action) {
    if (!model) return 0;
    const extmodel& zpl = ZplModel(*this);
    constexpr uint32_t kAdministrative = ACTION_OFFERED | ACTION_ADMINISTRATIVE;
    constexpr uint32_t kDialog = ACTION_OFFERED | ACTION_OPENS_DIALOG;
    switch (action) {
    case ACTION_CHARACTER_TEST:
    case ACTION_FEED:
    case ACTION_CONFIGURATION_LABEL:
    case ACTION_LIST_ALL:
    case ACTION_LIST_FONTS:
    case ACTION_LIST_FORMATS:
    case ACTION_LIST_GRAPHICS:
    case ACTION_LABEL_LENGTH:
    case ACTION_FACTORY_SETTINGS:
        return ACTION_OFFERED;
    case ACTION_CUT:
        return CanCut() ? ACTION_OFFERED : 0;
    case ACTION_RESET:
    case ACTION_CALIBRATE:
        return kAdministrative;
    case ACTION_LIST_BUILT_IN_FONTS:
    case ACTION_LIST_BUILT_IN_BAR_CODES:
        return zpl.IsPPLZ() ? 0 : ACTION_OFFERED;
    case ACTION_SENSOR_PROFILE:
        return zpl.IsPPLZ() ? 0 : kAdministrative;
    case ACTION_MEMORY:
        return zpl.HasMemoryInitializeCommand() ? kAdministrative | kDialog : 0;
    case ACTION_INFORMATION:
        return stream_.is_bidirectional() ? kDialog : 0;
    case ACTION_PRINTER_OPTIONS:
        return kDialog;
    case ACTION_RFID_OPTIONS: {
        const KVRFIDCapabilities* rfid = zpl.GetRFIDCapabilities();
        return rfid && rfid->options != 0 ? kDialog : 0;
    }
    case ACTION_POWER_MANAGEMENT:
        return zpl.HasPowerOptions() && stream_.is_bidirectional() ? kAdministrative | kDialog : 0;
    default:
        return prtui::PrinterActionSupported(page, action);
    }
}

// ---- Jobs ---------------------------------------------------------------------------------------

void extui::RunControl(printer_action action, const char* command) {
    stream_.StartJob(PrinterActionName(action));
    stream_.command_control(command);
    stream_.EndJob();
}

void extui::RunConfigured(printer_action action, const char* command) {
    stream_.StartJob(PrinterActionName(action));
    WriteConfiguration();
    stream_.format_start();
    stream_.command_format(command);
    stream_.format_end();
    stream_.EndJob();
}

void extui::WriteConfiguration() {
    stream_.format_start();
    if (const extconfig* config = extconfig::get_cfg(devmode.GetDevMode())) config->output(stream_);
    stream_.format_end();
}

void extui::PrinterAction(prtpage* page, printer_action action) {
    if (!model) return;
    stream_.reset_mode();
    switch (action) {
    case ACTION_CHARACTER_TEST:
        stream_.StartJob(PrinterActionName(action));
        stream_.command_control("JD");
        for (int byte = 0; byte < 256; ++byte) stream_.write_byte(static_cast<char>(byte));
        stream_.command_control("JE");
        stream_.EndJob();
        break;
    case ACTION_FEED:
        stream_.StartJob(PrinterActionName(action));
        WriteConfiguration();
        stream_.command_control("PH");
        stream_.EndJob();
        break;
    case ACTION_CUT:
        stream_.StartJob(PrinterActionName(action));
        stream_.cut();
        stream_.EndJob();
        break;
    case ACTION_RESET:
        RunControl(action, "JR");
        ClearCachedObjects('R');
        break;
    case ACTION_CALIBRATE:
        RunControl(action, "JC");
        break;
    case ACTION_CONFIGURATION_LABEL:
        RunControl(action, "WC");
        break;
    case ACTION_LIST_ALL:
        RunConfigured(action, "WD*:*.*");
        break;
    case ACTION_LIST_FONTS:
        RunConfigured(action, "WD*:*.FNT");
        break;
    case ACTION_LIST_FORMATS:
        RunConfigured(action, "WD*:*.ZPL");
        break;
    case ACTION_LIST_GRAPHICS:
        RunConfigured(action, "WD*:*.GRF");
        break;
    case ACTION_LIST_BUILT_IN_FONTS:
        RunConfigured(action, "WDZ:*.FNT");
        break;
    case ACTION_LIST_BUILT_IN_BAR_CODES:
        RunConfigured(action, "WDZ:*.BAR");
        break;
    case ACTION_SENSOR_PROFILE:
        RunControl(action, "JG");
        break;
    case ACTION_LABEL_LENGTH:
        RunControl(action, "JL");
        break;
    case ACTION_FACTORY_SETTINGS:
        RunConfigured(action, "JUF");
        break;
    default:
        prtui::PrinterAction(page, action);
        break;
    }
}
