// What the dialogs of ZPL II printers have the printer do, with and without the dialog.
#include <algorithm>
#include <string_view>

#include "core/ascii.h"
#include "zpl/extmodel.h"
#include "zpl/extui.h"

namespace {

constexpr int kDischargeBattery = 10492; // text in the language library

constexpr char kSleep[] = "Settings:Enable Sleep";
constexpr char kLowVoltagePause[] = "Settings:Low Voltage Pause";
constexpr char kForcedSleep[] = "Settings:Forced Sleep";
constexpr char kTimeout[] = "Settings:Timeout";

constexpr int32_t kLongestTimeout = 999999;

// Takes the next word from the front; empty at the end.
std::string_view TakeWord(std::string_view& text) {
    const size_t start = std::min(text.find_first_not_of(' '), text.size());
    const size_t end = std::min(text.find(' ', start), text.size());
    const std::string_view word = text.substr(start, end - start);
    text.remove_prefix(end);
    return word;
}

bool ReadSwitch(std::string_view value, bool& on) {
    on = value == "yes";
    return on || value == "no";
}

// "off" or a number of seconds.
bool ReadSleep(std::string_view value, PowerSettings& settings) {
    settings.sleep = value != "off";
    if (!settings.sleep) return true;
    int64_t seconds = 0;
    for (const char digit : value) {
        if (digit < '0' || digit > '9') return false;
        seconds = seconds * 10 + (digit - '0');
        if (seconds > kLongestTimeout) return false;
    }
    settings.timeout = static_cast<int32_t>(seconds);
    return !value.empty();
}

// Changes what the words name; false for a word that is none of them.
bool ReadPower(std::string_view words, PowerSettings& settings) {
    for (auto word = TakeWord(words); !word.empty(); word = TakeWord(words)) {
        const size_t equals = word.find('=');
        if (equals == std::string_view::npos) return false;
        const std::string_view name = word.substr(0, equals);
        const std::string_view value = word.substr(equals + 1);
        const bool good = name == "sleep"    ? ReadSleep(value, settings)
                          : name == "forced" ? ReadSwitch(value, settings.forced_sleep)
                          : name == "low-voltage-pause"
                              ? ReadSwitch(value, settings.low_voltage_pause)
                              : false;
        if (!good) return false;
    }
    return true;
}

constexpr std::string_view kMemoryWords[] = {"format", "print", "erase", "reset"};

} // namespace

bool extui::RunChoice(printer_action action, const OString& choice) {
    if (!model) return false;
    stream_.reset_mode();
    switch (action) {
    case ACTION_MEMORY:
        return ChooseMemoryWork(choice);
    case ACTION_POWER_MANAGEMENT:
        return ChoosePower(choice);
    default:
        return prtui::RunChoice(action, choice);
    }
}

// ---- Memory -------------------------------------------------------------------------------------

bool extui::ChooseMemoryWork(const OString& choice) {
    std::string_view words = choice.nstring();
    const auto* work = std::find(std::begin(kMemoryWords), std::end(kMemoryWords), TakeWord(words));
    const std::string_view letter = TakeWord(words);
    if (work == std::end(kMemoryWords) || letter.size() != 1 || !TakeWord(words).empty())
        return false;
    const char memory = xtoupper(letter[0]);
    OStringArray memories;
    static_cast<const extmodel&>(*model).GetMemoryLocations(memories);
    for (int i = 0; i < memories.GetSize(); ++i) {
        if (*memories[i].nstring() != memory) continue;
        RunMemoryWork(static_cast<MemoryWork>(work - kMemoryWords), memory);
        return true;
    }
    return false;
}

void extui::RunMemoryWork(MemoryWork work, char memory) {
    static constexpr struct {
        const char* job;
        const char* command; // in front of the memory's letter
        const char* behind;
    } kJobs[] = {{"Format Flash Memory", "JB", ""},
                 {"Print Memory Contents", "WD", ":*.*"},
                 {"Print Memory Contents", "ID", ":*.*"},
                 {"Reset Optional Memory", nullptr, nullptr}};
    const auto& job = kJobs[static_cast<int>(work)];
    stream_.StartJob(job.job);
    if (job.command) {
        stream_.format_start();
        stream_.command_format(job.command);
        stream_.write_byte(memory) << job.behind << endl;
        stream_.format_end();
    } else {
        stream_.command_control("JB");
    }
    stream_.EndJob();
    if (work != MemoryWork::PRINT) ClearCachedObjects(static_cast<unsigned char>(memory));
}

// ---- Power --------------------------------------------------------------------------------------

bool extui::ChoosePower(const OString& choice) {
    const std::string_view words = choice.nstring();
    if (words == "discharge") {
        DischargeBattery();
        return true;
    }
    PowerSettings settings = GetPowerSettings();
    if (!ReadPower(words, settings)) return false;
    SetPowerSettings(settings);
    return true;
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

void extui::SetPowerSettings(const PowerSettings& settings) {
    prtreg& registry = model->GetRegistry();
    registry.SetByte(kSleep, settings.sleep);
    registry.SetByte(kLowVoltagePause, settings.low_voltage_pause);
    registry.SetByte(kForcedSleep, settings.forced_sleep);
    registry.SetInt(kTimeout, settings.timeout);

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
}

void extui::DischargeBattery() {
    stream_.StartJob(locale.GetString(kDischargeBattery));
    stream_.command_control("KB");
    stream_.EndJob();
}
