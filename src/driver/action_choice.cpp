#include "driver/action_choice.h"

#include <algorithm>
#include <string_view>

#include "core/ascii.h"
#include "core/ofile.h"
#include "zpl/extmodel.h"
#include "zpl/extui.h"

namespace {

constexpr int32_t kLongestTimeout = 999999;

// Indexed by MemoryWork.
constexpr std::string_view kMemoryWork[] = {"format", "print", "erase", "reset"};

// Takes the next word from the front. Empty at the end.
std::string_view TakeWord(std::string_view& text) {
    const size_t start = std::min(text.find_first_not_of(' '), text.size());
    const size_t end = std::min(text.find(' ', start), text.size());
    const std::string_view word = text.substr(start, end - start);
    text.remove_prefix(end);
    return word;
}

bool SendFile(prtui& ui, const OString& path) {
    // Opening a missing file would create it.
    if (!OFile::Exists(path)) return false;
    ui.SendFile(path);
    return true;
}

bool RunMemoryWork(extui& ui, std::string_view words) {
    const auto* work = std::find(std::begin(kMemoryWork), std::end(kMemoryWork), TakeWord(words));
    const std::string_view letter = TakeWord(words);
    if (work == std::end(kMemoryWork) || letter.size() != 1 || !TakeWord(words).empty())
        return false;
    const char memory = xtoupper(letter[0]);
    OStringArray memories;
    AsZpl(*ui.model).GetMemoryLocations(memories);
    for (int i = 0; i < memories.GetSize(); ++i) {
        if (*memories[i].nstring() != memory) continue;
        ui.RunMemoryWork(static_cast<MemoryWork>(work - kMemoryWork), memory);
        return true;
    }
    return false;
}

bool ReadSwitch(std::string_view value, bool& on) {
    on = value == "yes";
    return on || value == "no";
}

// "off" or a number of seconds.
bool ReadSleep(std::string_view value, PowerSettings& settings) {
    settings.sleep = value != "off";
    if (!settings.sleep) return true;
    int32_t seconds = 0;
    for (const char digit : value) {
        if (digit < '0' || digit > '9') return false;
        seconds = seconds * 10 + (digit - '0');
        if (seconds > kLongestTimeout) return false;
    }
    settings.timeout = seconds;
    return !value.empty();
}

// Changes the settings that the words name. False for an unknown word.
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

bool ManagePower(extui& ui, std::string_view words) {
    if (words == "discharge") {
        ui.DischargeBattery();
        return true;
    }
    PowerSettings settings = ui.GetPowerSettings();
    if (!ReadPower(words, settings)) return false;
    return ui.SetPowerSettings(settings);
}

} // namespace

bool RunChoice(prtui& ui, printer_action action, const OString& choice) {
    // The UI object of this driver is always the ZPL II one.
    auto& zpl = static_cast<extui&>(ui);
    switch (action) {
    case ACTION_SEND_FILE:
        return SendFile(ui, choice);
    case ACTION_MEMORY:
        return RunMemoryWork(zpl, choice.nstring());
    case ACTION_POWER_MANAGEMENT:
        return ManagePower(zpl, choice.nstring());
    default:
        return false;
    }
}
