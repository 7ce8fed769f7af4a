#include "commands/settings_text.h"

#include "fault.h"
#include "text.h"

#include <zplui.h>

#include <sstream>

const SettingsKind kSettingsKinds[kSettingsKindCount] = {
    {DAL_SETTINGS_STOCKS, "stocks", "stock", "stocks", "<stock>", "KFM1"},
    {DAL_SETTINGS_PRESETS, "presets", "preset", "presets", "<preset>", "DM"},
    {DAL_SETTINGS_BAR_FONTS, "barcode-fonts", "bar code font", "bar code fonts",
     "<font type='Bar Code'>", "KBF1"},
    {DAL_SETTINGS_RFID_FONTS, "rfid-fonts", "RFID font", "RFID fonts", "<font type='RFID'>", ""},
    {DAL_SETTINGS_OPTIONS, "options", "set of options", "sets of options", "<options model='", ""},
};

int ContentsOf(const std::string& names) {
    int contents = 0;
    std::istringstream list(names);
    for (std::string name; std::getline(list, name, ',');) {
        int content = 0;
        for (const SettingsKind& kind : kSettingsKinds)
            if (Trim(name) == kind.name) content = kind.content;
        if (!content)
            throw UsageFault("'" + name +
                             "' is none of stocks, presets, barcode-fonts, rfid-fonts "
                             "and options");
        contents |= content;
    }
    if (contents == 0)
        for (const SettingsKind& kind : kSettingsKinds) contents |= kind.content;
    return contents;
}

SettingsText::SettingsText(const std::string& bytes)
    : mark_(bytes.rfind("\xEF\xBB\xBF", 0) == 0) {
    if (bytes.rfind("<dri", 0) != 0) {
        for (const SettingsKind& kind : kSettingsKinds)
            if (*kind.signature && bytes.size() >= 4 && bytes.rfind(kind.signature, 0) == 0)
                contents_ = kind.content;
        return;
    }
    contents_ = ContentsOf("");
    std::istringstream text(bytes);
    for (std::string line; std::getline(text, line);) {
        line = Trim(line);
        for (int i = 0; i < kSettingsKindCount; ++i) {
            const SettingsKind& kind = kSettingsKinds[i];
            const bool options = kind.content == DAL_SETTINGS_OPTIONS;
            if (options ? line.rfind(kind.block, 0) != 0 : line != kind.block) continue;
            ++counts_[i];
            if (options) models_ += line + '\n';
        }
    }
}

bool SettingsText::HasOptionsOf(const std::string& model) const {
    return ('\n' + models_).find("\n<options model='" + model + "'>\n") != std::string::npos;
}
