// The printer's work for the dialogs of ZPL II printers.
#include "locale/text_numbers.h"
#include "zpl/extui.h"

namespace {

constexpr char kSleep[] = "Settings:Enable Sleep";
constexpr char kLowVoltagePause[] = "Settings:Low Voltage Pause";
constexpr char kForcedSleep[] = "Settings:Forced Sleep";
constexpr char kTimeout[] = "Settings:Timeout";

} // namespace

void extui::RunMemoryWork(MemoryWork work, char memory) {
    static constexpr struct {
        const char* job;
        const char* command; // before the memory's letter
        const char* rest;    // after it
    } kJobs[] = {{"Format Flash Memory", "JB", ""},
                 {"Print Memory Contents", "WD", ":*.*"},
                 {"Print Memory Contents", "ID", ":*.*"},
                 {"Reset Optional Memory", nullptr, nullptr}};
    const auto& job = kJobs[static_cast<int>(work)];
    stream_.reset_mode();
    stream_.StartJob(job.job);
    if (job.command) {
        stream_.format_start();
        stream_.command_format(job.command);
        stream_.write_byte(memory) << job.rest << endl;
        stream_.format_end();
    } else {
        stream_.command_control("JB");
    }
    stream_.EndJob();
    if (work != MemoryWork::PRINT) ClearCachedObjects(static_cast<unsigned char>(memory));
}

PowerSettings extui::GetPowerSettings() const {
    prtreg& registry = model->GetRegistry();
    PowerSettings settings;
    settings.sleep = registry.GetByte(kSleep, settings.sleep) != 0;
    settings.low_voltage_pause =
        registry.GetByte(kLowVoltagePause, settings.low_voltage_pause) != 0;
    settings.forced_sleep = registry.GetByte(kForcedSleep, settings.forced_sleep) != 0;
    settings.timeout = registry.GetInt(kTimeout, settings.timeout);
    return settings;
}

bool extui::SetPowerSettings(const PowerSettings& settings) {
    prtreg registry(model->GetRegistry()); // its failures are not the model's
    const bool stored = registry.SetByte(kSleep, settings.sleep) &&
                        registry.SetByte(kLowVoltagePause, settings.low_voltage_pause) &&
                        registry.SetByte(kForcedSleep, settings.forced_sleep) &&
                        registry.SetInt(kTimeout, settings.timeout);
    if (!stored) return false;

    stream_.reset_mode();
    stream_.StartJob("Power Management");
    stream_.command_control(settings.low_voltage_pause ? "JFY" : "JFN");
    stream_ << endl;
    stream_.command_format("XA");
    stream_.command_format("ZZ");
    if (settings.sleep)
        stream_ << settings.timeout << (settings.forced_sleep ? ",Y" : ",N");
    else
        stream_ << "0,N";
    stream_.command_format("XZ");
    stream_ << endl;
    stream_.EndJob();
    return true;
}

void extui::DischargeBattery() {
    stream_.reset_mode();
    stream_.StartJob(locale.GetString(TEXT_DISCHARGE_BATTERY));
    stream_.command_control("KB");
    stream_.EndJob();
}
